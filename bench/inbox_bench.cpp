// The main window with many alerts: its first frame beside an empty window's, every step a person takes in the list,
// the longest frame while scrolling, and how long a refresh holds the main thread with the inbox open.
#include "one_body.h"
#include "sample_dashboard.h"
#include "timing.h"
#include "ui/engine/engine.h"
#include "window.h"

#include <QGuiApplication>
#include <QProcess>
#include <QQuickItem>
#include <QQuickView>

#include <cstdio>
#include <cstdlib>
#include <functional>

namespace {

using namespace pingwell;

std::unique_ptr<AppStore> loadedStore(const std::shared_ptr<OneBody> &transport, int alertCount)
{
    auto store = storeFedBy(transport);
    transport->body = sampleDashboard(alertCount, 0);
    store->refresh();
    longestTurn([&store] { return store->hasLoaded(); });
    return store;
}

/// In a new process: from the application object to the first frame of the main window, the alerts being there already,
/// or of an empty window.
double firstFrame(int argc, char **argv, int alertCount)
{
    QElapsedTimer timer;
    timer.start();
    const QGuiApplication application(argc, argv);
    PlainAppearance appearance;
    double elapsed = milliseconds(timer);
    std::unique_ptr<AppStore> store;
    if (alertCount > 0)
        store = loadedStore(std::make_shared<OneBody>(), alertCount);
    timer.restart();
    UiEngine engine(&appearance);
    QQuickView view(&engine, nullptr);
    if (store)
        showComponent(view, *store, QStringLiteral("RootView"));
    view.resize(1080, 680);
    view.show();
    drawFrame(view);
    elapsed += milliseconds(timer);
    return elapsed;
}

/// The middle of several such processes' times.
double firstFrameOfProcesses(int alertCount)
{
    std::vector<double> times;
    for (int round = 0; round < 7; ++round) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {QString::number(alertCount)});
        if (!process.waitForFinished())
            qFatal("a window never came up");
        times.push_back(process.readAllStandardOutput().toDouble());
    }
    return median(times);
}

/// The time from an action to the frame that shows it.
double timeOf(QQuickView &view, const std::function<void()> &act)
{
    drawFrame(view);
    QElapsedTimer timer;
    timer.start();
    act();
    QCoreApplication::sendPostedEvents();
    drawFrame(view);
    return milliseconds(timer);
}

QQuickItem *find(QQuickItem *item, const QString &identifier)
{
    if (item->objectName() == identifier)
        return item;
    for (QQuickItem *const child : item->childItems()) {
        if (QQuickItem *const found = find(child, identifier))
            return found;
    }
    return nullptr;
}

void scroll(QQuickView &view, const QString &identifier, int count, const char *what)
{
    auto *const list = find(view.rootObject(), identifier);
    if (!list)
        qFatal("there is no list to scroll");
    std::vector<double> frames;
    for (int step = 0; step < 600; ++step) {
        QElapsedTimer timer;
        timer.start();
        // Now a wheel's step, now a leap along the scroll bar.
        const double distance = step % 50 == 49 ? 20'000 : 90;
        const double wanted = list->property("contentY").toDouble() + distance;
        const double end = list->property("contentHeight").toDouble() - list->height();
        list->setProperty("contentY", std::clamp(wanted, 0.0, std::max(0.0, end)));
        drawFrame(view);
        frames.push_back(milliseconds(timer));
    }
    std::printf("%7d %s  scrolling: median frame %.1f ms, longest %.1f ms\n", count, what, median(frames),
                *std::max_element(frames.begin(), frames.end()));
}

void refreshWith(AppStore &store, OneBody &transport, const QByteArray &body, int alertCount, const char *what)
{
    transport.body = body;
    bool done = false;
    const auto connection = QObject::connect(&store, &AppStore::lastSyncedAtChanged, &store, [&done] { done = true; });
    store.refresh();
    double longest = longestTurn([&done] { return done; });
    QElapsedTimer after;
    after.start();
    longest = std::max(longest, longestTurn([&after] { return after.hasExpired(200); }));
    std::printf("%7d alerts  refresh, %s: main thread held at most %.1f ms\n", alertCount, what, longest);
    QObject::disconnect(connection);
}

void measure(UiEngine &engine, int alertCount)
{
    const auto transport = std::make_shared<OneBody>();
    const auto store = loadedStore(transport, alertCount);
    QQuickView view(&engine, nullptr);
    showComponent(view, *store, QStringLiteral("RootView"));
    view.resize(1080, 680);
    view.show();
    drawFrame(view);
    refreshWith(*store, *transport, sampleDashboard(alertCount, 1), alertCount, "all changed");
    QByteArray oneMore = sampleDashboard(alertCount, 1);
    oneMore.replace("\"alerts\":[", "\"alerts\":[{\"id\":\"new\",\"workspaceId\":\"w1\",\"title\":\"New\",\"at\":1},");
    refreshWith(*store, *transport, oneMore, alertCount, "one more");
    scroll(view, QStringLiteral("inbox.list"), alertCount, "alerts");
    const QList<Alert> shown = store->filteredAlerts();
    const auto tell = [&](const char *what, const std::function<void()> &act) {
        std::printf("%7d alerts  %s: %.1f ms to its frame\n", alertCount, what, timeOf(view, act));
    };
    tell("select", [&] { store->selectAlert(shown.at(shown.size() / 2).id); });
    tell("asks only", [&] { store->setFilter(InboxFilter::asks()); });
    tell("all again", [&] { store->setFilter(InboxFilter::all()); });
    tell("mark one unread", [&] { store->setRead(shown.first().id, !shown.first().read); });
    tell("delete one", [&] { store->deleteAlert(shown.at(3).id); });
    tell("mark all read", [&] { store->markAllRead(); });
}

/// The other long lists.
void measureSections(UiEngine &engine)
{
    const auto transport = std::make_shared<OneBody>();
    const auto store = storeFedBy(transport);
    transport->body = largeTeamDashboard(500, 200);
    store->refresh();
    longestTurn([&store] { return store->hasLoaded(); });
    QQuickView view(&engine, nullptr);
    showComponent(view, *store, QStringLiteral("RootView"));
    view.resize(1080, 680);
    view.show();
    std::printf("    500 members  opened: %.1f ms to its frame\n",
                timeOf(view, [&] { store->setSection(SidebarSection::team); }));
    scroll(view, QStringLiteral("team.scroll"), 500, "members");
    std::printf("    200 topics  opened: %.1f ms to its frame\n",
                timeOf(view, [&] { store->setSection(SidebarSection::topics); }));
    scroll(view, QStringLiteral("topics.list"), 200, "topics");
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND"))
        qputenv("QT_QUICK_BACKEND", "software");
    if (argc == 2) {
        std::printf("%f\n", firstFrame(argc, argv, std::atoi(argv[1])));
        return 0;
    }
    const QGuiApplication application(argc, argv);
    const double empty = firstFrameOfProcesses(0);
    for (const int alertCount : {10, 10'000}) {
        const double ours = firstFrameOfProcesses(alertCount);
        std::printf("%7d alerts  first frame of a new process %.1f ms, an empty window's %.1f ms (%.2f x)\n",
                    alertCount, ours, empty, ours / empty);
    }
    PlainAppearance appearance;
    UiEngine engine(&appearance);
    for (const int alertCount : {10, 1'000, 10'000})
        measure(engine, alertCount);
    measureSections(engine);
    return 0;
}
