#include "router.h"

#include <QUrl>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

QStringList splitPath(const QString &path)
{
    return path.split(u'/', Qt::SkipEmptyParts);
}

/// The named pieces of a path that has the route's shape.
std::optional<QMap<QString, QString>> match(const QStringList &pieces, const QStringList &path)
{
    if (pieces.size() != path.size())
        return std::nullopt;
    QMap<QString, QString> parameters;
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        const QString decoded = QUrl::fromPercentEncoding(path[i].toUtf8());
        if (pieces[i].startsWith(u'{'))
            parameters.insert(pieces[i].mid(1).chopped(1), decoded);
        else if (pieces[i] != decoded)
            return std::nullopt;
    }
    return parameters;
}

} // namespace

void Router::add(const QString &method, const QString &pattern, Access access, Handler handler)
{
    addSlow(method, pattern, access,
            [handler = std::move(handler)](const Call &call, const Respond &respond) { respond(handler(call)); });
}

void Router::addSlow(const QString &method, const QString &pattern, Access access, SlowHandler handler)
{
    m_routes.append({method, splitPath(pattern), access, std::move(handler)});
}

const Route &Router::find(Call &call) const
{
    const QStringList path = splitPath(call.path);
    bool hasPath = false;
    for (const Route &route : m_routes) {
        const auto parameters = match(route.pieces, path);
        if (!parameters)
            continue;
        hasPath = true;
        if (route.method == call.method) {
            call.parameters = *parameters;
            return route;
        }
    }
    if (hasPath)
        throw Refusal{405, u"method_not_allowed"_s, u"This address doesn't take %1."_s.arg(call.method)};
    throw notFound(u"There is nothing at %1."_s.arg(call.path));
}

} // namespace pingwell::devserver
