// Draws the screens in every state into pictures, to be looked at: gallery <folder> [font family].

#include "../notify/fake_notification_center.h"
#include "app/demo_data.h"
#include "auth/web_authenticator.h"
#include "screen_fixture.h"
#include "store_fixture.h"
#include "ui/notification_access.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QTextStream>

namespace {

using namespace pingwell;

struct Picture
{
    QString name;
    QString component;
    std::function<SeedData()> seed;
    bool signedIn = true;
    QSize size;
    std::function<void(Screen &)> prepare;
};

SeedData fullDay()
{
    return demoData(dayEnd);
}

SeedData emptyDay()
{
    return makeSeed({});
}

SeedData viewerDay()
{
    return makeSeed({makeChoice(QStringLiteral("a1"), QStringLiteral("Promote build 4127 to production?"), 2),
                     makeAlert(QStringLiteral("a2"), QStringLiteral("Nightly backup finished"), 30)},
                    WorkspaceRole::viewer);
}

SeedData strangeDay()
{
    Alert loud = makeChoice(QStringLiteral("a1"),
                            QStringLiteral("<b>Wipe</b> the cache of every region, including the "
                                           "one that nobody has looked at since last winter?"),
                            4000);
    loud.app = QStringLiteral("An agent with a name that goes on and on and on");
    loud.body = QString(1000, u'x');
    loud.actions = {QStringLiteral("No, leave everything exactly as it is until somebody has looked at it twice"),
                    QStringLiteral("Ask me later"), QStringLiteral("Yes")};
    loud.priority = Priority::critical;
    loud.expiresAt = dayEnd + Seconds(95);
    Alert hebrew = makeTextAsk(QStringLiteral("a2"), QStringLiteral("האם לפרוס את הגרסה החדשה?"), 12);
    hebrew.app = QStringLiteral("בוט");
    hebrew.body = QStringLiteral("כל הבדיקות עברו. 👩‍👩‍👧‍👦 🚀");
    hebrew.placeholder = QStringLiteral("<img src=\"http://example.org/x.png\"> & more");
    hebrew.priority = Priority::silent;
    Alert lines = makeAlert(QStringLiteral("a3"), QStringLiteral("🎉🎉 Released"), 70);
    lines.body = QStringLiteral("one\n\n\n\n\n\ntwo\tthree\u202Eevil");
    lines.read = true;
    Alert answered = makeChoice(QStringLiteral("a4"), QStringLiteral("Rotate the signing key?"), 300);
    answered.answer = QStringLiteral("Rotate it after the release has gone out to everybody, please");
    Alert late = makeChoice(QStringLiteral("a5"), QStringLiteral("Scale to 12 replicas?"), 400);
    late.expiresAt = dayEnd - Seconds(600);
    return makeSeed({loud, hebrew, lines, answered, late});
}

void selectFirst(Screen &screen, const std::function<bool(const Alert &)> &wanted)
{
    for (const Alert &alert : screen.store().activeAlerts()) {
        if (wanted(alert)) {
            screen.store().selectAlert(alert.id);
            return;
        }
    }
}

QList<Picture> pictures()
{
    const QSize window(1080, 680);
    const auto none = [](Screen &) {};
    const auto toast = [](Screen &screen) { screen.store().showToast(QStringLiteral("Test alert sent."), false); };
    const auto errorToast = [](Screen &screen) {
        screen.store().showToast(QStringLiteral("Can't reach the Pingwell server. Check your connection."), true);
    };
    const auto typed = [](Screen &screen) {
        for (const Alert &alert : screen.store().needsReply()) {
            if (alert.acceptsText()) {
                screen.store().setReplyDraft(QStringLiteral("Ship it behind the flag,\nthen watch the error rate."),
                                             alert.id);
                screen.find(QStringLiteral("popover.ask.%1.reply").arg(alert.id))->forceActiveFocus(Qt::TabFocusReason);
            }
        }
    };
    return {
        {QStringLiteral("panel-day"), QStringLiteral("PopoverView"), fullDay, true, {}, none},
        {QStringLiteral("panel-typed"), QStringLiteral("PopoverView"), fullDay, true, {}, typed},
        {QStringLiteral("panel-keyboard"),
         QStringLiteral("PopoverView"),
         fullDay,
         true,
         {},
         [](Screen &screen) {
             for (int steps = 0; steps < 4; ++steps)
                 screen.press(Qt::Key_Tab);
         }},
        {QStringLiteral("panel-menu"),
         QStringLiteral("PopoverView"),
         fullDay,
         true,
         {},
         [](Screen &screen) { screen.click(QStringLiteral("popover.workspace")); }},
        {QStringLiteral("panel-empty"), QStringLiteral("PopoverView"), emptyDay, true, {}, none},
        {QStringLiteral("panel-signed-out"), QStringLiteral("PopoverView"), emptyDay, false, {}, none},
        {QStringLiteral("panel-viewer"), QStringLiteral("PopoverView"), viewerDay, true, {}, none},
        {QStringLiteral("panel-strange"), QStringLiteral("PopoverView"), strangeDay, true, {}, none},
        {QStringLiteral("panel-toast"), QStringLiteral("PopoverView"), viewerDay, true, {340, 480}, toast},
        {QStringLiteral("panel-error"), QStringLiteral("PopoverView"), viewerDay, true, {340, 480}, errorToast},
        {QStringLiteral("main-day"), QStringLiteral("RootView"), fullDay, true, window,
         [](Screen &screen) {
             selectFirst(screen, [](const Alert &alert) { return alert.isWaiting(dayEnd) && !alert.acceptsText(); });
         }},
        {QStringLiteral("main-text"), QStringLiteral("RootView"), fullDay, true, window,
         [](Screen &screen) {
             selectFirst(screen, [](const Alert &alert) { return alert.isWaiting(dayEnd) && alert.acceptsText(); });
         }},
        {QStringLiteral("main-strange"), QStringLiteral("RootView"), strangeDay, true, window,
         [](Screen &screen) {
             screen.store().selectAlert(QStringLiteral("a1"));
             screen.store().showToast(QStringLiteral("Test alert sent."), false);
         }},
        {QStringLiteral("main-timed-out"), QStringLiteral("RootView"), strangeDay, true, window,
         [](Screen &screen) { screen.store().selectAlert(QStringLiteral("a5")); }},
        {QStringLiteral("main-empty"), QStringLiteral("RootView"), emptyDay, true, window, none},
        {QStringLiteral("main-sheet"), QStringLiteral("RootView"), fullDay, true, window,
         [](Screen &screen) { screen.store().setIsCreatingWorkspace(true); }},
    };
}

void save(Screen &screen, const QString &name, const QDir &folder)
{
    screen.settle();
    const QString scheme = screen.appearance().isDark() ? QStringLiteral("dark") : QStringLiteral("light");
    const QString path = folder.filePath(QStringLiteral("%1-%2.png").arg(name, scheme));
    screen.view().setColor(Qt::gray);
    screen.view().grabWindow().save(path);
}

void draw(const Picture &picture, const QDir &folder, bool dark)
{
    Screen screen(picture.component, picture.seed(), picture.signedIn);
    screen.appearance().setDark(dark);
    if (!picture.size.isEmpty())
        screen.view().resize(picture.size);
    screen.settle();
    picture.prepare(screen);
    save(screen, picture.name, folder);
}

/// A program that has a service and a desktop.
struct LivePicture
{
    QString name;
    bool signedIn = false;
    std::function<void(StoreFixture &)> prepare;
    AuthorizationStatus status = AuthorizationStatus::denied;
    QSize size{1080, 680};
};

QList<LivePicture> livePictures()
{
    const auto none = [](StoreFixture &) {};
    const auto signingIn = [](StoreFixture &live) { live.store->signIn(QStringLiteral("github")); };
    const auto refused = [](StoreFixture &live) {
        live.store->endSession(QStringLiteral("Your session has ended. Sign in again."));
    };
    const auto wrongAddress = [](StoreFixture &live) {
        live.store->setServer(ServerKind::selfHosted);
        live.store->setSelfHostedURL(QStringLiteral("ftp://alerts.example.org"));
    };
    const auto emptyAddress = [](StoreFixture &live) { live.store->setServer(ServerKind::selfHosted); };
    return {
        {QStringLiteral("sign-in"), false, none},
        {QStringLiteral("sign-in-waiting"), false, signingIn},
        {QStringLiteral("sign-in-error"), false, refused},
        {QStringLiteral("sign-in-address"), false, wrongAddress},
        {QStringLiteral("sign-in-low"), false, emptyAddress, AuthorizationStatus::denied, {760, 480}},
        {QStringLiteral("prompt-ask"), true, none, AuthorizationStatus::notDetermined},
        {QStringLiteral("prompt-denied"), true, none},
    };
}

void draw(const LivePicture &picture, const QDir &folder, bool dark)
{
    StoreFixture live;
    if (!picture.signedIn)
        live.tokens->clear();
    const auto browser = std::make_shared<WebAuthenticator>([](const QUrl &) { return true; }, live.clock);
    live.backend->authenticate = [browser](QUrl url, QString scheme) { return browser->authenticate(url, scheme); };
    live.transport->always("GET", "/auth/providers", ScriptedAnswer::noAnswer());
    const auto center = std::make_shared<FakeNotificationCenter>();
    center->status = picture.status;
    NotificationAccess access(center);
    DashboardJSON dashboard;
    dashboard.alerts = {askJSON(QStringLiteral("a1"), 60), alertJSON(QStringLiteral("a2"), 300)};
    if (picture.signedIn)
        live.startWith(dashboard);
    else
        live.start();
    {
        Screen screen(QStringLiteral("RootView"), *live.store,
                      {{QStringLiteral("notifications"), QVariant::fromValue(&access)}});
        screen.appearance().setDark(dark);
        screen.view().resize(picture.size);
        picture.prepare(live);
        save(screen, picture.name, folder);
    }
    browser->cancel();
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 2) {
        QTextStream(stderr) << "usage: gallery <folder> [font family]\n";
        return 1;
    }
    if (arguments.size() > 2)
        QGuiApplication::setFont(QFont(arguments.at(2)));
    QDir().mkpath(arguments.at(1));
    for (const Picture &picture : pictures()) {
        draw(picture, QDir(arguments.at(1)), false);
        draw(picture, QDir(arguments.at(1)), true);
    }
    for (const LivePicture &picture : livePictures()) {
        draw(picture, QDir(arguments.at(1)), false);
        draw(picture, QDir(arguments.at(1)), true);
    }
    return 0;
}
