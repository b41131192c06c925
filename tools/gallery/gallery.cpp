// Draws the screens in every state into pictures, to be looked at: gallery <folder> [font family].

#include "auth/web_authenticator.h"
#include "demo/demo_data.h"
#include "screen_fixture.h"
#include "store_fixture.h"
#include "support/fake_notification_center.h"
#include "ui/settings/notification_access.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QTextStream>

namespace {

using namespace pingwell;
using namespace Qt::StringLiterals;

const QSize windowSize(1080, 680);

SeedData viewerDay()
{
    return makeSeed({makeChoice(u"a1"_s, u"Promote build 4127 to production?"_s, 2),
                     makeAlert(u"a2"_s, u"Nightly backup finished"_s, 30)},
                    WorkspaceRole::viewer);
}

SeedData strangeDay()
{
    Alert loud = makeChoice(u"a1"_s, u"<b>Wipe</b> the cache of every region that nobody has looked at?"_s, 4000);
    loud.app = u"An agent with a name that goes on and on and on"_s;
    loud.body = QString(1000, u'x');
    loud.actions = {u"No, leave everything exactly as it is until somebody has looked at it twice"_s, u"Yes"_s};
    loud.priority = Priority::critical;
    loud.expiresAt = dayEnd + Seconds(95);
    Alert hebrew = makeTextAsk(u"a2"_s, u"האם לפרוס את הגרסה החדשה?"_s, 12);
    hebrew.app = u"בוט"_s;
    hebrew.body = u"one\n\n\n\n\n\ntwo\tthree\u202Eevil 👩‍👩‍👧‍👦 🚀"_s;
    hebrew.placeholder = u"<img src=\"http://example.org/x.png\"> & more"_s;
    Alert late = makeChoice(u"a5"_s, u"Scale to 12 replicas?"_s, 400);
    late.expiresAt = dayEnd - Seconds(600);
    return makeSeed({loud, hebrew, late});
}

/// Choices that are hard to tell apart, and what became of asks in every way.
SeedData decisions()
{
    const QString words =
        u"Delete every bucket that nobody has read from for ninety days, with all its versions, in "_s;
    Alert ask = makeChoice(u"a1"_s, words + u"production or in staging?"_s, 4);
    ask.actions = {u"No"_s, words + u"staging"_s, words + u"production"_s, u"\u3164"_s, u"Later"_s, u"Later"_s};
    Alert reply = makeTextAsk(u"a2"_s, u"What should the release notes say?"_s, 30);
    reply.answer = u"First, thank everybody.\n\nThen say what changed, and why it took so long. "_s.repeated(8);
    SeedData seed = makeSeed({ask, reply});
    const QList<std::pair<QString, QString>> outcomes{
        {u"expired"_s, u"Scale down?"_s}, {u"escalated"_s, u"Rotate the keys?"_s}, {u"default"_s, u"Restart it?"_s}};
    for (const auto &[outcome, title] : outcomes) {
        Alert late = makeChoice(outcome, title, 60);
        late.expiresAt = late.at + Seconds(900);
        late.outcome = outcome;
        late.actions = {u"Leave it exactly as it is until tomorrow"_s, u"Yes"_s};
        seed.alerts << late;
    }
    return seed;
}

class Gallery
{
public:
    Gallery(const QString &folder, bool dark)
        : m_folder(folder)
        , m_dark(dark)
    {
        m_folder.mkpath(u"."_s);
    }

    using Preparation = std::function<void(Screen &)>;

    void draw(const QString &name, const QString &component, const SeedData &seed, const Preparation &prepare = {},
              const QSize &size = {}, bool signedIn = true, const QVariantMap &properties = {}) const
    {
        Screen screen(component, seed, signedIn, properties);
        save(screen, name, size, prepare);
    }

    /// With a service and a desktop.
    void drawLive(const QString &name, const std::function<void(AppStore &)> &prepare,
                  AuthorizationStatus status = AuthorizationStatus::denied, bool signedIn = false,
                  const QString &component = u"RootView"_s, const std::optional<QUrl> &server = {}) const
    {
        StoreFixture live;
        live.backend->baseURLOverride = server;
        if (!signedIn)
            live.tokens->clear();
        const auto browser = std::make_shared<WebAuthenticator>([](const QUrl &) { return true; }, live.clock);
        live.backend->authenticate = [browser](QUrl url, QString scheme) { return browser->authenticate(url, scheme); };
        live.transport->always("GET", "/auth/providers", ScriptedAnswer::noAnswer());
        const auto center = std::make_shared<FakeNotificationCenter>();
        center->status = status;
        NotificationAccess access(center);
        live.start();
        if (signedIn)
            live.refreshWith(DashboardJSON());
        {
            const bool isPanel = component == u"PopoverView"_s;
            const QVariantMap properties{{u"notifications"_s, QVariant::fromValue(&access)}};
            Screen screen(component, *live.store, isPanel ? QVariantMap() : properties);
            save(screen, name, isPanel ? QSize() : windowSize, [&prepare](Screen &shown) { prepare(shown.store()); });
        }
        browser->cancel();
    }

    /// The team screen, in a small window, of a person whom others have invited.
    void drawInvited(const QString &name) const
    {
        const QByteArray invites = R"([{"token":"t1","workspace":"Operations","role":"admin","invitedAt":1699990000000},
            {"token":"t2","workspace":"A workspace whose name nobody can say in one breath, by far","role":"viewer"}])";
        DashboardJSON dashboard;
        dashboard.members = {QJsonObject{{u"id"_s, u"m1"_s},
                                         {u"workspaceId"_s, u"w1"_s},
                                         {u"name"_s, u"Robin Vale-Whittingham of the Northern Reaches"_s},
                                         {u"email"_s, u"robin@a-very-long-name-of-a-company.example.org"_s},
                                         {u"role"_s, u"member"_s},
                                         {u"status"_s, u"invited"_s},
                                         {u"invitedAt"_s, 1'699'000'000'000.0}}};
        StoreFixture live;
        live.startLoopWith(dashboard, invites);
        Screen screen(u"RootView"_s, *live.store);
        save(screen, name, {880, 560}, [](Screen &shown) { shown.store().setSection(SidebarSection::team); });
    }

private:
    void save(Screen &screen, const QString &name, const QSize &size, const Preparation &prepare) const
    {
        screen.appearance().setDark(m_dark);
        if (!size.isEmpty())
            screen.view().resize(size);
        screen.settle();
        if (prepare)
            prepare(screen);
        screen.settle();
        screen.view().setColor(Qt::gray);
        screen.view().grabWindow().save(m_folder.filePath(name + (m_dark ? u"-dark.png"_s : u"-light.png"_s)));
    }

    QDir m_folder;
    bool m_dark;
};

void drawPanels(const Gallery &gallery)
{
    const QString panel = u"PopoverView"_s;
    const SeedData day = demoData(dayEnd);
    gallery.draw(u"panel-day"_s, panel, day);
    gallery.draw(u"panel-typed"_s, panel, day, [](Screen &screen) {
        screen.click(u"popover.ask.b5.reply"_s);
        screen.type(u"Ship it behind the flag, then watch the error rate."_s);
    });
    gallery.draw(u"panel-menu"_s, panel, day, [](Screen &screen) { screen.click(u"popover.workspace"_s); });
    gallery.draw(u"panel-empty"_s, panel, makeSeed({}));
    gallery.draw(u"panel-signed-out"_s, panel, makeSeed({}), {}, {}, false);
    gallery.draw(u"panel-viewer"_s, panel, viewerDay());
    gallery.draw(u"panel-strange"_s, panel, strangeDay());
    gallery.draw(u"panel-decisions"_s, panel, decisions());
    gallery.draw(u"panel-no-workspace"_s, panel, SeedData());
    const auto error = [](Screen &screen) { screen.store().showToast(u"Can't reach the server."_s, true); };
    gallery.draw(u"panel-error"_s, panel, viewerDay(), error, {340, 480});
}

void drawWindows(const Gallery &gallery)
{
    const QString root = u"RootView"_s;
    const SeedData day = demoData(dayEnd);
    const auto selected = [](const QString &id) { return [id](Screen &screen) { screen.store().selectAlert(id); }; };
    gallery.draw(u"main-day"_s, root, day, selected(u"a1"_s), windowSize);
    gallery.draw(u"main-text"_s, root, day, selected(u"b5"_s), windowSize);
    gallery.draw(u"main-strange"_s, root, strangeDay(), selected(u"a1"_s), windowSize);
    gallery.draw(u"main-timed-out"_s, root, strangeDay(), selected(u"a5"_s), windowSize);
    gallery.draw(u"main-empty"_s, root, makeSeed({}), {}, windowSize);
    gallery.draw(u"main-decisions"_s, root, decisions(), selected(u"a1"_s), windowSize);
    gallery.draw(u"main-answered"_s, root, decisions(), selected(u"a2"_s), windowSize);
    gallery.draw(u"main-no-workspace"_s, root, SeedData(), {}, windowSize);
    const auto sheet = [](Screen &screen) { screen.store().setIsCreatingWorkspace(true); };
    gallery.draw(u"main-sheet"_s, root, day, sheet, windowSize);

    const auto none = [](AppStore &) {};
    gallery.drawLive(u"sign-in"_s, none);
    gallery.drawLive(u"sign-in-waiting"_s, [](AppStore &store) { store.signIn(u"github"_s); });
    gallery.drawLive(u"sign-in-error"_s, [](AppStore &store) { store.endSession(u"Your session has ended."_s); });
    gallery.drawLive(u"sign-in-address"_s, [](AppStore &store) {
        store.setServer(ServerKind::selfHosted);
        store.setSelfHostedURL(u"ftp://alerts.example.org"_s);
    });
    gallery.drawLive(u"sign-in-open"_s, [](AppStore &store) {
        store.setServer(ServerKind::selfHosted);
        store.setSelfHostedURL(u"http://alerts.example.org"_s);
    });
    const QUrl own(u"https://pingwell.alerts.operations.example.org:8443"_s);
    gallery.drawLive(u"sign-in-fixed"_s, none, AuthorizationStatus::denied, false, root, own);
    gallery.drawLive(
        u"own-server"_s, [](AppStore &store) { store.setSection(SidebarSection::settings); },
        AuthorizationStatus::authorized, true, root, own);
    gallery.drawLive(u"panel-own-server"_s, none, AuthorizationStatus::authorized, true, u"PopoverView"_s, own);
    gallery.drawLive(u"prompt-ask"_s, none, AuthorizationStatus::notDetermined, true);
    gallery.drawLive(u"prompt-denied"_s, none, AuthorizationStatus::denied, true);
}

SeedData teamOf(int count, WorkspaceRole role)
{
    SeedData seed = makeSeed({}, role);
    QList<Member> &members = seed.members[u"w1"_s];
    for (int index = 0; index < count; ++index) {
        Member member;
        member.id = u"m%1"_s.arg(index);
        member.isYou = index == 0;
        member.role = index == 0 ? role : index == 1 ? WorkspaceRole::owner : WorkspaceRole::member;
        member.email = u"somebody.%1@a-very-long-name-of-a-company.example.org"_s.arg(index);
        if (index % 4 == 3) {
            member.status = MemberStatus::invited;
            member.invitedAt = dayEnd - Seconds(3600.0 * index);
        } else {
            member.name = index % 5 == 4 ? u"Maximiliane-Friederike von und zu Hohenstein-Waldenburg-Schillingsfürst"_s
                                         : u"Person Number %1"_s.arg(index);
        }
        members << member;
    }
    return seed;
}

void drawTeam(const Gallery &gallery)
{
    const auto draw = [&gallery](const QString &name, const SeedData &seed, const Gallery::Preparation &prepare) {
        const auto open = [prepare](Screen &screen) {
            screen.store().setSection(SidebarSection::team);
            screen.settle();
            prepare(screen);
        };
        gallery.draw(u"team-"_s + name, u"RootView"_s, seed, open, windowSize);
    };
    const auto nothing = [](Screen &) {};
    const SeedData day = demoData(dayEnd);
    const SeedData many = teamOf(60, WorkspaceRole::admin);
    gallery.drawInvited(u"team-invited"_s);
    draw(u"day"_s, day, nothing);
    draw(u"viewer"_s, teamOf(5, WorkspaceRole::viewer), nothing);
    draw(u"member"_s, teamOf(5, WorkspaceRole::member), nothing);
    draw(u"long"_s, many, nothing);
    draw(u"personal"_s, day, [](Screen &screen) {
        for (const Workspace &workspace : screen.store().workspaces()) {
            if (workspace.kind == WorkspaceKind::personal)
                screen.store().selectWorkspace(workspace.id);
        }
    });
    draw(u"menu"_s, many, [](Screen &screen) {
        screen.click({u"team.member.m2.menu"_s, u"team.member.m2.changeRole"_s});
    });
    draw(u"invitee-menu"_s, many, [](Screen &screen) { screen.click(u"team.member.m3.menu"_s); });
    draw(u"menu-at-pointer"_s, many, [](Screen &screen) { screen.rightClick(u"team.member.m2"_s, {200, 30}); });
    draw(u"focus"_s, many, [](Screen &screen) {
        screen.find(u"team.member.m1"_s)->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_End);
    });
    draw(u"invite-error"_s, many, [](Screen &screen) {
        screen.click(u"team.invite"_s);
        screen.type(u"ann@x"_s);
        screen.press(Qt::Key_Return);
    });
    draw(u"leave"_s, teamOf(5, WorkspaceRole::owner), [](Screen &screen) { screen.click(u"team.leave"_s); });
    draw(u"rename"_s, many, [](Screen &screen) { screen.click({u"team.menu"_s, u"team.rename"_s}); });
}

void drawInbox(const Gallery &gallery)
{
    const QString root = u"RootView"_s;
    const SeedData day = demoData(dayEnd);
    const auto opened = [](Screen &screen) { screen.click(u"alert.row.a1"_s); };
    gallery.draw(
        u"inbox-menu"_s, root, day,
        [](Screen &screen) {
            screen.press({Qt::Key_Down, Qt::Key_Down, Qt::SHIFT | Qt::Key_F10});
        },
        windowSize);
    gallery.draw(
        u"inbox-keyboard"_s, root, day,
        [](Screen &screen) {
            screen.click(u"filter.asks"_s);
            screen.press(Qt::Key_Right);
        },
        windowSize);
    gallery.draw(
        u"inbox-nothing-passes"_s, root, makeSeed({makeAlert(u"n1"_s, u"Nightly backup finished"_s, 30)}),
        [](Screen &screen) { screen.click(u"filter.asks"_s); }, windowSize);
    gallery.draw(u"inbox-viewer"_s, root, viewerDay(), opened, windowSize);
    gallery.draw(u"inbox-smallest"_s, root, strangeDay(), opened, {880, 560});
    gallery.draw(
        u"inbox-shortcuts"_s, root, day, [](Screen &screen) { screen.press(Qt::Key_F1); }, windowSize);
    gallery.drawLive(
        u"inbox-offline"_s, [](AppStore &store) { store.refresh(); }, AuthorizationStatus::authorized, true);
}

void drawTopics(const Gallery &gallery)
{
    const auto draw = [&gallery](const QString &name, const SeedData &seed, const Gallery::Preparation &prepare,
                                 const QSize &size = windowSize) {
        const auto open = [prepare](Screen &screen) {
            screen.store().setSection(SidebarSection::topics);
            screen.settle();
            prepare(screen);
        };
        gallery.draw(u"topics-"_s + name, u"RootView"_s, seed, open, size);
    };
    const SeedData day = demoData(dayEnd);
    SeedData many = makeSeed({});
    many.topics.clear();
    for (int index = 0; index < 60; ++index) {
        Topic topic;
        topic.id = u"t%1"_s.arg(index);
        topic.workspaceId = u"w1"_s;
        topic.name =
            u"topic-%1"_s.arg(index) + (index % 3 == 1 ? u"-of-a-pipeline-with-a-long-name-that-goes-on"_s : u""_s);
        topic.muted = index % 4 == 1;
        topic.quietHours = index % 3 == 1;
        many.topics << topic;
    }
    SeedData none = makeSeed({});
    none.topics.clear();
    draw(u"day"_s, day, [](Screen &) {});
    draw(u"many"_s, many, [](Screen &) {});
    draw(u"smallest"_s, many, [](Screen &screen) { screen.click(u"topic.t1.menu"_s); }, {880, 560});
    draw(u"menu-at-pointer"_s, many, [](Screen &screen) { screen.rightClick(u"topic.t2"_s, {200, 30}); });
    draw(u"picker"_s, many, [](Screen &screen) { screen.click(u"topic.t2.minPriority"_s); });
    draw(u"keyboard"_s, many, [](Screen &screen) {
        screen.click(u"topics.new.name"_s);
        screen.type(u"Deploy Alerts"_s);
        screen.press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Down});
    });
    draw(u"empty"_s, none, [](Screen &screen) {
        screen.click(u"topics.new.name"_s);
        screen.type(u"Deploy Alerts!"_s);
    });
}

SeedData settingsDay(WorkspaceRole role)
{
    SeedData seed = makeSeed({}, role);
    seed.settings.quietHoursEnabled = true;
    seed.settings.quietFrom = u"22:30"_s;
    for (const auto &platform : rawValues<DevicePlatform>)
        seed.devices << Device{platform.word, u"Ann’s "_s + platform.word, platform.value, u"1.4.2"_s,
                               dayEnd - Seconds(7200)};
    seed.devices.first().name =
        u"A telephone with a name that is much longer than anybody would want to read on a screen"_s;
    return seed;
}

void drawSettings(const Gallery &gallery)
{
    const auto center = std::make_shared<FakeNotificationCenter>();
    center->status = AuthorizationStatus::denied;
    NotificationAccess denied(center);
    const auto draw = [&gallery, &denied](const QString &name, WorkspaceRole role, double position,
                                          const Gallery::Preparation &prepare = {}, const QSize &size = windowSize) {
        const auto open = [prepare, position](Screen &screen) {
            screen.store().setSection(SidebarSection::settings);
            screen.settle();
            QQuickItem *const scroll = screen.find(u"settings.scroll"_s);
            const double range = scroll->property("contentHeight").toDouble() - scroll->height();
            scroll->setProperty("contentY", std::round(range * position));
            screen.settle();
            if (prepare)
                prepare(screen);
        };
        gallery.draw(u"settings-"_s + name, u"RootView"_s, settingsDay(role), open, size, true,
                     {{u"notifications"_s, QVariant::fromValue(&denied)}});
    };
    const auto click = [](const QString &identifier) {
        return [identifier](Screen &screen) { screen.click(identifier); };
    };
    const auto owner = WorkspaceRole::owner;
    draw(u"top"_s, owner, 0);
    draw(u"viewer"_s, WorkspaceRole::viewer, 0.3);
    draw(u"middle"_s, owner, 0.5);
    draw(u"quiet-off"_s, owner, 0.6, click(u"settings.quietHours"_s));
    draw(u"end"_s, owner, 1);
    draw(u"picker"_s, owner, 0.3, click(u"settings.responseTimeout"_s));
    draw(u"hours"_s, owner, 0.6, click(u"settings.quietFrom"_s));
    draw(u"delete"_s, owner, 1, click(u"settings.deleteAccount"_s));
    draw(u"remove"_s, owner, 1, [](Screen &screen) {
        screen.click({u"settings.device.web.menu"_s, u"settings.device.web.remove"_s});
    });
    draw(u"menu"_s, owner, 1, click(u"settings.device.ios.menu"_s));
    draw(u"smallest"_s, owner, 0.4, {}, {880, 560});
    const auto tab = [](Screen &screen) {
        screen.find(u"settings.quietHours"_s)->forceActiveFocus(Qt::TabFocusReason);
    };
    draw(u"keyboard"_s, owner, 0.5, tab);
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
    for (const bool dark : {false, true}) {
        const Gallery gallery(arguments.at(1), dark);
        drawPanels(gallery);
        drawWindows(gallery);
        drawInbox(gallery);
        drawTeam(gallery);
        drawTopics(gallery);
        drawSettings(gallery);
    }
    return 0;
}
