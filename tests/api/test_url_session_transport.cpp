#include "api/endpoints.h"
#include "api/url_session_transport.h"
#include "loopback_server.h"
#include "support/in_row.h"
#include "support/settled.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

HTTPRequest requestFor(const QUrl &url, const QByteArray &method = "GET")
{
    HTTPRequest request;
    request.method = method;
    request.url = url;
    request.headers.emplaceBack("Authorization", "Bearer t0k");
    return request;
}

QByteArray redirectTo(const QUrl &target, const QByteArray &status = "302 Found")
{
    return "HTTP/1.1 " + status + "\r\nLocation: " + target.toEncoded() + "\r\nContent-Length: 4\r\n\r\nthen";
}

QByteArray chunked(const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + QByteArray::number(body.size(), 16) + "\r\n" +
           body + "\r\n";
}

} // namespace

class TestURLSessionTransport : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_server = std::make_unique<LoopbackServer>();
        m_transport = std::make_shared<URLSessionTransport>();
    }

    void exchanges()
    {
        for (const QByteArray method : {"GET", "POST", "PATCH", "DELETE"}) {
            const InRow row = anew(method);
            HTTPRequest request = requestFor(m_server->url(u"/a%2Fb//%252F%3F%C3%A9"_s), method);
            if (method == "PATCH") {
                request.headers.emplaceBack("Content-Type", "application/json");
                request.body = R"({"a":1})";
            }
            m_server->answer("HTTP/1.1 404 Not Found\r\nDate: Sun, 06 Nov 1994 08:49:37 GMT\r\nSet-Cookie: "
                             "a=b\r\nContent-Length: 3\r\n\r\nno.");
            m_server->answerWith("new");
            const auto settled = settle(m_transport->perform(request));
            QCOMPARE(settled.value()->status, 404);
            QCOMPARE(settled.value()->body, "no."_ba);
            QCOMPARE(settled.value()->date, std::optional(Instant(784'111'777s)));

            const QByteArray sent = m_server->requests().constFirst();
            const QByteArray head = sent.first(sent.indexOf("\r\n\r\n")).toLower();
            QCOMPARE(sent.first(sent.indexOf("\r\n")), method + " /a%2Fb//%252F%3F%C3%A9 HTTP/1.1");
            QCOMPARE(sent.sliced(head.size()), "\r\n\r\n" + request.body.value_or(QByteArray()));
            QVERIFY(head.contains("\r\nauthorization: bearer t0k"));
            QVERIFY(head.contains("\r\nuser-agent: pingwell/"));
            QCOMPARE(head.contains("\r\ncontent-type:"), request.body.has_value());
            QCOMPARE(head.count("\r\ncontent-length:"), method == "GET" ? 0 : 1);

            // Nothing is kept: not the cookie, and not the answer.
            QCOMPARE(settle(m_transport->perform(request)).value()->body, "new"_ba);
            QVERIFY(!m_server->requests().constLast().toLower().contains("\r\ncookie:"));
        }
    }

    void followsWithinTheOrigin()
    {
        m_server->answer(redirectTo(QUrl(u"/b?x=1"_s)));
        m_server->answer(redirectTo(m_server->url(u"/c"_s), "308 Permanent Redirect"));
        m_server->answerWith("there");
        const auto settled = settle(m_transport->perform(requestFor(m_server->url(u"/a"_s))));
        QCOMPARE(settled.value()->status, 200);
        QCOMPARE(settled.value()->body, "there"_ba);
        QVERIFY(m_server->requests().at(1).startsWith("GET /b?x=1 "));
        QVERIFY(m_server->requests().at(2).startsWith("GET /c "));
        QVERIFY(m_server->requests().at(2).contains("Bearer t0k"));
    }

    /// Not a fourth time, not anything but a GET, and to no other origin.
    void followsNothingElse()
    {
        const QString same = u"http://127.0.0.1:{same}/"_s;
        const std::tuple<QString, QByteArray, int> rows[] = {{same, "GET", 4},
                                                             {same, "POST", 1},
                                                             {u"http://127.0.0.1:{other}/"_s, "GET", 1},
                                                             {u"http://localhost:{same}/"_s, "GET", 1},
                                                             {u"https://127.0.0.1:{same}/"_s, "GET", 1},
                                                             {u"http://a:b@127.0.0.1:{same}/"_s, "GET", 1},
                                                             {u"file:///etc/hostname"_s, "GET", 1}};
        for (auto [target, method, requests] : rows) {
            const InRow row = anew(target.toUtf8() + ' ' + method);
            LoopbackServer other;
            target.replace(u"{other}"_s, QString::number(other.url().port()));
            target.replace(u"{same}"_s, QString::number(m_server->url().port()));
            m_server->answer(redirectTo(QUrl(target), "307 Temporary Redirect"));
            const auto settled = settle(m_transport->perform(requestFor(m_server->url(), method)));
            QCOMPARE(settled.value()->status, 307);
            QCOMPARE(settled.value()->body, "then"_ba);
            QCOMPARE(m_server->requests().size(), requests);
            QCOMPARE(other.requests().size(), 0);
        }
    }

    void endsWithoutAnAnswer()
    {
        using Milliseconds = std::chrono::milliseconds;
        const QByteArray okay = "HTTP/1.1 200 OK\r\n";
        const APIError offline = APIError::offline(), tooLarge = APIError::tooLarge();
        const std::tuple<const char *, LoopbackServer::Script, Milliseconds, Milliseconds, APIError> rows[] = {
            {"short body", {okay + "Content-Length: 10\r\n\r\nhalf"}, 20s, 60s, offline},
            {"no HTTP", {"+OK ready\r\n\r\n"}, 20s, 60s, offline},
            {"nothing", {""}, 20s, 60s, offline},
            {"announced too long", {okay + "Content-Length: 99999999999\r\n\r\n", true}, 20s, 60s, tooLarge},
            {"too long", {chunked(QByteArray(100'001, 'x')), true}, 20s, 60s, tooLarge},
            {"endless", {okay + "\r\n" + QByteArray(5'000'000, 'x'), true}, 20s, 60s, tooLarge},
            {"silent", {okay, true}, 100ms, 60s, offline},
            // Bytes that trickle in keep the silence limit from striking; only the deadline ends that.
            {"dripping", {okay + "Content-Length: 900\r\n\r\n" + QByteArray(900, 'x'), true, 10}, 2s, 300ms, offline}};
        for (const auto &[name, script, silence, deadline, error] : rows) {
            const InRow row = anew(name);
            URLSessionTransport transport({.bodyBytes = 100'000, .deadline = deadline});
            m_server->answer(script);
            HTTPRequest request = requestFor(m_server->url());
            request.timeout = silence;
            QCOMPARE(settle(transport.perform(request)).error(), std::optional(error));
        }
    }

    void limitsAreThese()
    {
        QVERIFY(TransportLimits().deadline == 60s);
        QCOMPARE(TransportLimits().bodyBytes, 67'108'864);
    }

    void takesNoRecordFromACutBody()
    {
        // Depending on the moment, the network layer takes a last chunk that never came for the end of the body.
        // Whatever it says, half a record must not count as one.
        const auto client = std::make_shared<const APIClient>(m_server->url(), std::nullopt, m_transport);
        m_server->answer(chunked(R"({"data":[{"token":"t"})"));
        QVERIFY(settle(endpoints::listInvitations(client)).error().has_value());
    }

    void unpacks()
    {
        const QByteArray largest(8'000'000, 'x');
        const QByteArray mixed = QByteArray("a text that packs well, though not without end. ").repeated(1000);
        const APIError tooLarge = APIError::tooLarge(), damaged = APIError::badResponse();
        const std::tuple<const char *, QByteArray, QByteArray, std::optional<APIError>> rows[] = {
            {"whole", packed(mixed), mixed, {}},
            {"nothing", {}, {}, {}},
            // It packs to a thousandth: four megabytes may be unpacked of it whatever it measures, five may not.
            {"small", packed(largest.first(4'000'000)), largest.first(4'000'000), {}},
            {"packed too well", packed(largest.first(5'000'000)), {}, tooLarge},
            {"less well", packed(largest) + QByteArray(60'000, 'x'), largest, {}},
            {"too long", packed(largest + 'x') + QByteArray(60'000, 'x'), {}, tooLarge},
            {"cut", packed(mixed).chopped(8), {}, damaged},
            {"damaged", "nothing of the kind", {}, damaged}};
        for (const auto &[name, sent, body, error] : rows) {
            const InRow row = anew(name);
            URLSessionTransport transport({.bodyBytes = 8'000'000});
            m_server->answerWith(sent, "Content-Encoding: deflate\r\n");
            const auto settled = settle(transport.perform(requestFor(m_server->url())));
            QCOMPARE(settled.value() ? settled.value()->body : QByteArray(), body);
            QCOMPARE(settled.error(), error);
            QVERIFY(m_server->requests().constFirst().toLower().contains("\r\naccept-encoding: gzip\r\n"));
        }
    }

    /// Once told: what only asks is asked again, but a change is not sent twice, for the service may have had it.
    void leavesSilentConnections()
    {
        const std::tuple<QByteArray, bool, QByteArray, int> rows[] = {
            {"GET", true, "alive", 3}, {"POST", true, {}, 2}, {"GET", false, {}, 2}};
        for (const auto &[method, isTold, answer, requests] : rows) {
            const InRow row = anew(method + (isTold ? ", told" : ", not told"));
            m_server->answerWith("kept", {}, true);
            m_server->answer({.bytes = {}, .staysOpen = true});
            m_server->answerWith("alive", {}, true);
            QCOMPARE(settle(m_transport->perform(requestFor(m_server->url()))).value()->body, "kept"_ba);
            HTTPRequest request = requestFor(m_server->url(), method);
            request.timeout = 500ms;
            QCoro::Task<Outcome<HTTPResponse>> waiting = m_transport->perform(request);
            QTRY_COMPARE(m_server->requests().size(), 2);
            QCOMPARE(m_server->connectionCount(), 1);
            if (isTold)
                m_transport->dropConnections();
            const auto settled = settle(std::move(waiting));
            QCOMPARE(settled.value() ? settled.value()->body : QByteArray(), answer);
            QCOMPARE(m_server->requests().size(), requests);
            QCOMPARE(settle(m_transport->perform(requestFor(m_server->url()))).value()->body, "alive"_ba);
        }
    }

    /// Two connections are kept; the request after a word or a silence uses neither, although both look alive.
    void asksOverNewConnections()
    {
        for (const bool isTold : {true, false}) {
            const InRow row = anew(isTold ? "when told" : "after a silence");
            m_server->answerWith("kept", {}, true);
            QCoro::Task<Outcome<HTTPResponse>> first = m_transport->perform(requestFor(m_server->url()));
            QCoro::Task<Outcome<HTTPResponse>> second = m_transport->perform(requestFor(m_server->url()));
            QVERIFY(settle(std::move(first)).value() && settle(std::move(second)).value());
            QCOMPARE(settle(m_transport->perform(requestFor(m_server->url()))).value()->body, "kept"_ba);
            QCOMPARE(m_server->connectionCount(), 2);
            if (isTold) {
                m_transport->dropConnections();
            } else {
                m_server->answer({.bytes = {}, .staysOpen = true});
                m_server->answerWith("kept", {}, true);
                QVERIFY(settle(m_transport->perform(requestFor(m_server->url()))).value());
                HTTPRequest unanswered = requestFor(m_server->url(), "POST");
                unanswered.timeout = 100ms;
                QCOMPARE(settle(m_transport->perform(unanswered)).error(), APIError::offline());
            }
            QCOMPARE(settle(m_transport->perform(requestFor(m_server->url()))).value()->body, "kept"_ba);
            QCOMPARE(m_server->connectionCount(), 3);
        }
    }

    void failsWithoutAServer()
    {
        for (const QUrl &url : {LoopbackServer().url(), QUrl(u"file:///etc/hostname"_s), QUrl()})
            QCOMPARE(settle(m_transport->perform(requestFor(url))).error(), APIError::offline());
    }

    void endsWhatIsInFlightWhenDestroyed()
    {
        m_server->answer({.bytes = {}, .staysOpen = true});
        QCoro::Task<Outcome<HTTPResponse>> sent = m_transport->perform(requestFor(m_server->url()));
        QTRY_COMPARE(m_server->requests().size(), 1);
        QCoro::Task<Outcome<HTTPResponse>> unsent = m_transport->perform(requestFor(m_server->url()));
        m_transport.reset();
        QCOMPARE(settle(std::move(sent)).error(), APIError::offline());
        QCOMPARE(settle(std::move(unsent)).error(), APIError::offline());
    }

private:
    /// Begins the next row of a list.
    [[nodiscard]] InRow anew(const QByteArray &row)
    {
        init();
        return InRow(row);
    }

    /// In zlib's own form, which is what "deflate" means (RFC 9110, 8.4.1.2); Qt puts the length in front.
    static QByteArray packed(const QByteArray &bytes) { return qCompress(bytes).mid(4); }

    std::unique_ptr<LoopbackServer> m_server;
    std::shared_ptr<URLSessionTransport> m_transport;
};

QTEST_GUILESS_MAIN(TestURLSessionTransport)
#include "test_url_session_transport.moc"
