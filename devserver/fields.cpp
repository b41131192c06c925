#include "fields.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>

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

std::optional<double> numberField(const QJsonObject &body, const QString &key, double least, double most)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    const double number = value->toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(number >= least && number <= most))
        throw badRequest(u"“%1” must be a number between %2 and %3."_s.arg(key).arg(least).arg(most));
    return number;
}

std::optional<QStringList> textListField(const QJsonObject &body, const QString &key)
{
    const std::optional<QJsonValue> value = present(body, key);
    if (!value)
        return std::nullopt;
    const QJsonArray entries = value->toArray();
    const auto isText = [](const QJsonValue &entry) { return !entry.toString().isEmpty(); };
    if (!value->isArray() || !std::all_of(entries.begin(), entries.end(), isText))
        throw badRequest(u"“%1” must be a list of texts."_s.arg(key));
    return value->toVariant().toStringList();
}

} // namespace pingwell::devserver
