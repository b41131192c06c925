#pragma once

#include <QDBusAbstractAdaptor>
#include <QUrl>

namespace pingwell {

/// The texts of those URLs that the program opens: of the scheme "pingwell", well-formed, at most 4 KiB long.
[[nodiscard]] QStringList acceptableTexts(const QList<QUrl> &urls);

/// What desktops and later starts call on the running program (Desktop Entry Specification, D-Bus Activation). Nothing
/// a caller sends is trusted: a text that is no acceptable URL is dropped.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(QObject *served);

public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &texts, const QVariantMap &platformData);
    /// The program offers no actions; none does anything.
    void ActivateAction(const QString &action, const QVariantList &parameters, const QVariantMap &platformData);

signals:
    void activated(const QByteArray &activationToken);
    void opened(const QList<QUrl> &urls, const QByteArray &activationToken);
};

} // namespace pingwell
