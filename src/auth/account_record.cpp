#include "auth/account_record.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace pingwell {

namespace {

const QString nameKey = QStringLiteral("name");
const QString emailKey = QStringLiteral("email");
const QString providerKey = QStringLiteral("provider");
const QString planKey = QStringLiteral("plan");

} // namespace

QByteArray toJSON(const Account &account)
{
    const QJsonObject object{{nameKey, account.name},
                             {emailKey, account.email},
                             {providerKey, QString(rawValue(account.provider))},
                             {planKey, account.plan}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<Account> accountFromJSON(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    for (const QString &key : {nameKey, emailKey, providerKey, planKey}) {
        if (!object.value(key).isString())
            return std::nullopt;
    }
    const auto provider = fromRawValue<AuthProvider>(object.value(providerKey).toString());
    if (!provider)
        return std::nullopt;
    return Account{.name = object.value(nameKey).toString(),
                   .email = object.value(emailKey).toString(),
                   .provider = *provider,
                   .plan = object.value(planKey).toString()};
}

} // namespace pingwell
