#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// What the program remembers between runs: a map from keys to typed values. A value read as another type than it was
/// written in counts as absent. A write lasts once the call has returned; one that fails is reported on standard output
/// and the value holds for this run. Main thread.
class Preferences
{
public:
    virtual ~Preferences() = default;

    [[nodiscard]] virtual bool contains(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<QString> string(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<QByteArray> data(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<bool> boolean(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<double> number(const QString &key) const = 0;
    [[nodiscard]] virtual std::optional<QStringList> strings(const QString &key) const = 0;

    virtual void setString(const QString &key, const QString &value) = 0;
    virtual void setData(const QString &key, const QByteArray &value) = 0;
    virtual void setBoolean(const QString &key, bool value) = 0;
    virtual void setNumber(const QString &key, double value) = 0;
    virtual void setStrings(const QString &key, const QStringList &value) = 0;
    virtual void remove(const QString &key) = 0;
    /// Forgets every key of the domain.
    virtual void removeAll() = 0;

    /// Whether all that earlier runs kept could be read.
    [[nodiscard]] virtual bool isWhole() const = 0;
    /// Whether all that was written will still be there in the next run.
    [[nodiscard]] virtual bool lasts() const = 0;
};

} // namespace pingwell
