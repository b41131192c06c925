#pragma once

#include <QString>
#include <QStringList>

namespace pingwell {

/// Where desktops look for desktop entries.
struct ApplicationFolders
{
    /// The person's own data folder; entries lie under "applications".
    QString own;
    /// The system's data folders.
    QStringList systems;

    static ApplicationFolders standard();
};

/// Who opens the addresses of the program's own scheme, with which the browser returns from a sign-in. An installed
/// program has its desktop entry; one that runs from where it was built has none, and gives itself one in the person's
/// folder until an installed one appears. An entry that somebody else wrote is never touched. Main thread.
class SchemeRegistration
{
public:
    SchemeRegistration(QString programPath, ApplicationFolders folders = ApplicationFolders::standard());

    /// Writes or takes away the program's own entry, whichever is due, and returns whether anything changed; a failure
    /// is written to standard output.
    bool update() const;

    /// Lets the desktop notice a changed entry, in the background.
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
