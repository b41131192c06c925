#pragma once

#include "desktop/single_instance.h"

#include <QVariantMap>

namespace pingwell {

/// One program for each session bus: the owner of the name com.pingwell.mac. It serves org.freedesktop.Application
/// (freedesktop.org Desktop Entry, D-Bus Activation), which later starts call. Construct it before any graphical
/// application object, which may remove the activation token from the environment.
class BusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    enum class Kind {
        /// The person's own program.
        own,
        /// A live test, which runs beside the person's program; one for each bus. It owns the program's name, too, as
        /// long as nobody else requests it, so that a browser can return to the test.
        liveTest,
    };

    explicit BusSingleInstance(Kind kind, QObject *parent = nullptr);
    ~BusSingleInstance() override;

    /// Whether there is a session bus.
    [[nodiscard]] static bool isPossible();

    /// URLs with another scheme than "pingwell", malformed ones and those over 4 KiB are dropped, both here and in the
    /// program that receives them. URLs go to the owner of the program's name; a start without URLs takes the name from
    /// a live test.
    Role claim(const QList<QUrl> &urls) override;

private:
    [[nodiscard]] bool claimAsLiveTest(const QStringList &texts);
    [[nodiscard]] bool handOver(const QString &name, const QStringList &texts) const;

    Kind m_kind;
    QVariantMap m_platformData;
    QStringList m_names;
};

} // namespace pingwell
