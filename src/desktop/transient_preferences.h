#pragma once

#include "desktop/preferences.h"

#include <QMap>

#include <variant>

namespace pingwell {

/// Preferences in memory, for a run that must leave nothing behind, such as the demo. They are lost with the object;
/// `lasts` still returns true, because nobody expects to find them again.
class TransientPreferences : public Preferences
{
public:
    [[nodiscard]] bool contains(const QString &key) const override { return m_values.contains(key); }
    [[nodiscard]] std::optional<QString> string(const QString &key) const override { return get<QString>(key); }
    [[nodiscard]] std::optional<QByteArray> data(const QString &key) const override { return get<QByteArray>(key); }
    [[nodiscard]] std::optional<bool> boolean(const QString &key) const override { return get<bool>(key); }
    [[nodiscard]] std::optional<double> number(const QString &key) const override { return get<double>(key); }
    [[nodiscard]] std::optional<QStringList> strings(const QString &key) const override
    {
        return get<QStringList>(key);
    }

    void setString(const QString &key, const QString &value) override { m_values.insert(key, value); }
    void setData(const QString &key, const QByteArray &value) override { m_values.insert(key, value); }
    void setBoolean(const QString &key, bool value) override { m_values.insert(key, value); }
    void setNumber(const QString &key, double value) override { m_values.insert(key, value); }
    void setStrings(const QString &key, const QStringList &value) override { m_values.insert(key, value); }
    void remove(const QString &key) override { m_values.remove(key); }
    void removeAll() override { m_values.clear(); }
    [[nodiscard]] bool isWhole() const override { return true; }
    [[nodiscard]] bool lasts() const override { return true; }
    void flush() override {}
    void whenWritten(std::function<void(bool lasts)> then) override { then(true); }

    [[nodiscard]] QStringList keys() const { return m_values.keys(); }

private:
    using Value = std::variant<QString, QByteArray, bool, double, QStringList>;

    template<typename Type>
    std::optional<Type> get(const QString &key) const
    {
        const auto found = m_values.constFind(key);
        if (found == m_values.constEnd() || !std::holds_alternative<Type>(*found))
            return std::nullopt;
        return std::get<Type>(*found);
    }

    QMap<QString, Value> m_values;
};

} // namespace pingwell
