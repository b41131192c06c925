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

/// What the process holds once the allocator has given back what is free.
qint64 residentKiB()
{
    malloc_trim(0);
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
    std::printf("%7d alerts  %8.2f MB  parse %8.2f ms  refresh %8.2f ms (%.2f x)  unchanged %6.3f ms (%.3f x)  "
                "longest stall %6.2f ms  memory %.1f x the bytes\n",
                alertCount, static_cast<double>(transport->body.size()) / 1e6, parse, median(refreshes),
                median(refreshes) / parse, median(same), median(same) / parse,
                *std::max_element(stalls.begin(), stalls.end()),
                static_cast<double>(residentKiB() - before) * 1024 / static_cast<double>(transport->body.size()));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    for (const int alertCount : {100, 1'000, 10'000, 100'000})
        measure(alertCount);
    return 0;
}
