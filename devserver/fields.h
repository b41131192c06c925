#pragma once

#include "model/raw_value.h"
#include "refusal.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell::devserver {

// The typed reading of a request body. Each throws a 400 `Refusal` that names the key when the value has another type;
// null counts as absent.

std::optional<QString> textField(const QJsonObject &body, const QString &key);
/// Throws also when the text is absent or blank; trimmed.
QString requiredText(const QJsonObject &body, const QString &key);
std::optional<bool> flagField(const QJsonObject &body, const QString &key);
/// A number between the bounds, inclusive.
std::optional<double> numberField(const QJsonObject &body, const QString &key, double least, double most);
std::optional<QStringList> textListField(const QJsonObject &body, const QString &key);

/// The case whose word the text is; throws when it is none of them.
template<typename Enumeration>
std::optional<Enumeration> wordField(const QJsonObject &body, const QString &key)
{
    const std::optional<QString> word = textField(body, key);
    if (!word)
        return std::nullopt;
    if (const std::optional<Enumeration> value = fromRawValue<Enumeration>(*word))
        return value;
    QStringList words;
    for (const auto &entry : rawValues<Enumeration>)
        words.append(entry.word);
    throw badRequest(QStringLiteral("“%1” must be one of: %2.").arg(key, words.join(QStringLiteral(", "))));
}

} // namespace pingwell::devserver
