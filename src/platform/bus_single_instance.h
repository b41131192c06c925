#pragma once

#include "app/single_instance.h"

namespace pingwell {

/// One program for each session bus: the one that owns the name com.pingwell.mac. It serves org.freedesktop.Application
/// (Desktop Entry Specification, D-Bus Activation), which later starts call. Without a session bus every start is a
/// program of its own. Create it before any graphical application object, which may take the activation token out of
/// the environment.
class BusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    explicit BusSingleInstance(QObject *parent = nullptr);
    ~BusSingleInstance() override;

    /// URLs of another scheme than "pingwell", malformed ones and those over 4 KiB are dropped, here and again where
    /// they arrive. They carry secrets and are never written anywhere.
    Role claim(const QList<QUrl> &urls) override;

private:
    [[nodiscard]] bool ownName();
    [[nodiscard]] bool handOver(const QList<QUrl> &urls) const;

    QByteArray m_activationToken;
    QByteArray m_startupId;
    bool m_primary = false;
};

} // namespace pingwell
