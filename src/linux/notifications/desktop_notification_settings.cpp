#include "linux/notifications/desktop_notification_settings.h"

#include "linux/desktop_entries/key_file.h"
#include "linux/notifications/notification_server.h"
#include "model/identity.h"

#include <QCoroProcess>
#include <QFile>
#include <QProcess>
#include <QScopedPointer>
#include <QStandardPaths>

namespace pingwell {

namespace {

AuthorizationStatus statusFrom(const QDBusMessage &error)
{
    // A server that does not reply in time says nothing about its settings; any other error means that there is no
    // server.
    const bool isSilent = error.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NoReply");
    return isSilent ? AuthorizationStatus::other : AuthorizationStatus::denied;
}

/// GNOME stores the switch under the program's name in lower case, with dashes for dots. The gsettings tool is used
/// because the GSettings library ends the program when the desktop's schema is missing. A switch that can't be read
/// counts as on.
QCoro::Task<bool> readGnomeSwitch()
{
    bool isOn = true;
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("gsettings"));
    if (tool.isEmpty())
        co_return isOn;
    // Deleted later, because the coroutine resumes inside a signal of the process object.
    const QScopedPointer<QProcess, QScopedPointerDeleteLater> process(new QProcess);
    process->start(tool, {QStringLiteral("get"),
                          QStringLiteral("org.gnome.desktop.notifications.application:/org/gnome/desktop/"
                                         "notifications/application/com-pingwell-mac/"),
                          QStringLiteral("enable")});
    auto running = qCoro(process.data());
    co_await running.waitForFinished(longestServerQuestion);
    if (process->state() != QProcess::NotRunning)
        process->kill();
    else if (process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0)
        isOn = process->readAllStandardOutput().trimmed() != "false";
    co_return isOn;
}

/// Plasma stores the switch in a group for each desktop entry; the group exists once the person has changed it.
bool readPlasmaSwitch()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    QFile file(folder + QStringLiteral("/plasmanotifyrc"));
    if (!file.open(QIODevice::ReadOnly))
        return true;
    const auto group = keyFileGroup(file.readAll(), QStringLiteral("[Applications][") + programID + u']');
    return !saysNo(group, QStringLiteral("ShowPopups"));
}

struct SettingsPage
{
    QString desktop;
    QStringList command;
};

QList<SettingsPage> knownPages()
{
    const QString entry = QStringLiteral("--desktop-entry ") + programID;
    const QString args = QStringLiteral("--args");
    const QString kde = QStringLiteral("KDE");
    QList<SettingsPage> pages{
        {QStringLiteral("GNOME"), {QStringLiteral("gnome-control-center"), QStringLiteral("notifications")}},
        // The name of Plasma 5's settings module, which Plasma 6 does not have.
        {kde, {QStringLiteral("kcmshell5"), QStringLiteral("notifications"), args, entry}},
        {kde, {QStringLiteral("systemsettings"), QStringLiteral("kcm_notifications"), args, entry}},
    };
    if (qEnvironmentVariable("KDE_SESSION_VERSION") != u"5")
        pages.swapItemsAt(1, 2);
    return pages;
}

} // namespace

QCoro::Task<AuthorizationStatus> readAuthorizationStatus(QDBusConnection bus)
{
    BusCall question(bus, notificationCall(QStringLiteral("GetServerInformation")), longestServerQuestion);
    const QDBusMessage answer = co_await question;
    if (answer.type() != QDBusMessage::ReplyMessage)
        co_return statusFrom(answer);
    const QString serverName = answer.arguments().value(0).toString();
    bool isOn = true;
    if (serverName == gnomeServerName) {
        const bool isOnInGnome = co_await readGnomeSwitch();
        isOn = isOnInGnome;
    } else if (serverName == plasmaServerName) {
        isOn = readPlasmaSwitch();
    }
    co_return isOn ? AuthorizationStatus::authorized : AuthorizationStatus::denied;
}

QStringList notificationSettingsCommand()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    const QList<SettingsPage> pages = knownPages();
    for (const SettingsPage &page : pages) {
        if (desktops.contains(page.desktop) && !QStandardPaths::findExecutable(page.command.first()).isEmpty())
            return page.command;
    }
    return {};
}

} // namespace pingwell
