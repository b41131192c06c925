#pragma once

#include "desktop/login_item.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace pingwell {

/// The folders whose entries the desktop starts at log-in; the person's own comes before the system's (freedesktop.org,
/// Desktop Application Autostart).
struct AutostartFolders
{
    QString own;
    QStringList systems;

    /// The folders from $XDG_CONFIG_HOME and $XDG_CONFIG_DIRS.
    [[nodiscard]] static AutostartFolders standard();
};

/// Start at log-in as an entry in the person's autostart folder. The status is always read from the file, because the
/// desktop's own settings change the file, too.
class AutostartLoginItem final : public LoginItem
{
public:
    /// `programPath` is the program that the entry starts.
    explicit AutostartLoginItem(QString programPath, AutostartFolders folders = AutostartFolders::standard());

    [[nodiscard]] std::optional<QString> registerProgram() override;
    [[nodiscard]] std::optional<QString> unregisterProgram() override;
    [[nodiscard]] LoginItemStatus status() const override;
    [[nodiscard]] bool isProgramInstalled() const override;

private:
    QString m_programPath;
    QString m_ownFile;
    QStringList m_systemFiles;
};

} // namespace pingwell
