#pragma once

#include "desktop/appearance.h"

#include <QDBusVariant>
#include <QFileSystemWatcher>

#include <memory>
#include <optional>

namespace pingwell {

/// The appearance from the settings portal (org.freedesktop.portal.Settings). Without a portal, or if it has no
/// preference, a dark application palette means dark. Motion is reduced where GNOME's animations are off or Plasma's
/// take no time. The portal's replies arrive later, as changes. The environment variable PINGWELL_APPEARANCE, "light"
/// or "dark", overrides the colours. The program must not change the application's palette.
class DesktopAppearance final : public Appearance
{
    Q_OBJECT

public:
    explicit DesktopAppearance(QObject *parent = nullptr);
    ~DesktopAppearance() override;

    [[nodiscard]] bool isDark() const override { return m_dark; }
    [[nodiscard]] bool isMotionReduced() const override { return m_motionReduced; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void noteSetting(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void readSetting(const QString &group, const QString &key);
    void readPlasmaSettings();
    void update();
    [[nodiscard]] bool wantsDark() const;

    bool m_dark = false;
    bool m_motionReduced = false;
    std::optional<bool> m_darkOverride;
    std::optional<bool> m_darkPreference;
    bool m_gnomeAnimates = true;
    bool m_plasmaAnimates = true;
    std::unique_ptr<QFileSystemWatcher> m_plasmaSettings;
};

} // namespace pingwell
