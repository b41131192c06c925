// What one refresh costs from the body's arrival to the store's last announcement, beside parsing the same bytes with
// QJsonDocument, and the longest time in which the main thread answered nothing meanwhile.
#include "one_body.h"
#include "sample_dashboard.h"
#include "timing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include <malloc.h>

namespace {

using namespace pingwell;

struct Measured
{
    double refresh = 0;
    double stall = 0;
    double unchanged = 0;
};

/// Runs one refresh to its end on this thread's event loop. The stall is the longest single turn of that loop.
Measured refreshOnce(AppStore &store, OneBody &transport)
{
    bool done = false;
    const auto connection = QObject::connect(&store, &AppStore::lastSyncedAtChanged, &store, [&done] { done = true; });
    Measured measured;
    QElapsedTimer turn;
    turn.start();
    store.refresh();
    measured.stall = milliseconds(turn);
    while (!done) {
        // A turn that had something to do, not one that waited for it.
        turn.start();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        measured.stall = std::max(measured.stall, milliseconds(turn));
    }
    measured.refresh = milliseconds(transport.started);
    QObject::disconnect(connection);
    return measured;
}

double parseAlone(const QByteArray &body)
{
    QElapsedTimer timer;
    timer.start();
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (!document.isObject())
        std::abort();
    return milliseconds(timer);
}

/// What the process holds.
qint64 residentKiB()
{
    QFile status(QStringLiteral("/proc/self/smaps_rollup"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

void measure(int alertCount)
{
    constexpr int rounds = 9;
    const auto transport = std::make_shared<OneBody>();
    const auto live = storeFedBy(transport);
    AppStore &store = *live;

    malloc_trim(0);
    const qint64 before = residentKiB();
    std::vector<double> refreshes;
    std::vector<double> stalls;
    std::vector<double> same;
    std::vector<double> parses;
    for (int round = 0; round < rounds; ++round) {
        transport->body = sampleDashboard(alertCount, round);
        parses.push_back(parseAlone(transport->body));
        const Measured fresh = refreshOnce(store, *transport);
        refreshes.push_back(fresh.refresh);
        stalls.push_back(fresh.stall);
        // The service sends its bytes anew; they only happen to be equal.
        transport->body = QByteArray(transport->body.constData(), transport->body.size());
        same.push_back(refreshOnce(store, *transport).refresh);
    }
    const double parse = median(parses);
    malloc_trim(0);
    std::printf("%7d alerts  %8.2f MB  parse %8.2f ms  refresh %8.2f ms (%.2f x)  unchanged %6.3f ms (%.3f x)  "
                "longest stall %6.2f ms  memory %.1f x the bytes\n",
                alertCount, static_cast<double>(transport->body.size()) / 1e6, parse, median(refreshes),
                median(refreshes) / parse, median(same), median(same) / parse,
                *std::max_element(stalls.begin(), stalls.end()),
                static_cast<double>(residentKiB() - before) * 1024 / static_cast<double>(transport->body.size()));
}

/// An hour of polls in which texts of a megabyte come and go: what the process holds early on, and at the end.
void measureGrowth()
{
    const auto transport = std::make_shared<OneBody>();
    const auto store = storeFedBy(transport);
    std::array<qint64, 2> held{};
    for (int poll = 0; poll < 240; ++poll) {
        QByteArray alerts = R"("alerts":[)";
        for (int large = 0; large < poll % 6; ++large)
            alerts += R"({"id":"large-)" + QByteArray::number(poll + large) +
                      R"(","workspaceId":"w1","at":1,"title":"L",)" + R"("body":")" +
                      QByteArray(qsizetype{200'000} * (1 + (poll + large) % 6), char('a' + large)) + R"("},)";
        transport->body = sampleDashboard(100, poll).replace(R"("alerts":[)", alerts);
        refreshOnce(*store, *transport);
        if (poll == 40)
            held[0] = residentKiB();
    }
    held[1] = residentKiB();
    std::printf("240 refreshes, texts of a megabyte among them: %.1f MB held after 40, %.1f MB after 240\n",
                static_cast<double>(held[0]) / 1024, static_cast<double>(held[1]) / 1024);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    measureGrowth();
    for (const int alertCount : {100, 1'000, 10'000, 100'000})
        measure(alertCount);
    return 0;
}
