#pragma once

#include "ui/components/press_rule.h"

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace pingwell {

class WindowInput;

/// Lies over a control, its parent, and swallows the presses that were meant for what was there before: see
/// `PressRule`. A press under way is given up when the meaning changes before the release. A press by assistive
/// technology names its control and is never swallowed; keys are asked about with `takesKeys`.
class PressGuard : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// What a press does and to what, in words that only change when that does.
    Q_PROPERTY(QString meaning READ meaning WRITE setMeaning NOTIFY meaningChanged)

public:
    explicit PressGuard(QQuickItem *parent = nullptr);

    [[nodiscard]] const QString &meaning() const { return m_meaning; }
    void setMeaning(const QString &meaning);

    /// A press with the pointer counts now.
    [[nodiscard]] Q_INVOKABLE bool takesPointer() const;
    /// A key counts now: this control meant the same half a second ago, and the window was in use by then.
    [[nodiscard]] Q_INVOKABLE bool takesKeys() const;

signals:
    void meaningChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void touchEvent(QTouchEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void componentComplete() override;

private:
    void follow(QQuickWindow *window);
    void look();
    void giveUpPress();
    [[nodiscard]] QRectF placeOnScreen() const;

    QPointer<WindowInput> m_input;
    QString m_meaning;
    /// What was seen last; no place while the control was hidden.
    QString m_seenMeaning;
    std::optional<QRectF> m_seenPlace;
    PressRule m_press;
    /// The same rule for keys, which do not care where the control is.
    PressRule m_key;
};

} // namespace pingwell
