#pragma once

#include "ui/components/press_rule.h"

#include <QHash>
#include <QObject>
#include <QPointF>
#include <QQuickWindow>

#include <functional>
#include <optional>

class QQuickItem;

namespace pingwell {

/// Where the pointer and the fingers are in one window, and since when the window is in use. There is one for each
/// window, made when the first item asks for it; it watches what the window is told before the window's items are told.
class WindowInput : public QObject
{
    Q_OBJECT

public:
    using TimePoint = PressRule::TimePoint;

    /// Of the item's window, which owns it; null while the item is in none. The time is that of the item's engine.
    [[nodiscard]] static WindowInput *of(QQuickItem *item);

    [[nodiscard]] TimePoint now() const { return m_now(); }
    /// On the screen, in its coordinates; none while the pointer is outside of the window.
    [[nodiscard]] std::optional<QPointF> pointer() const { return m_pointer; }
    /// The pointer, where there is one, and every finger that is down.
    [[nodiscard]] QList<QPointF> places() const;
    /// The window was shown and has not been drawn since: what is in it now was there from the start.
    [[nodiscard]] bool isOpening() const { return m_isOpening; }
    /// The window got the focus so shortly ago, other than by a press in it, that a key may have been meant for
    /// another program.
    [[nodiscard]] bool wasJustActivated() const;

signals:
    /// Something may be at another place now, or the pointer may: at each frame, and before and after each movement.
    void looked();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    WindowInput(QQuickWindow *window, std::function<TimePoint()> now);

    void takePointer(std::optional<QPointF> place);
    void takeFingers(const QEvent &event);
    void notePress();
    void noteActive();
    void noteFrame();

    QQuickWindow *m_window;
    std::function<TimePoint()> m_now;
    std::optional<QPointF> m_pointer;
    QHash<int, QPointF> m_fingers;
    bool m_isOpening = true;
    std::optional<TimePoint> m_activatedAt;
    std::optional<TimePoint> m_pressedAt;
};

} // namespace pingwell
