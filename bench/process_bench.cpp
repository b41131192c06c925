// What the program costs as a process, each figure beside the same figure of the floor programs, taken in turn in the
// same run. Runs on a private session bus and a display of its own: `./dev bench` sets both up.
#include "measured_process.h"
#include "status_host.h"

#include <QCoreApplication>
#include <QDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using namespace pingwell;

struct Programs
{
    QString pingwell;
    QString floors;
    /// What the polling programs poll.
    QString service;

    [[nodiscard]] QString floor(const QString &name) const { return floors + QStringLiteral("/floor_") + name; }
    [[nodiscard]] QStringList live() const { return {QStringLiteral("-apiBaseURL"), service}; }
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianOf(int runs, const std::function<double()> &measure)
{
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(runs));
    for (int run = 0; run < runs; ++run)
        values.push_back(measure());
    return median(values);
}

void report(const char *what, const char *unit, double ours, double floor, const char *floorName, double aim)
{
    std::printf("%-44s %9.1f %s   %-10s %9.1f %s   %5.2f x", what, ours, unit, floorName, floor, unit, ours / floor);
    if (aim > 0)
        std::printf("   aim <= %.2f x%s", aim, ours / floor <= aim ? "" : "  MISSED");
    std::printf("\n");
    std::fflush(stdout);
}

double startToItem(StatusHost &host, const QString &program, const QStringList &arguments)
{
    const MeasuredProcess process(program, arguments);
    return host.waitForItem() ? process.elapsed() : -1;
}

double startToFrame(const QString &program, const QStringList &arguments)
{
    MeasuredProcess process(program, arguments);
    return process.waitForFrame() < 0 ? -1 : process.elapsed();
}

double clickToFrame(StatusHost &host, const QString &program, const QStringList &arguments)
{
    MeasuredProcess process(program, arguments);
    host.waitForItem();
    QThread::sleep(1);
    host.click();
    return process.waitForFrame();
}

/// Lets a program come to rest.
void settle()
{
    QThread::sleep(6);
}

/// Longer than the program keeps what a start or a closed window no longer needs.
void settleForGood()
{
    QThread::sleep(40);
}

/// What a floor holds once it is at rest. Alone: memory that two programs share counts half for each.
Memory floorMemory(const QString &program, const QStringList &arguments)
{
    const MeasuredProcess process(program, arguments);
    settle();
    return process.memory();
}

void measureStarts(StatusHost &host, const Programs &programs)
{
    constexpr int runs = 15;
    const double tray = medianOf(runs, [&] { return startToItem(host, programs.floor(QStringLiteral("tray")), {}); });
    const double item = medianOf(runs, [&] { return startToItem(host, programs.pingwell, programs.live()); });
    report("start to status item", "ms", item, tray, "F-tray", 1.5);
    const double quick = medianOf(runs, [&] { return startToFrame(programs.floor(QStringLiteral("quick")), {}); });
    const double window = medianOf(runs, [&] { return startToFrame(programs.pingwell, {QStringLiteral("-uitest")}); });
    report("start to first frame of the window", "ms", window, quick, "F-quick", 2);
    const double panel =
        medianOf(runs, [&] { return clickToFrame(host, programs.pingwell, {QStringLiteral("-demo")}); });
    report("click to first frame of the panel", "ms", panel, quick, "F-quick", 1.5);
}

void reportMemory(const char *what, const Memory &ours, const Memory &floor, const char *floorName, double aim,
                  double dirtyAim)
{
    const auto mebibytes = [](qint64 kibibytes) { return static_cast<double>(kibibytes) / 1024; };
    report(what, "MB", mebibytes(ours.proportional), mebibytes(floor.proportional), floorName, aim);
    report("  of which private and dirty", "MB", mebibytes(ours.privateDirty), mebibytes(floor.privateDirty), floorName,
           dirtyAim);
}

/// One minute of nothing happening, of both programs at the same time.
void measureIdle(const MeasuredProcess &ours, const MeasuredProcess &floor)
{
    const qint64 ourWakeUps = ours.wakeUps();
    const qint64 floorWakeUps = floor.wakeUps();
    const double ourTime = ours.processorTime();
    const double floorTime = floor.processorTime();
    QThread::sleep(60);
    report("wake-ups in an idle minute", "  ", static_cast<double>(ours.wakeUps() - ourWakeUps),
           static_cast<double>(floor.wakeUps() - floorWakeUps), "F-poll", 1.25);
    std::printf("%-44s %9.1f ms   F-poll     %9.1f ms\n", "processor time in an idle minute",
                ours.processorTime() - ourTime, floor.processorTime() - floorTime);
}

void measureResting(StatusHost &host, const Programs &programs)
{
    const Memory tray = floorMemory(programs.floor(QStringLiteral("tray")), {});
    const Memory poll = floorMemory(programs.floor(QStringLiteral("poll")), {programs.service});
    const Memory quick = floorMemory(programs.floor(QStringLiteral("quick")), {});
    reportMemory("(F-tray beside F-poll)", tray, poll, "F-poll", 0, 0);

    MeasuredProcess ours(programs.pingwell, programs.live());
    host.waitForItem();
    settleForGood();
    reportMemory("resting in the status area", ours.memory(), poll, "F-poll", 1.2, 1.75);
    host.click();
    ours.waitForFrame();
    settle();
    reportMemory("with the panel open", ours.memory(), quick, "F-quick", 0, 0);
    host.click();
    settleForGood();
    reportMemory("after the panel was closed", ours.memory(), poll, "F-poll", 1.2, 0);
    const MeasuredProcess floor(programs.floor(QStringLiteral("poll")), {programs.service});
    settle();
    measureIdle(ours, floor);
}

void measureWindow(const Programs &programs)
{
    const Memory controls = floorMemory(programs.floor(QStringLiteral("controls")), {});
    reportMemory("with the main window open, demo", floorMemory(programs.pingwell, {QStringLiteral("-uitest")}),
                 controls, "F-controls", 1.5, 0);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) {
        std::fprintf(stderr,
                     "usage: process_bench PINGWELL FLOORS-FOLDER SERVICE-ADDRESS [starts] [resting] [window]\n");
        return 2;
    }
    const auto isWanted = [&arguments](const char *what) {
        return arguments.size() == 4 || arguments.sliced(4).contains(QLatin1StringView(what));
    };
    const Programs programs{.pingwell = arguments.at(1), .floors = arguments.at(2), .service = arguments.at(3)};
    StatusHost host;
    if (!host.serve()) {
        std::fprintf(stderr, "process_bench: needs a session bus without a status area\n");
        return 1;
    }
    if (isWanted("starts"))
        measureStarts(host, programs);
    if (isWanted("resting"))
        measureResting(host, programs);
    if (isWanted("window"))
        measureWindow(programs);
    return 0;
}
