#pragma once

#include "desktop/single_instance.h"

#include <QVariantMap>

namespace pingwell {

/// One program for each session bus: the one that owns the name com.pingwell.mac. It serves org.freedesktop.Application
/// (Desktop Entry Specification, D-Bus Activation), which later starts call. Create it before any graphical application
/// object, which may take the activation token out of the environment.
class BusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    enum class Kind {
        /// The person's own program.
        own,
        /// A live test. It runs beside the person's program, one on each bus. It has the program's name as long as
        /// nobody else wants it, so that a browser can come back to it.
        liveTest,
    };

    explicit BusSingleInstance(Kind kind, QObject *parent = nullptr);
    ~BusSingleInstance() override;

    /// Whether there is a session bus.
    [[nodiscard]] static bool isPossible();

    /// URLs of another scheme than "pingwell", malformed ones and those over 4 KiB are dropped, here and again where
    /// they arrive. URLs go to whoever has the program's name; a start without any takes it from a live test.
    Role claim(const QList<QUrl> &urls) override;

private:
    [[nodiscard]] bool claimAsLiveTest(const QStringList &texts);
    [[nodiscard]] bool handOver(const QString &name, const QStringList &texts) const;

    Kind m_kind;
    QVariantMap m_platformData;
    QStringList m_names;
};

} // namespace pingwell
