#pragma once

#include "model/instant.h"
#include "model/raw_value.h"
#include "reply.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

#include <optional>

class QTcpSocket;

namespace pingwell::devserver {

/// How a request goes wrong.
enum class FaultMode {
    status,    ///< another status, with an error message or a body of one's choice
    delay,     ///< the right answer, late
    drop,      ///< the connection is cut without an answer
    malformed, ///< a body that isn't JSON, or one of one's choice
    truncated, ///< the connection is cut in the middle of the right answer
    empty,     ///< success with an empty body
    huge,      ///< a body larger than any client should read
    stall      ///< half of the right answer, then silence
};

/// What the tests ask to go wrong.
struct Fault
{
    /// "METHOD /path", where each * stands for one piece of the path; "*" alone for all that the client calls.
    QString route;
    FaultMode mode = FaultMode::status;
    int status = 500;
    QString code;
    QString message;
    /// Where a redirecting status points to.
    QString location;
    std::optional<QByteArray> body;
    /// How late the answer or the refusal is, or how long the silence lasts; nothing: it lasts until the client leaves.
    std::optional<double> seconds;
    /// How many requests go wrong; nothing: all until the faults are cleared.
    std::optional<int> times;
    qint64 bytes = qint64{65} * 1024 * 1024;
    /// The operation is carried out before its answer goes wrong. Late and cut answers are the right ones, so theirs
    /// always is.
    bool applied = false;

    [[nodiscard]] bool carriesOut() const;
    /// How long nothing at all happens first.
    [[nodiscard]] Seconds lateness() const;
    /// The connection ends before the asker has the whole answer.
    [[nodiscard]] bool cuts() const;
};

/// Reads a fault from what a test posted; throws a 400 `Refusal`.
Fault faultFromJson(const QJsonObject &body);

/// The faults in force, oldest first.
class FaultTable
{
public:
    void add(const Fault &fault);
    void clear();
    /// The first fault that fits the route, counted down; none when all shall go well.
    std::optional<Fault> take(const QString &route);
    [[nodiscard]] QJsonArray described() const;

private:
    QList<Fault> m_faults;
};

/// Answers as the fault says; `right` is the answer that would have been given, or an empty one.
void answerWithFault(QTcpSocket *socket, const Fault &fault, const Reply &right);

} // namespace pingwell::devserver

namespace pingwell {

template<>
inline constexpr std::array<RawValue<devserver::FaultMode>, 8> rawValues<devserver::FaultMode>{{
    {devserver::FaultMode::status, QLatin1StringView("status")},
    {devserver::FaultMode::delay, QLatin1StringView("delay")},
    {devserver::FaultMode::drop, QLatin1StringView("drop")},
    {devserver::FaultMode::malformed, QLatin1StringView("malformed")},
    {devserver::FaultMode::truncated, QLatin1StringView("truncated")},
    {devserver::FaultMode::empty, QLatin1StringView("empty")},
    {devserver::FaultMode::huge, QLatin1StringView("huge")},
    {devserver::FaultMode::stall, QLatin1StringView("stall")},
}};

} // namespace pingwell
