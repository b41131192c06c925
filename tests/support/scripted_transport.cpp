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
    const auto pair = [](const char *key, const QByteArray &text) {
        return text.isEmpty() ? QByteArray() : QByteArray(",\"") + key + "\":\"" + text + '"';
    };
    return raw(status, R"({"success":false)" + pair("code", code) + pair("message", message) + '}');
}

ScriptedTransport::~ScriptedTransport()
{
    for (Held &held : m_held)
        held.pending.finish(std::nullopt);
}

bool ScriptedTransport::release(const QByteArray &method, const QByteArray &path)
{
    const auto fits = [&](const Held &held) { return method.isEmpty() || held.route == Route(method, path); };
    const auto found = std::find_if(m_held.begin(), m_held.end(), fits);
    if (found == m_held.end())
        return false;
    Held held = *found;
    m_held.erase(found);
    held.pending.finish(held.response);
    return true;
}

qsizetype ScriptedTransport::count(const QByteArray &method, const QByteArray &path) const
{
    return std::count_if(m_requests.begin(), m_requests.end(),
                         [&](const HTTPRequest &request) { return routeOf(request) == Route(method, path); });
}

HTTPRequest ScriptedTransport::lastRequest(const QByteArray &method, const QByteArray &path) const
{
    const auto found = std::find_if(m_requests.rbegin(), m_requests.rend(), [&](const HTTPRequest &request) {
        return routeOf(request) == Route(method, path);
    });
    if (found != m_requests.rend())
        return *found;
    failTest("no request was made for ", {method, path});
    return {};
}

qsizetype ScriptedTransport::plannedCount() const
{
    qsizetype count = m_next.size();
    for (const QList<ScriptedAnswer> &answers : m_planned)
        count += answers.size();
    return count;
}

QCoro::Task<Outcome<HTTPResponse>> ScriptedTransport::perform(HTTPRequest request)
{
    m_requests.append(request);
    const Route route = routeOf(request);
    const ScriptedAnswer answer = takeAnswer(route);
    PendingResponse pending;
    if (answer.held)
        m_held.append({route, answer.response, pending});
    else
        pending.finish(answer.response);
    return responseOf(pending);
}

ScriptedTransport::Route ScriptedTransport::routeOf(const HTTPRequest &request)
{
    return Route(request.method, request.url.path(QUrl::FullyEncoded).toLatin1());
}

ScriptedAnswer ScriptedTransport::takeAnswer(const Route &route)
{
    if (m_planned.contains(route) && !m_planned[route].isEmpty())
        return m_planned[route].takeFirst();
    if (!m_next.isEmpty())
        return m_next.takeFirst();
    if (!m_standing.contains(route))
        failTest("no answer is planned for ", route);
    return m_standing.value(route, ScriptedAnswer::noAnswer());
}

void ScriptedTransport::failTest(const char *problem, const Route &route)
{
    const QByteArray message = problem + route.first + ' ' + route.second;
    QTest::qFail(message.constData(), __FILE__, __LINE__);
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
