#pragma once

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QString>

namespace pingwell {

/// The program's icon in the desktop's status area. Main thread.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the desktop has a status area now. This can change while the program runs.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// Sets what the item shows; it is kept for a status area that appears later. `label` is the tooltip's title and
    /// the text for screen readers; `description` is the tooltip's text below it.
    virtual void setContent(const QIcon &icon, const QString &label, const QString &description) = 0;

signals:
    void availabilityChanged(bool available);
    /// The item was clicked. `position` is the pointer's position on the screen, null where the desktop does not report
    /// it.
    void activated(QPoint position);
    void panelRequested();
    void windowRequested();
    void quitRequested();
};

} // namespace pingwell
