#pragma once

#include "api/http_transport.h"
#include "api/pending_response.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <optional>
#include <utility>

namespace pingwell {

/// One answer of the scripted service.
struct ScriptedAnswer
{
    /// None: no answer arrives at all.
    std::optional<HTTPResponse> response;
    /// The answer waits for `ScriptedTransport::release`.
    bool held = false;

    /// {"success":true,"data":<data>}
    static ScriptedAnswer data(const QByteArray &data);
    /// {"success":true,"message":"<message>","data":<data>}; `message` must not need escaping.
    static ScriptedAnswer message(const QByteArray &message, const QByteArray &data = "null");
    /// {"success":false,"code":"<code>","message":"<message>"}, without the empty ones.
    static ScriptedAnswer failure(int status, const QByteArray &code = {}, const QByteArray &message = {});
    /// `body` as it stands.
    static ScriptedAnswer raw(int status, const QByteArray &body) { return {HTTPResponse{status, body}}; }
    static ScriptedAnswer noAnswer() { return {}; }

    /// The same answer, held back until the test releases it.
    [[nodiscard]] ScriptedAnswer heldBack() const { return {response, true}; }
};

/// The service in memory, played from a script. A request takes, in this order: the oldest answer planned for its route
/// (`plan`), the oldest one planned for any route (`planNext`), the standing one of its route (`always`). With none of
/// these the test fails, saying which request it was, and the request ends as offline. Answers arrive on a later turn
/// of the event loop, as real ones do; a held one arrives after `release`. A transport that dies ends what is held as
/// offline.
class ScriptedTransport final : public HTTPTransport
{
public:
    ~ScriptedTransport() override;

    /// `path` is the URL's path as it goes over the wire, percent-encoded and with the base address's own path.
    void plan(const QByteArray &method, const QByteArray &path, const ScriptedAnswer &answer)
    {
        m_planned[{method, path}].append(answer);
    }
    void planNext(const ScriptedAnswer &answer) { m_next.append(answer); }
    void always(const QByteArray &method, const QByteArray &path, const ScriptedAnswer &answer)
    {
        m_standing.insert({method, path}, answer);
    }

    /// Lets the oldest held answer go, of that route where one is given. False when none is held.
    bool release(const QByteArray &method = {}, const QByteArray &path = {});

    /// Every request so far, in order.
    [[nodiscard]] const QList<HTTPRequest> &requests() const { return m_requests; }
    [[nodiscard]] qsizetype count(const QByteArray &method, const QByteArray &path) const;
    /// The last request of the route; fails the test when there was none.
    [[nodiscard]] HTTPRequest lastRequest(const QByteArray &method, const QByteArray &path) const;
    /// How many answers of `plan` and `planNext` nobody asked for yet.
    [[nodiscard]] qsizetype plannedCount() const;

    /// How often the connections were dropped.
    [[nodiscard]] int dropCount() const { return m_dropCount; }

    QCoro::Task<Outcome<HTTPResponse>> perform(HTTPRequest request) override;
    void dropConnections() override { ++m_dropCount; }

private:
    using Route = std::pair<QByteArray, QByteArray>;
    struct Held
    {
        Route route;
        std::optional<HTTPResponse> response;
        PendingResponse pending;
    };

    static Route routeOf(const HTTPRequest &request);
    static void failTest(const char *problem, const Route &route);
    ScriptedAnswer takeAnswer(const Route &route);

    int m_dropCount = 0;
    QList<HTTPRequest> m_requests;
    QHash<Route, QList<ScriptedAnswer>> m_planned;
    QList<ScriptedAnswer> m_next;
    QHash<Route, ScriptedAnswer> m_standing;
    QList<Held> m_held;
};

/// The value of a request's header; empty without one.
[[nodiscard]] QByteArray headerOf(const HTTPRequest &request, const QByteArray &name);

} // namespace pingwell
