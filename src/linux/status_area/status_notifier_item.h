#pragma once

#include "desktop/status_item.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace pingwell {

/// A StatusNotifierItem (freedesktop.org standard), drawn by the desktop's status area. Qt checks only once in a
/// process whether there is a status area, and at log-in the program often starts before the desktop's bar. So
/// QSystemTrayIcon is not created before a host is there. Needs a QApplication.
class StatusNotifierItem final : public StatusItem
{
    Q_OBJECT

public:
    /// Shows `icon` and `label` at once if there is a status area.
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
    // Counts the calls that ask for a host: only the reply to the latest one is used.
    int m_question = 0;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon;
};

} // namespace pingwell
