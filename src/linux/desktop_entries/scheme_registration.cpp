#include "linux/desktop_entries/scheme_registration.h"

#include "linux/desktop_entries/desktop_entry.h"
#include "linux/desktop_entries/key_file.h"
#include "model/identity.h"
#include "model/report.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace pingwell {

namespace {

const QString entryPath = QStringLiteral("/applications/") + desktopEntryFile;
/// Marks the entry that this class wrote, so that it never changes one from a person or a package.
const QString ownMark = QStringLiteral("X-Pingwell-BuildFolder");

QHash<QString, QString> entryIn(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? keyFileGroup(file.readAll(), QStringLiteral("[Desktop Entry]"))
                                          : QHash<QString, QString>();
}

QStringList entryFor(const QString &program)
{
    // Not quoted unless necessary: some desktops take the quotes for a part of the name.
    const QString plain = program.contains(u' ') ? desktopEntryProgram(program) : desktopEntryValue(program);
    return {
        QStringLiteral("Type=Application"),  QStringLiteral("Version=1.4"),
        QStringLiteral("Name=Pingwell"),     QStringLiteral("Exec=") + plain + QStringLiteral(" %u"),
        QStringLiteral("Icon=") + programID, QStringLiteral("Terminal=false"),
        QStringLiteral("NoDisplay=true"),    QStringLiteral("MimeType=x-scheme-handler/pingwell;"),
        ownMark + QStringLiteral("=true"),
    };
}

} // namespace

ApplicationFolders ApplicationFolders::standard()
{
    ApplicationFolders folders{.own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
                               .systems = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)};
    folders.systems.removeAll(folders.own);
    return folders;
}

SchemeRegistration::SchemeRegistration(QString programPath, ApplicationFolders folders)
    : m_programPath(std::move(programPath))
    , m_folders(std::move(folders))
    , m_ownFile(m_folders.own + entryPath)
{
}

bool SchemeRegistration::update() const
{
    const bool isThere = QFileInfo::exists(m_ownFile);
    const bool isOurs = saysYes(entryIn(m_ownFile), ownMark);
    if (isThere && !isOurs)
        return false;
    if (!isInstalledEntryThere())
        return writeOwnEntry();
    return isOurs && removeOwnEntry();
}

bool SchemeRegistration::isInstalledEntryThere() const
{
    return std::any_of(m_folders.systems.begin(), m_folders.systems.end(),
                       [](const QString &folder) { return QFileInfo::exists(folder + entryPath); });
}

/// The program's path; a link to it if the path contains a space, because some desktops can't handle a quoted path.
QString SchemeRegistration::programForEntry() const
{
    const QString link = m_folders.own + QStringLiteral("/pingwell/pingwell");
    if (!m_programPath.contains(u' ') || link.contains(u' '))
        return m_programPath;
    QDir().mkpath(QFileInfo(link).path());
    QFile::remove(link);
    return QFile::link(m_programPath, link) ? link : m_programPath;
}

bool SchemeRegistration::writeOwnEntry() const
{
    const QStringList entry = entryFor(programForEntry());
    if (entry.contains(QString(QStringLiteral("Exec=") + entryIn(m_ownFile).value(QStringLiteral("Exec")))))
        return false;
    if (const auto problem = writeDesktopEntry(m_ownFile, entry)) {
        report("sign-in", QStringLiteral("the browser may not find its way back: ") + *problem);
        return false;
    }
    return true;
}

bool SchemeRegistration::removeOwnEntry() const
{
    QFile::remove(m_folders.own + QStringLiteral("/pingwell/pingwell"));
    return QFile::remove(m_ownFile);
}

void SchemeRegistration::announce() const
{
    const QString folder = QFileInfo(m_ownFile).path();
    const bool hasCache = QProcess::startDetached(QStringLiteral("update-desktop-database"), {folder});
    if (!hasCache && QFileInfo::exists(m_ownFile))
        QProcess::startDetached(QStringLiteral("xdg-mime"), {QStringLiteral("default"), QFileInfo(m_ownFile).fileName(),
                                                             QStringLiteral("x-scheme-handler/pingwell")});
}

} // namespace pingwell
