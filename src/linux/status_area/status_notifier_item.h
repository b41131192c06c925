#pragma once

#include "desktop/status_item.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace pingwell {

/// A StatusNotifierItem (freedesktop specification) drawn by whatever status area the desktop has. Qt decides once in a
/// process whether there is one, and a program started with the session is often earlier than its panel: so nothing of
/// Qt's tray is touched before a host is there. Needs a QApplication.
class StatusNotifierItem final : public StatusItem
{
    Q_OBJECT

public:
    /// Shows `icon` and `label` at once where there is a status area.
    StatusNotifierItem(QIcon icon, QString label, QObject *parent = nullptr);
    ~StatusNotifierItem() override;

    [[nodiscard]] bool isAvailable() const override { return m_available; }
    void setContent(const QIcon &icon, const QString &label, const QString &description) override;

private slots:
    void askForHost();

private:
    void takeFirstAnswer();
    void setAvailable(bool available);
    void show();
    void fillMenu();
    void reportClick(QSystemTrayIcon::ActivationReason reason);

    QIcon m_icon;
    QString m_toolTip;
    bool m_available = false;
    // Counts the questions for a host: only the answer to the latest one counts.
    int m_question = 0;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
};

} // namespace pingwell
