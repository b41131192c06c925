#include "linux/session/desktop_appearance.h"

#include "linux/desktop_entries/key_file.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QStandardPaths>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString portalInterface = u"org.freedesktop.portal.Settings"_s;

const QString colourGroup = u"org.freedesktop.appearance"_s;
const QString colourKey = u"color-scheme"_s;
const QString gnomeGroup = u"org.gnome.desktop.interface"_s;
const QString gnomeKey = u"enable-animations"_s;

std::optional<bool> darkFromEnvironment()
{
    const QByteArray wanted = qgetenv("PINGWELL_APPEARANCE");
    if (wanted == "dark")
        return true;
    if (wanted == "light")
        return false;
    return std::nullopt;
}

/// The portal's older method Read wraps its value in two variants, the newer ReadOne in one.
QVariant unwrapped(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

QString plasmaSettingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/kdeglobals"_s;
}

/// Whether Plasma's configuration file leaves animations on.
bool plasmaAnimates(const QByteArray &settings)
{
    bool isNumber = false;
    const double factor = keyFileGroup(settings, u"[KDE]"_s).value(u"AnimationDurationFactor"_s).toDouble(&isNumber);
    return !isNumber || factor > 0;
}

} // namespace

DesktopAppearance::DesktopAppearance(QObject *parent)
    : Appearance(parent)
    , m_darkOverride(darkFromEnvironment())
{
    // From any sender: to name one, Qt would make a blocking call to the bus.
    QDBusConnection::sessionBus().connect({}, portalPath, portalInterface, u"SettingChanged"_s, this,
                                          SLOT(noteSetting(QString, QString, QDBusVariant)));
    readSetting(colourGroup, colourKey);
    readSetting(gnomeGroup, gnomeKey);
    readPlasmaSettings();
    qGuiApp->installEventFilter(this);
    update();
}

DesktopAppearance::~DesktopAppearance() = default;

bool DesktopAppearance::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == qGuiApp)
        update();
    return false;
}

void DesktopAppearance::readSetting(const QString &group, const QString &key)
{
    QDBusMessage question = QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, u"Read"_s);
    question << group << key;
    auto *const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, group, key] {
        call->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *call;
        if (reply.isValid())
            noteSetting(group, key, reply.value());
    });
}

void DesktopAppearance::noteSetting(const QString &group, const QString &key, const QDBusVariant &value)
{
    const QVariant setting = unwrapped(value.variant());
    if (group == colourGroup && key == colourKey) {
        // 1: dark, 2: light, any other value: no preference.
        const uint scheme = setting.toUInt();
        m_darkPreference = scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
    } else if (group == gnomeGroup && key == gnomeKey) {
        m_gnomeAnimates = setting.toBool();
    }
    update();
}

void DesktopAppearance::readPlasmaSettings()
{
    QFile settings(plasmaSettingsPath());
    if (!settings.open(QIODevice::ReadOnly))
        return;
    m_plasmaAnimates = plasmaAnimates(settings.readAll());
    if (!m_plasmaSettings) {
        m_plasmaSettings = std::make_unique<QFileSystemWatcher>();
        connect(m_plasmaSettings.get(), &QFileSystemWatcher::fileChanged, this, [this] {
            readPlasmaSettings();
            update();
        });
    }
    // Plasma replaces the file, which ends the watch on the old one.
    m_plasmaSettings->addPath(settings.fileName());
}

void DesktopAppearance::update()
{
    const bool dark = wantsDark();
    const bool motionReduced = !m_gnomeAnimates || !m_plasmaAnimates;
    if (dark == m_dark && motionReduced == m_motionReduced)
        return;
    m_dark = dark;
    m_motionReduced = motionReduced;
    emit changed();
}

bool DesktopAppearance::wantsDark() const
{
    if (m_darkOverride)
        return *m_darkOverride;
    if (m_darkPreference)
        return *m_darkPreference;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
}

} // namespace pingwell
