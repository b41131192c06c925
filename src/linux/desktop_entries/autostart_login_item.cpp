#include "linux/desktop_entries/autostart_login_item.h"

#include "linux/desktop_entries/desktop_entry.h"
#include "linux/desktop_entries/key_file.h"
#include "model/identity.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace pingwell {

namespace {

const QString fileName = u'/' + desktopEntryFile;

const QString hiddenKey = QStringLiteral("Hidden");
/// GNOME's tools set this key to false to switch an entry off.
const QString gnomeEnabledKey = QStringLiteral("X-GNOME-Autostart-enabled");

QStringList entryFor(const QString &programPath)
{
    return {
        QStringLiteral("Type=Application"),
        QStringLiteral("Version=1.4"),
        QStringLiteral("Name=Pingwell"),
        QStringLiteral("Comment=Answer the questions your AI agents ask"),
        QStringLiteral("Exec=") + desktopEntryProgram(programPath),
        // With this key the desktop silently skips the entry when the program was removed.
        QStringLiteral("TryExec=") + desktopEntryValue(programPath),
        QStringLiteral("Icon=") + programID,
        QStringLiteral("Terminal=false"),
        QStringLiteral("StartupNotify=false"),
        gnomeEnabledKey + QStringLiteral("=true"),
    };
}

bool isProgramThere(const QString &tryExec)
{
    return tryExec.isEmpty() || !QStandardPaths::findExecutable(tryExec).isEmpty();
}

/// The status that the entry in this file amounts to; none when there is no file.
std::optional<LoginItemStatus> statusOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QHash<QString, QString> entry = keyFileGroup(file.readAll(), QStringLiteral("[Desktop Entry]"));
    if (saysYes(entry, hiddenKey) || saysNo(entry, gnomeEnabledKey))
        return LoginItemStatus::notRegistered;
    const bool canStart =
        entry.contains(QStringLiteral("Exec")) && isProgramThere(entry.value(QStringLiteral("TryExec")));
    return canStart ? LoginItemStatus::enabled : LoginItemStatus::notFound;
}

} // namespace

AutostartFolders AutostartFolders::standard()
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    AutostartFolders folders{.own = own + QStringLiteral("/autostart"), .systems = {}};
    const QStringList all = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString &folder : all) {
        if (folder != own)
            folders.systems.append(folder + QStringLiteral("/autostart"));
    }
    return folders;
}

AutostartLoginItem::AutostartLoginItem(QString programPath, AutostartFolders folders)
    : m_programPath(std::move(programPath))
    , m_ownFile(folders.own + fileName)
{
    for (const QString &folder : folders.systems)
        m_systemFiles.append(folder + fileName);
}

std::optional<QString> AutostartLoginItem::registerProgram()
{
    return writeDesktopEntry(m_ownFile, entryFor(m_programPath));
}

std::optional<QString> AutostartLoginItem::unregisterProgram()
{
    const bool isInSystem = std::any_of(m_systemFiles.begin(), m_systemFiles.end(),
                                        [](const QString &path) { return QFileInfo::exists(path); });
    // An entry of the person hides the system's; without one the system's entry would start the program.
    if (isInSystem)
        return writeDesktopEntry(m_ownFile, {QStringLiteral("Type=Application"), QStringLiteral("Name=Pingwell"),
                                             hiddenKey + QStringLiteral("=true")});
    QFile file(m_ownFile);
    if (file.remove() || !file.exists())
        return std::nullopt;
    return file.errorString();
}

LoginItemStatus AutostartLoginItem::status() const
{
    if (const std::optional<LoginItemStatus> own = statusOf(m_ownFile))
        return *own;
    for (const QString &path : m_systemFiles) {
        if (const std::optional<LoginItemStatus> system = statusOf(path))
            return *system;
    }
    return LoginItemStatus::notRegistered;
}

bool AutostartLoginItem::isProgramInstalled() const
{
    static const QStringList folders{QStringLiteral("/usr/"), QStringLiteral("/opt/")};
    const QString path = QDir::cleanPath(m_programPath);
    return std::any_of(folders.begin(), folders.end(), [&](const QString &folder) { return path.startsWith(folder); });
}

} // namespace pingwell
