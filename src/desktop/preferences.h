#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace pingwell {

/// What the program remembers between runs: a map from keys to typed values. A value read as another type than it was
/// written in counts as absent. A change holds at once and is written behind it; one that can't be written is reported
/// on standard output, holds for this run and is tried again. Main thread, where nothing is said.
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
    /// Whether all whose writing has been tried will still be there in the next run.
    [[nodiscard]] virtual bool lasts() const = 0;
    /// Waits, at most 2 s, until all that was changed has been written or could not be. Any thread; what must not wait
    /// for the disk uses `whenWritten`.
    virtual void flush() = 0;
    /// Calls `then` once all that was changed so far has been written, or could not be, and says whether it lasts:
    /// before it returns where nothing is left to write, else from the event loop, and never once this is gone.
    virtual void whenWritten(std::function<void(bool lasts)> then) = 0;
};

} // namespace pingwell
