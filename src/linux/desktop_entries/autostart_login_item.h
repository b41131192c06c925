#pragma once

#include "desktop/login_item.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace pingwell {

/// Where a desktop looks for what it starts, the person's own folder before the system's (freedesktop.org, Desktop
/// Application Autostart).
struct AutostartFolders
{
    QString own;
    QStringList systems;

    /// $XDG_CONFIG_HOME and $XDG_CONFIG_DIRS.
    [[nodiscard]] static AutostartFolders standard();
};

/// A file in the person's autostart folder. The file is the truth: the desktop's own switches write into it.
class AutostartLoginItem final : public LoginItem
{
public:
    /// `programPath` is what will be started.
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
