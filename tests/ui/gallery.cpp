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
              const QSize &size = {}, bool signedIn = true) const
    {
        Screen screen(component, seed, signedIn);
        save(screen, name, size, prepare);
    }

    /// With a service and a desktop.
    void drawLive(const QString &name, const std::function<void(AppStore &)> &prepare,
                  AuthorizationStatus status = AuthorizationStatus::denied, bool signedIn = false) const
    {
        StoreFixture live;
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
            live.refreshWith({});
        {
            Screen screen(u"RootView"_s, *live.store, {{u"notifications"_s, QVariant::fromValue(&access)}});
            save(screen, name, windowSize, [&prepare](Screen &shown) { prepare(shown.store()); });
        }
        browser->cancel();
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
    gallery.drawLive(u"prompt-ask"_s, none, AuthorizationStatus::notDetermined, true);
    gallery.drawLive(u"prompt-denied"_s, none, AuthorizationStatus::denied, true);
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
    }
    return 0;
}
