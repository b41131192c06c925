#pragma once

#include "store/app_store.h"
#include "windows/panel_visibility.h"

#include <QQuickView>

namespace pingwell {

/// The panel at the status item: a frameless window of fixed width, as high as what it shows. It closes on Escape, when
/// the status item is clicked again, and when it loses the focus, unless a reply is being written in it.
class PanelWindow final : public QQuickView
{
    Q_OBJECT

public:
    PanelWindow(QQmlEngine *engine, AppStore *store);
    ~PanelWindow() override;

    /// Shows it near `position`, or near the pointer where that is null; where the desktop places windows itself, it
    /// does.
    void open(QPoint position);
    /// The status item was clicked.
    void toggle(QPoint position);

signals:
    /// The person wants to see the main window.
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
    /// Where it was asked for.
    QPoint m_position;
};

} // namespace pingwell
