#include "ui/components/window_input.h"

#include "model/check.h"
#include "ui/engine/engine.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QTouchEvent>

namespace pingwell {

WindowInput *WindowInput::of(QQuickItem *item)
{
    QQuickWindow *const window = item->window();
    if (!window)
        return nullptr;
    auto *const known = window->findChild<WindowInput *>({}, Qt::FindDirectChildrenOnly);
    if (known)
        return known;
    const auto *const engine = qobject_cast<UiEngine *>(qmlEngine(item));
    check(engine, "a control was loaded by an engine of another kind");
    return new WindowInput(window, engine->monotonicTime());
}

WindowInput::WindowInput(QQuickWindow *window, std::function<TimePoint()> now)
    : QObject(window)
    , m_window(window)
    , m_now(std::move(now))
{
    window->installEventFilter(this);
    connect(window, &QQuickWindow::afterAnimating, this, &WindowInput::noteFrame);
    connect(window, &QWindow::activeChanged, this, &WindowInput::noteActive);
    connect(window, &QWindow::visibleChanged, this, [this] {
        m_isOpening = true;
        takePointer({});
        m_fingers.clear();
    });
}

QList<QPointF> WindowInput::places() const
{
    QList<QPointF> places = m_fingers.values();
    if (m_pointer)
        places.append(*m_pointer);
    return places;
}

bool WindowInput::wasJustActivated() const
{
    return m_activatedAt && now() - *m_activatedAt < PressRule::pause;
}

bool WindowInput::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        notePress();
        [[fallthrough]];
    case QEvent::Enter:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
        takePointer(static_cast<QSinglePointEvent *>(event)->globalPosition());
        break;
    case QEvent::Leave:
        takePointer({});
        break;
    case QEvent::TouchBegin:
        notePress();
        [[fallthrough]];
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        takeFingers(*event);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void WindowInput::takePointer(std::optional<QPointF> place)
{
    // What came under the pointer while it rested is seen before the movement, and not taken for it.
    emit looked();
    if (m_pointer == place)
        return;
    m_pointer = place;
    emit looked();
}

void WindowInput::takeFingers(const QEvent &event)
{
    for (const QEventPoint &point : static_cast<const QTouchEvent &>(event).points()) {
        if (event.type() == QEvent::TouchCancel || point.state() == QEventPoint::Released)
            m_fingers.remove(point.id());
        else
            m_fingers.insert(point.id(), point.globalPosition());
    }
    emit looked();
}

void WindowInput::notePress()
{
    m_pressedAt = now();
    m_activatedAt.reset();
}

void WindowInput::noteActive()
{
    // Some desktops tell of the press first, others of the focus that it brought.
    const bool isByPress = m_pressedAt && now() - *m_pressedAt < PressRule::pause;
    if (m_window->isActive() && !isByPress)
        m_activatedAt = now();
}

void WindowInput::noteFrame()
{
    emit looked();
    m_isOpening = false;
}

} // namespace pingwell
