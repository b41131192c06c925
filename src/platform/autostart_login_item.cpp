#include "platform/autostart_login_item.h"

#include "platform/key_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace pingwell {

namespace {

const QString fileName = QStringLiteral("/com.pingwell.mac.desktop");

const QString hiddenKey = QStringLiteral("Hidden");
/// What GNOME's tools write to switch an entry off.
const QString gnomeEnabledKey = QStringLiteral("X-GNOME-Autostart-enabled");

/// `text` as a value of a desktop entry.
QString escaped(QString text)
{
    text.replace(u'\\', QStringLiteral("\\\\"));
    text.replace(u'\n', QStringLiteral("\\n"));
    return text;
}

/// `path` as the program of an Exec line: quoted, with the characters that mean something there escaped.
QString quotedForExec(const QString &path)
{
    QString quoted;
    for (const QChar character : path) {
        if (QStringLiteral("\"`$\\").contains(character))
            quoted += u'\\';
        quoted += character;
        if (character == u'%')
            quoted += character;
    }
    return u'"' + quoted + u'"';
}

QByteArray entryFor(const QString &programPath)
{
    const QStringList lines{
        QStringLiteral("[Desktop Entry]"),
        QStringLiteral("Type=Application"),
        QStringLiteral("Version=1.4"),
        QStringLiteral("Name=Pingwell"),
        QStringLiteral("Comment=Answer the questions your AI agents ask"),
        QStringLiteral("Exec=") + escaped(quotedForExec(programPath)),
        // An uninstalled program is passed over in silence.
        QStringLiteral("TryExec=") + escaped(programPath),
        QStringLiteral("Icon=com.pingwell.mac"),
        QStringLiteral("Terminal=false"),
        QStringLiteral("StartupNotify=false"),
        gnomeEnabledKey + QStringLiteral("=true"),
    };
    return (lines.join(u'\n') + u'\n').toUtf8();
}

bool isProgramThere(const QString &tryExec)
{
    return tryExec.isEmpty() || !QStandardPaths::findExecutable(tryExec).isEmpty();
}

/// What a desktop makes of the entry in that file; none when there is no file.
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
    return write(entryFor(m_programPath));
}

std::optional<QString> AutostartLoginItem::unregisterProgram()
{
    const bool isInSystem = std::any_of(m_systemFiles.begin(), m_systemFiles.end(),
                                        [](const QString &path) { return QFileInfo::exists(path); });
    // Without a file of the person's the system's would count.
    if (isInSystem)
        return write(QByteArrayLiteral("[Desktop Entry]\nType=Application\nName=Pingwell\nHidden=true\n"));
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
    static const QStringList folders{QStringLiteral("/usr/"), QStringLiteral("/usr/local/"), QStringLiteral("/opt/")};
    const QString path = QDir::cleanPath(m_programPath);
    return std::any_of(folders.begin(), folders.end(), [&](const QString &folder) { return path.startsWith(folder); });
}

std::optional<QString> AutostartLoginItem::write(const QByteArray &entry) const
{
    const QString folder = QFileInfo(m_ownFile).path();
    if (!QDir().mkpath(folder))
        return QString(QStringLiteral("can't make the folder ") + folder);
    QSaveFile file(m_ownFile);
    if (file.open(QIODevice::WriteOnly) && file.write(entry) == entry.size() && file.commit())
        return std::nullopt;
    return file.errorString();
}

} // namespace pingwell
