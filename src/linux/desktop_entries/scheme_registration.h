#pragma once

#include <QString>
#include <QStringList>

namespace pingwell {

/// The folders in which desktops look for desktop entries.
struct ApplicationFolders
{
    /// The person's own data folder; entries are in its subfolder "applications".
    QString own;
    /// The system's data folders.
    QStringList systems;

    static ApplicationFolders standard();
};

/// Registers the program for the URLs of its own scheme, with which the browser returns from a sign-in. An installed
/// program has a desktop entry that does this. A program in a build folder has none, so it writes one to the person's
/// folder, and removes it when an installed entry exists. It never changes an entry that somebody else wrote. Main
/// thread.
class SchemeRegistration
{
public:
    SchemeRegistration(QString programPath, ApplicationFolders folders = ApplicationFolders::standard());

    /// Writes or removes the program's own entry, as needed, and returns whether anything changed. A failure is written
    /// to standard output.
    bool update() const;

    /// Makes the desktop read the changed entries, in the background.
    void announce() const;

private:
    [[nodiscard]] bool isInstalledEntryThere() const;
    [[nodiscard]] QString programForEntry() const;
    [[nodiscard]] bool writeOwnEntry() const;
    [[nodiscard]] bool removeOwnEntry() const;

    QString m_programPath;
    ApplicationFolders m_folders;
    QString m_ownFile;
};

} // namespace pingwell
