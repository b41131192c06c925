#pragma once

#include "call.h"
#include "reply.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace pingwell::devserver {

/// Who may call a route: anyone on this machine, or only whoever has a good token.
enum class Access { open, session };

/// Answers at once.
using Handler = std::function<Reply(const Call &)>;
/// Answers by calling the second argument, at once or later.
using SlowHandler = std::function<void(const Call &, const Respond &)>;

struct Route
{
    QString method;
    /// Fixed pieces and "{name}" pieces, which match anything.
    QStringList pieces;
    Access access = Access::session;
    SlowHandler handler;
};

/// Every route of the service.
class Router
{
public:
    void add(const QString &method, const QString &pattern, Access access, Handler handler);
    void addSlow(const QString &method, const QString &pattern, Access access, SlowHandler handler);

    /// The route of the call, whose named pieces are put into the call's parameters. Throws a 404 or 405 `Refusal`.
    const Route &find(Call &call) const;

private:
    QList<Route> m_routes;
};

} // namespace pingwell::devserver
