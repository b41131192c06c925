#pragma once

#include "store/app_store.h"
#include "windows/panel_visibility.h"

#include <QQuickView>

namespace pingwell {

/// The panel at the status item: a frameless window of fixed width that is as high as its content. It closes on Escape,
/// on another click on the status item, and when it loses the focus, unless it has an unsent reply.
class PanelWindow final : public QQuickView
{
    Q_OBJECT

public:
    PanelWindow(QQmlEngine *engine, AppStore *store);
    ~PanelWindow() override;

    /// Shows the panel near `position`, or near the pointer where `position` is null. Where the desktop places windows
    /// itself, the position has no effect.
    void open(QPoint position);
    /// Handles a click on the status item.
    void toggle(QPoint position);

signals:
    /// The person asked for the main window.
    void openMainRequested();
    void quitRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private slots:
    void fit();

private:
    void noteActive();
    void place();
    [[nodiscard]] bool hasUnsentReply() const;

    AppStore *m_store;
    PanelVisibility m_visibility;
    /// The position that `open` was given.
    QPoint m_position;
};

} // namespace pingwell
