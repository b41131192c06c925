#include "support/scripted_transport.h"

#include <QTest>

#include <algorithm>

namespace pingwell {

ScriptedAnswer ScriptedAnswer::data(const QByteArray &data)
{
    return raw(200, R"({"success":true,"data":)" + data + '}');
}

ScriptedAnswer ScriptedAnswer::message(const QByteArray &message, const QByteArray &data)
{
    return raw(200, R"({"success":true,"message":")" + message + R"(","data":)" + data + '}');
}

ScriptedAnswer ScriptedAnswer::failure(int status, const QByteArray &code, const QByteArray &message)
{
    QByteArray body = R"({"success":false)";
    if (!code.isEmpty())
        body += R"(,"code":")" + code + '"';
    if (!message.isEmpty())
        body += R"(,"message":")" + message + '"';
    return raw(status, body + '}');
}

ScriptedTransport::~ScriptedTransport()
{
    for (Held &held : m_held)
        held.pending.finish(std::nullopt);
}

bool ScriptedTransport::release(const QByteArray &method, const QByteArray &path)
{
    const Route route(method, path);
    const auto found = std::find_if(m_held.begin(), m_held.end(),
                                    [&](const Held &held) { return method.isEmpty() || held.route == route; });
    if (found == m_held.end())
        return false;
    const Held held = *found;
    m_held.erase(found);
    deliver(held.pending, held.answer);
    return true;
}

qsizetype ScriptedTransport::count(const QByteArray &method, const QByteArray &path) const
{
    const Route route(method, path);
    return std::count_if(m_requests.begin(), m_requests.end(),
                         [&route](const HTTPRequest &request) { return routeOf(request) == route; });
}

HTTPRequest ScriptedTransport::lastRequest(const QByteArray &method, const QByteArray &path) const
{
    const Route route(method, path);
    const auto found = std::find_if(m_requests.rbegin(), m_requests.rend(),
                                    [&route](const HTTPRequest &request) { return routeOf(request) == route; });
    if (found != m_requests.rend())
        return *found;
    failTest("no request was made for ", route);
    return {};
}

qsizetype ScriptedTransport::plannedCount() const
{
    qsizetype count = m_next.size();
    for (const QList<ScriptedAnswer> &answers : m_planned)
        count += answers.size();
    return count;
}

QCoro::Task<HTTPResponse> ScriptedTransport::perform(HTTPRequest request)
{
    const Route route = routeOf(request);
    m_requests.append(request);
    std::optional<ScriptedAnswer> answer = takeAnswer(route);
    if (!answer) {
        failTest("no answer is planned for ", route);
        answer = ScriptedAnswer::noAnswer();
    }
    const PendingResponse pending;
    if (answer->held)
        m_held.append(Held{route, *answer, pending});
    else
        deliver(pending, *answer);
    return responseOf(pending);
}

ScriptedTransport::Route ScriptedTransport::routeOf(const HTTPRequest &request)
{
    return Route(request.method, request.url.path(QUrl::FullyEncoded).toLatin1());
}

std::optional<ScriptedAnswer> ScriptedTransport::takeAnswer(const Route &route)
{
    const auto planned = m_planned.find(route);
    if (planned != m_planned.end() && !planned->isEmpty())
        return planned->takeFirst();
    if (!m_next.isEmpty())
        return m_next.takeFirst();
    const auto standing = m_standing.constFind(route);
    if (standing != m_standing.constEnd())
        return *standing;
    return std::nullopt;
}

void ScriptedTransport::failTest(const char *problem, const Route &route)
{
    const QByteArray message = problem + route.first + ' ' + route.second;
    QTest::qFail(message.constData(), __FILE__, __LINE__);
}

void ScriptedTransport::deliver(PendingResponse pending, const ScriptedAnswer &answer)
{
    const HTTPResponse response{answer.status, answer.body};
    pending.finish(answer.offline ? std::nullopt : std::optional(response));
}

QByteArray headerOf(const HTTPRequest &request, const QByteArray &name)
{
    for (const auto &[key, value] : request.headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

} // namespace pingwell
