#include "auth/account_record.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace pingwell {

using namespace Qt::StringLiterals;

QByteArray encodedAccount(const Account &account)
{
    const QJsonObject record{
        {u"name"_s, account.name},
        {u"email"_s, account.email},
        {u"provider"_s, QString(rawValue(account.provider))},
        {u"plan"_s, account.plan},
    };
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

std::optional<Account> decodedAccount(const QByteArray &record)
{
    const QJsonObject object = QJsonDocument::fromJson(record).object();
    for (const QString &key : {u"name"_s, u"email"_s, u"provider"_s, u"plan"_s}) {
        if (!object.value(key).isString())
            return std::nullopt;
    }
    const auto provider = fromRawValue<AuthProvider>(object.value(u"provider"_s).toString());
    if (!provider)
        return std::nullopt;
    return Account{
        .name = object.value(u"name"_s).toString(),
        .email = object.value(u"email"_s).toString(),
        .provider = *provider,
        .plan = object.value(u"plan"_s).toString(),
    };
}

} // namespace pingwell
