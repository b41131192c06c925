#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

class WindowInput;

/// Tells whether a list is in use right now: then it must not move, for the person is about to press something in it.
class ListHold : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// What must not move, and the part of the window in which it is seen.
    Q_PROPERTY(QQuickItem *area MEMBER m_area REQUIRED)
    Q_PROPERTY(QQuickItem *viewport MEMBER m_viewport REQUIRED)
    /// The pointer or a finger is on it.
    Q_PROPERTY(bool isPointedAt READ isPointedAt NOTIFY changed)
    /// That, or something in it has the keyboard's focus.
    Q_PROPERTY(bool isHeld READ isHeld NOTIFY changed)
    /// How far below the top of the viewport the lowest of pointer and fingers is; -1 while none is on the list.
    Q_PROPERTY(double reach READ reach NOTIFY changed)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] bool isPointedAt() const { return m_reach >= 0; }
    [[nodiscard]] bool isHeld() const { return isPointedAt() || m_hasFocus; }
    [[nodiscard]] double reach() const { return m_reach; }

signals:
    void changed();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void componentComplete() override;

private:
    void follow(QQuickWindow *window);
    void look();
    [[nodiscard]] double currentReach() const;
    [[nodiscard]] bool hasFocusWithin() const;

    QPointer<QQuickItem> m_area;
    QPointer<QQuickItem> m_viewport;
    QPointer<WindowInput> m_input;
    double m_reach = -1;
    bool m_hasFocus = false;
};

} // namespace pingwell
