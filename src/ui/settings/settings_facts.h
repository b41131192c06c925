#pragma once

#include "store/app_store.h"

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// What a picker offers: the words of the choices, and as many labels in the same order.
struct Choices
{
    Q_GADGET
    QML_VALUE_TYPE(choices)
    Q_PROPERTY(QList<QString> values MEMBER values FINAL)
    Q_PROPERTY(QList<QString> labels MEMBER labels FINAL)

public:
    QStringList values;
    QStringList labels;

    friend bool operator==(const Choices &, const Choices &) = default;
};

/// Whose settings they are, cleaned for display.
struct AccountFacts
{
    Q_GADGET
    QML_VALUE_TYPE(accountFacts)
    Q_PROPERTY(bool isPresent MEMBER isPresent FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString email MEMBER email FINAL)
    Q_PROPERTY(QString provider MEMBER provider FINAL)
    Q_PROPERTY(QString plan MEMBER plan FINAL)

public:
    bool isPresent = false;
    QString name;
    QString email;
    /// Its own name: "Google" or "GitHub".
    QString provider;
    QString plan;

    friend bool operator==(const AccountFacts &, const AccountFacts &) = default;
};

/// How long the active workspace's asks wait, and what becomes of them then.
struct ResponseTimeFacts
{
    Q_GADGET
    QML_VALUE_TYPE(responseTimeFacts)
    Q_PROPERTY(bool isPresent MEMBER isPresent FINAL)
    Q_PROPERTY(QString workspace MEMBER workspace FINAL)
    Q_PROPERTY(bool canManage MEMBER canManage FINAL)
    Q_PROPERTY(QString timeout MEMBER timeout FINAL)
    Q_PROPERTY(pingwell::Choices timeouts MEMBER timeouts FINAL)
    Q_PROPERTY(QString action MEMBER action FINAL)
    Q_PROPERTY(pingwell::Choices actions MEMBER actions FINAL)
    Q_PROPERTY(QString actionDetail MEMBER actionDetail FINAL)

public:
    /// There is an active workspace.
    bool isPresent = false;
    QString workspace;
    bool canManage = false;
    /// Minutes, as a decimal. What the service holds is among the choices, however unusual it is.
    QString timeout;
    Choices timeouts;
    /// The action in force, and the ones that the workspace may choose from.
    QString action;
    Choices actions;
    QString actionDetail;

    friend bool operator==(const ResponseTimeFacts &, const ResponseTimeFacts &) = default;
};

/// When and how the person is notified.
struct NotificationFacts
{
    Q_GADGET
    QML_VALUE_TYPE(notificationFacts)
    Q_PROPERTY(bool quietHours MEMBER quietHours FINAL)
    Q_PROPERTY(QString quietFrom MEMBER quietFrom FINAL)
    Q_PROPERTY(pingwell::Choices quietFromChoices MEMBER quietFromChoices FINAL)
    Q_PROPERTY(QString quietTo MEMBER quietTo FINAL)
    Q_PROPERTY(pingwell::Choices quietToChoices MEMBER quietToChoices FINAL)
    Q_PROPERTY(bool digest MEMBER digest FINAL)
    Q_PROPERTY(bool sound MEMBER sound FINAL)

public:
    bool quietHours = false;
    /// As the service holds them; each is among its choices, besides the full hours.
    QString quietFrom;
    Choices quietFromChoices;
    QString quietTo;
    Choices quietToChoices;
    bool digest = false;
    bool sound = false;

    friend bool operator==(const NotificationFacts &, const NotificationFacts &) = default;
};

[[nodiscard]] AccountFacts accountFacts(const AppStore &store);
[[nodiscard]] ResponseTimeFacts responseTimeFacts(const AppStore &store);
[[nodiscard]] NotificationFacts notificationFacts(const AppStore &store);

} // namespace pingwell
