#include "hostile_bodies.h"

#include "sample_dashboard.h"

#include <QDateTime>

#include <limits>

namespace pingwell {

namespace {

/// The largest body that is read.
constexpr qsizetype cap = qsizetype{64} * 1024 * 1024;

using Record = std::function<QByteArray(int)>;

QByteArray dashboardOf(const QByteArray &alerts, const QByteArray &topics = {}, const QByteArray &members = {})
{
    return R"({"success":true,"data":{"workspaces":[{"id":"w1","name":"Acme","kind":"team","role":"owner"}],"members":[)" +
           members + R"(],"topics":[)" + topics + R"(],"alerts":[)" + alerts + "]}}";
}

/// So many records, or as many as fit into a body.
QByteArray records(const Record &record, int count = std::numeric_limits<int>::max())
{
    QByteArray all;
    all.reserve(cap);
    for (int number = 0; number < count; ++number) {
        const QByteArray next = record(number);
        if (all.size() + next.size() + 2000 > cap)
            break;
        all += (number == 0 ? "" : ",") + next;
    }
    return all;
}

/// One ask with those fields beside the ones it needs. The newest is the first.
QByteArray ask(int number, const QByteArray &fields)
{
    return R"({"id":"a)" + QByteArray::number(number) + R"(","workspaceId":"w1","kind":"ask","title":"T","at":)" +
           QByteArray::number(QDateTime::currentMSecsSinceEpoch() - qint64{number} * 1000) + ',' + fields + '}';
}

QByteArray choices(int count, const QByteArray &text = "Choice")
{
    const QByteArray all =
        records([&text](int number) -> QByteArray { return '"' + text + QByteArray::number(number) + '"'; }, count);
    return R"("actions":[)" + all + ']';
}

std::function<QByteArray()> asks(int count, const std::function<QByteArray()> &fields)
{
    return [count, fields] {
        const QByteArray same = fields();
        return dashboardOf(records([&same](int number) { return ask(number, same); }, count));
    };
}

/// Notices in the order of the numbers that `rank` gives them; the ids of every second one begin with `letter`.
std::function<QByteArray()> notices(int count, const std::function<int(int)> &rank, char letter = 'n')
{
    return [count, rank, letter] {
        return dashboardOf(records(
            [&rank, letter](int number) -> QByteArray {
                return R"({"id":")" + QByteArray(1, number % 2 == 0 ? 'n' : letter) + QByteArray::number(number) +
                       R"(","workspaceId":"w1","title":"T","at":)" +
                       QByteArray::number(1'700'000'000'000 + qint64{rank(number)}) + '}';
            },
            count));
    };
}

std::function<QByteArray()> named(const char *list, const QByteArray &padding)
{
    return [name = QByteArray(list), padding] {
        const QByteArray all = records([&](int number) -> QByteArray {
            const QByteArray id = '"' + name + QByteArray::number(number) + padding + '"';
            return R"({"id":)" + id + R"(,"workspaceId":"w1","email":"e@x","role":"member","status":"active","name":)" +
                   id + '}';
        });
        return name == "topics" ? dashboardOf({}, all) : dashboardOf({}, {}, all);
    };
}

} // namespace

QList<HostileBody> hostileBodies()
{
    const auto ordinary = [] { return sampleDashboard(100, 0); };
    const auto text = [](const QByteArray &bytes) {
        return asks(
            1, [bytes]() -> QByteArray { return R"("body":")" + bytes.repeated((cap - 4000) / bytes.size()) + '"'; });
    };
    return {
        {"an ordinary dashboard", {ordinary}},
        {"5,000 choices", {ordinary, asks(1, [] { return choices(5000); })}},
        {"as many choices as fit", {ordinary, asks(1, [] { return choices(3'000'000); })}},
        {"30 asks with 100 long choices", {ordinary, asks(30, [] { return choices(100, QByteArray(10'000, 'x')); })}},
        {"200 asks with long texts",
         {ordinary,
          asks(200, []() -> QByteArray { return R"("body":")" + QByteArray("word ").repeated(60'000) + '"'; })}},
        {"one endless text", {ordinary, text("word ")}},
        {"one endless word", {ordinary, text("x")}},
        {"one endless nothing", {ordinary, text("\xE2\x80\x8B")}},
        {"one endless text with a broken byte", {ordinary, text(QByteArray("word ").repeated(1'000'000) + '\xFF')}},
        {"as many alerts as fit", {ordinary, [] { return sampleDashboard(170'000, 0); }}},
        {"as many short alerts as fit", {ordinary, notices(2'000'000, [](int number) { return number; })}},
        {"10,000 alerts in another order",
         {notices(10'000, [](int number) { return number; }), notices(10'000, [](int number) { return -number; })}},
        {"10,000 alerts, each second one new",
         {notices(10'000, [](int number) { return number; }), notices(
                                                                  10'000, [](int number) { return number; }, 'm')}},
        {"many topics", {ordinary, named("topics", QByteArray(500, 'x'))}},
        {"many members", {ordinary, named("members", {})}},
        {"nothing but numbers",
         {ordinary, [] { return dashboardOf(R"({"future":[)" + QByteArray("0,").repeated(cap / 2 - 2000) + "0]}"); }}},
        {"gone again", {text("word "), [] { return dashboardOf({}); }}},
    };
}

} // namespace pingwell
