// What hostile answers cost: how long one holds the main thread while the main window and the panel show it, beside an
// ordinary dashboard, and how much memory is taken at most beside the size of its body.
#include "hostile_bodies.h"
#include "one_body.h"
#include "ui/engine/engine.h"
#include "window.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include <malloc.h>

namespace {

using namespace pingwell;

/// What the process holds, or held at most since `forgetPeak`, in bytes.
qint64 memory(const QByteArray &line)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("the kernel does not tell the memory");
    for (const QByteArray &each : status.readAll().split('\n')) {
        if (each.startsWith(line))
            return each.mid(line.size()).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

void forgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1)
        qFatal("the kernel does not forget the peak");
}

/// What this thread has computed so far, in milliseconds: what others do on the same machine does not count.
double computed()
{
    timespec spent{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return double(spent.tv_sec) * 1e3 + double(spent.tv_nsec) / 1e6;
}

/// The longest turn of the event loop until `done`.
double longestTurnUntil(const std::function<bool()> &done)
{
    double longest = 0;
    while (!done()) {
        const double before = computed();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        longest = std::max(longest, computed() - before);
    }
    return longest;
}

/// The longest turn while the store takes the dashboard in and both windows show it.
double refreshWith(AppStore &store, OneBody &transport, const QByteArray &body)
{
    transport.body = body;
    bool done = false;
    const auto take = [&done] { done = true; };
    const auto applied = QObject::connect(&store, &AppStore::lastSyncedAtChanged, &store, take);
    const auto refused = QObject::connect(&store, &AppStore::connectionProblemChanged, &store, take);
    const double before = computed();
    store.refresh();
    double longest = computed() - before;
    longest = std::max(longest, longestTurnUntil([&done] { return done; }));
    QElapsedTimer after;
    after.start();
    longest = std::max(longest, longestTurnUntil([&after] { return after.hasExpired(400); }));
    QObject::disconnect(applied);
    QObject::disconnect(refused);
    return longest;
}

/// In a process of its own, for its memory's sake.
int measureOne(const HostileBody &hostile)
{
    PlainAppearance appearance;
    UiEngine engine(&appearance);
    const auto transport = std::make_shared<OneBody>();
    const auto store = storeFedBy(transport);
    for (const auto &earlier : hostile.dashboards.first(hostile.dashboards.size() - 1))
        refreshWith(*store, *transport, earlier());
    QQuickView main(&engine, nullptr);
    QQuickView panel(&engine, nullptr);
    showComponent(main, *store, QStringLiteral("RootView"));
    showComponent(panel, *store, QStringLiteral("PopoverView"));
    main.resize(1080, 680);
    panel.resize(340, 640);
    for (QQuickView *const view : {&main, &panel}) {
        view->show();
        drawFrame(*view);
    }
    store->selectAlert(QStringLiteral("a0"));
    malloc_trim(0);
    const qint64 before = memory("VmRSS:");
    QByteArray body = hostile.dashboards.last()();
    const qsizetype size = body.size();
    // As the network hands it over: with the room that lets the parser do without a copy.
    body.reserve(size + 64);
    malloc_trim(0);
    forgetPeak();
    double longest = refreshWith(*store, *transport, body);
    body.clear();
    const double opening = computed();
    store->selectAlert(store->alerts().isEmpty() ? QString() : store->alerts().first().id);
    QCoreApplication::sendPostedEvents();
    drawFrame(main);
    longest = std::max(longest, computed() - opening);
    std::printf("%f %lld %lld\n", longest, static_cast<long long>(size),
                static_cast<long long>(memory("VmHWM:") - before));
    return 0;
}

QList<double> measuredInAProcess(qsizetype number)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {QString::number(number)});
    if (!process.waitForFinished(300'000) || process.exitCode() != 0)
        return {0, 0, 0};
    QList<double> values;
    for (const QByteArray &value : process.readAllStandardOutput().trimmed().split(' '))
        values << value.toDouble();
    return values;
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    const QList<HostileBody> bodies = hostileBodies();
    if (argc == 2)
        return measureOne(bodies.at(std::atoi(argv[1])));
    double floor = 0;
    for (qsizetype number = 0; number < bodies.size(); ++number) {
        const QList<double> measured = measuredInAProcess(number);
        if (number == 0)
            floor = measured.at(0);
        std::printf("%-40s %7.2f MB  main thread held %7.1f ms (%5.1f x an ordinary one)  memory %6.1f MB (%4.1f x)\n",
                    bodies.at(number).name, measured.at(1) / 1e6, measured.at(0), measured.at(0) / floor,
                    measured.at(2) / 1e6, measured.at(2) / measured.at(1));
    }
    return 0;
}
