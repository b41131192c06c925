#include "fields.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// The value under the key, none when it is absent or null.
std::optional<QJsonValue> present(const QJsonObject &body, const QString &key)
{
    const QJsonValue value = body.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return value;
}

} // namespace

std::optional<QString> textField(const QJsonObject &body, const QString &key)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    if (!value->isString())
        throw badRequest(u"“%1” must be text."_s.arg(key));
    return value->toString();
}

QString requiredText(const QJsonObject &body, const QString &key)
{
    const QString text = textField(body, key).value_or(QString()).trimmed();
    if (text.isEmpty())
        throw badRequest(u"“%1” is missing."_s.arg(key));
    return text;
}

std::optional<bool> flagField(const QJsonObject &body, const QString &key)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    if (!value->isBool())
        throw badRequest(u"“%1” must be true or false."_s.arg(key));
    return value->toBool();
}

std::optional<double> numberField(const QJsonObject &body, const QString &key)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    if (!value->isDouble())
        throw badRequest(u"“%1” must be a number."_s.arg(key));
    return value->toDouble();
}

std::optional<double> numberField(const QJsonObject &body, const QString &key, double least, double most)
{
    const std::optional<double> number = numberField(body, key);
    if (number && !(*number >= least && *number <= most))
        throw badRequest(u"“%1” must lie between %2 and %3."_s.arg(key).arg(least).arg(most));
    return number;
}

std::optional<QStringList> textListField(const QJsonObject &body, const QString &key)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    QStringList texts;
    const QJsonArray entries = value->toArray();
    for (const QJsonValue &entry : entries) {
        if (!entry.isString() || entry.toString().isEmpty())
            throw badRequest(u"“%1” must be a list of texts."_s.arg(key));
        texts.append(entry.toString());
    }
    if (!value->isArray())
        throw badRequest(u"“%1” must be a list of texts."_s.arg(key));
    return texts;
}

} // namespace pingwell::devserver
