#pragma once

#include "store/app_store.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What the team screen says of the active workspace as a whole, and the person's wishes for it in the screen's words.
class TeamModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(bool isTeam READ isTeam NOTIFY changed)
    Q_PROPERTY(bool isOwner READ isOwner NOTIFY changed)
    Q_PROPERTY(bool isViewer READ isViewer NOTIFY changed)
    Q_PROPERTY(bool canManage READ canManage NOTIFY changed)
    Q_PROPERTY(QString workspaceName READ workspaceName NOTIFY changed)
    Q_PROPERTY(QString editableName READ editableName NOTIFY changed)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    // Spelt out, as QML's lists of words are.
    Q_PROPERTY(QList<QString> roles READ roles CONSTANT)

public:
    using QObject::QObject;

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] bool isTeam() const { return m_state.isTeam; }
    [[nodiscard]] bool isOwner() const { return m_state.isOwner; }
    [[nodiscard]] bool isViewer() const { return m_state.isViewer; }
    [[nodiscard]] bool canManage() const { return m_state.canManage; }
    /// For sentences; never empty.
    [[nodiscard]] const QString &workspaceName() const { return m_state.workspaceName; }
    /// For a field.
    [[nodiscard]] const QString &editableName() const { return m_state.editableName; }
    /// How many members there are, and how many of them have yet to join.
    [[nodiscard]] const QString &subtitle() const { return m_state.subtitle; }

    /// The roles that there are, from the most to the least.
    [[nodiscard]] static QStringList roles();

    /// Invites that address; what is wrong with it in words, or an empty text when the invitation is on its way.
    Q_INVOKABLE QString invite(const QString &email, const QString &role);
    Q_INVOKABLE void changeRole(const QString &memberID, const QString &role);

signals:
    void storeChanged();
    void changed();

private:
    struct State
    {
        bool isTeam = false;
        bool isOwner = false;
        bool isViewer = false;
        bool canManage = false;
        QString workspaceName;
        QString editableName;
        QString subtitle;

        friend bool operator==(const State &, const State &) = default;
    };

    static State stateOf(const AppStore &store);
    void update();

    QPointer<AppStore> m_store;
    State m_state;
};

} // namespace pingwell
