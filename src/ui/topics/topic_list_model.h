#pragma once

#include "ui/lists/store_list_model.h"

#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What a screen shows of one topic; the name is cleaned for display.
struct TopicRow
{
    Q_GADGET
    QML_VALUE_TYPE(topicRow)
    Q_PROPERTY(QString id MEMBER id FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString summary MEMBER summary FINAL)
    Q_PROPERTY(QString minPriority MEMBER minPriority FINAL)
    Q_PROPERTY(bool quietHours MEMBER quietHours FINAL)
    Q_PROPERTY(bool muted MEMBER muted FINAL)

public:
    QString id;
    QString name;
    /// How many alerts the topic has, and whether it is quiet at night.
    QString summary;
    /// "silent", "normal", "high" or "critical".
    QString minPriority;
    bool quietHours = false;
    bool muted = false;

    friend bool operator==(const TopicRow &, const TopicRow &) = default;
};

/// The active workspace's topics in the store's order.
// The base is named in full: the registration of QML types does not look names up.
class TopicListModel : public pingwell::StoreListModel
{
    Q_OBJECT
    QML_ELEMENT
    /// The words of the priorities, and what they are called.
    Q_PROPERTY(QList<QString> priorities READ priorities CONSTANT)
    Q_PROPERTY(QList<QString> priorityLabels READ priorityLabels CONSTANT)

public:
    explicit TopicListModel(QObject *parent = nullptr);

    [[nodiscard]] QStringList priorities() const;
    [[nodiscard]] QStringList priorityLabels() const;

    /// The name a topic gets when a person calls it `typed`; empty when nothing of it can be used.
    Q_INVOKABLE QString nameFor(const QString &typed) const;
    /// By the priority's word.
    Q_INVOKABLE void setMinPriority(const QString &topicID, const QString &priority);

private:
    [[nodiscard]] QList<KeyedRow> rowsOf(const AppStore &store) override;
};

} // namespace pingwell
