#pragma once

#include "store/app_store.h"
#include "ui/inbox/alert_row.h"
#include "ui/lists/keyed_list_model.h"

#include <QPointer>
#include <QQmlParserStatus>
#include <QSet>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// One of the store's lists of alerts, as rows for a screen. It follows the store by itself: a change is taken in once,
/// on the next turn of the event loop; a tick of the clock only where it changes a row, when a deadline passes or an
/// alert grows older than a day. A text is cleaned for display when its row is first shown, not before.
///
/// Rows can be held in their places while somebody is about to press something in them: a row whose alert no longer
/// belongs here then stays and shows what became of it ("gone" when the alert itself is), and a new one joins below.
/// What was held back is made up for when nothing is held any more, or when another list is wanted altogether.
// The base is named in full: the registration of QML types does not look names up.
class AlertListModel : public pingwell::KeyedListModel, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(List list READ list WRITE setList NOTIFY listChanged)
    Q_PROPERTY(int limit READ limit WRITE setLimit NOTIFY limitChanged)
    Q_PROPERTY(int choiceLimit READ choiceLimit WRITE setChoiceLimit NOTIFY limitChanged)
    Q_PROPERTY(int total READ total NOTIFY totalChanged)
    Q_PROPERTY(int heldRows MEMBER m_heldRows WRITE setHeldRows NOTIFY holdChanged)
    Q_PROPERTY(bool takesNewRows MEMBER m_takesNewRows WRITE setTakesNewRows NOTIFY holdChanged)

public:
    enum class List {
        /// The asks that wait for a reply.
        NeedsReply,
        /// What else came within a day.
        Today,
        /// The inbox through its filter.
        Inbox,
        /// The alert opened in the inbox, or none.
        Selected,
    };
    Q_ENUM(List)

    explicit AlertListModel(QObject *parent = nullptr);

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] List list() const { return m_list; }
    void setList(List list);
    /// At most so many rows; 0 for all.
    [[nodiscard]] int limit() const { return m_limit; }
    void setLimit(int limit);
    /// No further row once the person is offered so many choices in those there; 0 for no such limit.
    [[nodiscard]] int choiceLimit() const { return m_choiceLimit; }
    void setChoiceLimit(int limit);
    /// How many choices the person is offered in the rows there are.
    Q_INVOKABLE int choices() const;
    /// How many alerts belong here, whatever the limit and the held rows show of them.
    [[nodiscard]] int total() const { return m_total; }
    /// The first so many rows keep their places.
    void setHeldRows(int count);
    /// Whether new rows may join below those held, or wait.
    void setTakesNewRows(bool takes);
    /// The person has just dealt with this alert: its row is not held when it leaves.
    Q_INVOKABLE void letGo(const QString &alertID) { m_letGo.insert(alertID); }
    /// Nothing can be done with that alert any more, even if its row is still held.
    Q_INVOKABLE bool isGone(const QString &alertID) const;

    /// As much of an alert's texts as "Show all" shows.
    Q_INVOKABLE pingwell::AlertTexts everything(const QString &alertID) const;

    void classBegin() override {}
    void componentComplete() override;

signals:
    void storeChanged();
    void listChanged();
    void limitChanged();
    void totalChanged();
    void holdChanged();
    void updated();

private:
    [[nodiscard]] QVariant presented(const QVariant &value) const override;
    [[nodiscard]] QList<Alert> alerts() const;
    [[nodiscard]] Instant nextChange() const;
    void follow(AppStore &store);
    void onTick();
    void scheduleUpdate();
    void startOver();
    void update();
    void fill(QList<KeyedRow> &rows, QList<Alert> shown) const;
    [[nodiscard]] QList<KeyedRow> heldRowsOf(QList<Alert> &shown) const;
    [[nodiscard]] KeyedRow keyedRow(Alert alert) const;
    [[nodiscard]] KeyedRow rowAfterLeaving(const KeyedRow &row) const;
    void setTotal(int total);

    QPointer<AppStore> m_store;
    List m_list = List::NeedsReply;
    int m_limit = 0;
    int m_choiceLimit = 0;
    int m_total = 0;
    bool m_isComplete = false;
    bool m_updateScheduled = false;
    int m_heldRows = 0;
    bool m_takesNewRows = true;
    /// Another list is wanted: none of the rows shown is held in it.
    bool m_startsOver = false;
    QSet<QString> m_letGo;
    /// The rows are right from the one instant until before the other.
    Instant m_validFrom = distantPast;
    Instant m_validUntil = distantPast;
};

} // namespace pingwell
