#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace pingwell {

/// Values that the program remembers between runs: a map from keys to typed values. Reading a value as a type other
/// than the one it was written with returns none. A change takes effect in memory at once and is written to the disk
/// later. A change that can't be written is reported on standard output, stays in effect for this run and is written
/// with the next attempt. Main thread, unless a function says otherwise.
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
    /// Removes every key of the domain.
    virtual void removeAll() = 0;

    /// Whether everything that earlier runs stored could be read.
    [[nodiscard]] virtual bool isWhole() const = 0;
    /// Whether the last attempt to write succeeded, so that the next run will find every change it included.
    [[nodiscard]] virtual bool lasts() const = 0;
    /// Waits, at most 2 s, until every change so far has been written or its writing has failed. Any thread. Code that
    /// must not wait for the disk uses `whenWritten`.
    virtual void flush() = 0;
    /// Calls `then` when every change so far has been written or its writing has failed; `lasts` says which. Calls it
    /// before returning when nothing is left to write, else from the event loop, and never after this object is
    /// destroyed.
    virtual void whenWritten(std::function<void(bool lasts)> then) = 0;
};

} // namespace pingwell
