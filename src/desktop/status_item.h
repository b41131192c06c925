#pragma once

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QString>

namespace pingwell {

/// The program's place in the desktop's status area. Main thread.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether the desktop has a status area now; it may come and go.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// What the item shows from now on, also when the status area only appears later. `label` is the tooltip and what a
    /// screen reader says; a `description` stands in the tooltip below it.
    virtual void setContent(const QIcon &icon, const QString &label, const QString &description) = 0;

signals:
    void availabilityChanged(bool available);
    /// The item was clicked; `position` is the pointer's place on the screen, null where the desktop does not tell.
    void activated(QPoint position);
    void panelRequested();
    void windowRequested();
    void quitRequested();
};

} // namespace pingwell
