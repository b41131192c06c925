#include "ui/components/press_guard.h"

#include "ui/components/window_input.h"

#include <QQuickWindow>

#include <utility>

namespace pingwell {

PressGuard::PressGuard(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptTouchEvents(true);
}

void PressGuard::setMeaning(const QString &meaning)
{
    if (m_meaning == meaning)
        return;
    m_meaning = meaning;
    giveUpPress();
    // At once: the press or the key that comes next may come before the next frame.
    look();
    emit meaningChanged();
}

bool PressGuard::takesPointer() const
{
    return !m_input || m_press.takesPointer(m_input->now());
}

bool PressGuard::takesKeys() const
{
    return !m_input || (!m_input->wasJustActivated() && m_key.takesTouch(m_input->now()));
}

void PressGuard::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(!takesPointer());
}

void PressGuard::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->setAccepted(!takesPointer());
}

void PressGuard::touchEvent(QTouchEvent *event)
{
    const bool isMeant = !m_input || m_press.takesTouch(m_input->now());
    event->setAccepted(event->type() != QEvent::TouchBegin || !isMeant);
}

void PressGuard::itemChange(ItemChange change, const ItemChangeData &data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && isComponentComplete())
        follow(data.window);
}

void PressGuard::componentComplete()
{
    QQuickItem::componentComplete();
    follow(window());
}

void PressGuard::follow(QQuickWindow *window)
{
    if (m_input)
        m_input->disconnect(this);
    m_input = window ? WindowInput::of(this) : nullptr;
    m_seenPlace = {};
    if (m_input)
        connect(m_input, &WindowInput::looked, this, &PressGuard::look);
}

/// Compares what is there with what was there at the last look.
void PressGuard::look()
{
    if (!m_input || !isComponentComplete())
        return;
    const auto before = std::exchange(m_seenPlace, isVisible() ? std::optional(placeOnScreen()) : std::nullopt);
    const bool isAnother = !before || m_meaning != m_seenMeaning;
    m_seenMeaning = m_meaning;
    if (!m_seenPlace)
        return;
    if (m_input->isOpening()) {
        m_press = {};
        m_key = {};
        return;
    }
    const auto pointer = m_input->pointer();
    const bool isUnderPointer = pointer && m_seenPlace->contains(*pointer);
    if (isAnother)
        m_key.changed(m_input->now(), isUnderPointer);
    const bool cameUnderPointer = isUnderPointer && before && !before->contains(*pointer);
    if (isAnother || cameUnderPointer || m_seenPlace->topLeft() != before->topLeft())
        m_press.changed(m_input->now(), isUnderPointer);
    else if (!isUnderPointer)
        m_press.pointerLeft();
}

void PressGuard::giveUpPress()
{
    if (!window() || !parentItem())
        return;
    if (window()->mouseGrabberItem() == parentItem())
        parentItem()->ungrabMouse();
    parentItem()->ungrabTouchPoints();
}

QRectF PressGuard::placeOnScreen() const
{
    const QRectF inScene = mapRectToScene(boundingRect());
    return {window()->mapToGlobal(inScene.topLeft()), inScene.size()};
}

} // namespace pingwell
