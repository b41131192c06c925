#pragma once

#include "desktop/preferences.h"
#include "linux/preferences/preferences_writer.h"

#include <QJsonObject>
#include <QList>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace pingwell {

/// Decides when a change is written to the disk.
struct WritePolicy
{
    /// Whether a change of that key is written at once, so that it survives a kill that follows.
    std::function<bool(const QString &key)> isUrgent = [](const QString &) { return false; };
    /// How long other changes wait, so that several of them, such as keystrokes, are written together.
    std::chrono::milliseconds delay{300};
};

/// Preferences in one JSON file. The file is read once and kept in memory. A change takes effect at once and is written
/// on a thread of its own, so that no caller waits for the disk. Each write also reads what another program wrote to
/// keys that were not changed here; those values are taken over from the event loop.
class JsonPreferences final : public Preferences
{
public:
    /// Reads the file at `path`; a file that does not exist is created by the first change. A damaged file is renamed;
    /// an unreadable one stays as it is, and no change is stored in this run.
    explicit JsonPreferences(QString path, WritePolicy policy = {});
    /// Writes the changes that are left; waits at most 2 s.
    ~JsonPreferences() override;
    Q_DISABLE_COPY_MOVE(JsonPreferences)

    /// The preferences of `domain`; none where the file can't be both read and written, or `domain` is not a valid file
    /// name.
    [[nodiscard]] static std::unique_ptr<JsonPreferences> openSuite(const QString &domain, WritePolicy policy = {});
    /// The path of a domain's file in the person's configuration folder (freedesktop.org, XDG Base Directory).
    [[nodiscard]] static QString pathOf(const QString &domain);

    [[nodiscard]] bool contains(const QString &key) const override;
    [[nodiscard]] std::optional<QString> string(const QString &key) const override;
    [[nodiscard]] std::optional<QByteArray> data(const QString &key) const override;
    [[nodiscard]] std::optional<bool> boolean(const QString &key) const override;
    [[nodiscard]] std::optional<double> number(const QString &key) const override;
    [[nodiscard]] std::optional<QStringList> strings(const QString &key) const override;

    void setString(const QString &key, const QString &value) override;
    void setData(const QString &key, const QByteArray &value) override;
    void setBoolean(const QString &key, bool value) override;
    /// A number that JSON can't represent (infinite or NaN) removes the key.
    void setNumber(const QString &key, double value) override;
    void setStrings(const QString &key, const QStringList &value) override;
    void remove(const QString &key) override;
    void removeAll() override;
    [[nodiscard]] bool isWhole() const override { return m_isWhole; }
    [[nodiscard]] bool lasts() const override { return m_writer->succeeds(); }
    void flush() override { m_writer->flush(); }
    void whenWritten(std::function<void(bool lasts)> then) override;

private:
    struct Waiting
    {
        quint64 attempt;
        std::function<void(bool lasts)> then;
    };

    void change(const QString &key, const QJsonValue &value);
    void noteAttempt();

    WritePolicy m_policy;
    // Reports of the writing thread are delivered through this object, so that none arrives after the preferences are
    // destroyed.
    QObject m_receiver;
    QJsonObject m_values;
    bool m_isWhole = true;
    QList<Waiting> m_waiting;
    std::shared_ptr<PreferencesWriter> m_writer;
    std::thread m_thread;
};

} // namespace pingwell
