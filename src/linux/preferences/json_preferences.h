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

/// When a change is written.
struct WritePolicy
{
    /// Whether a change of that key is written at once, because a kill that follows must not lose it.
    std::function<bool(const QString &key)> isUrgent = [](const QString &) { return false; };
    /// How long other changes may wait for those that follow, as keystrokes do.
    std::chrono::milliseconds delay{300};
};

/// Preferences in one JSON file. They are read once and kept in memory: a change holds at once and is written behind it
/// on a thread of its own, so that no change waits for the disk. What another program wrote meanwhile to keys that were
/// not changed here is taken over with each write, between two turns of the event loop.
class JsonPreferences final : public Preferences
{
public:
    /// Reads the file at `path`; one that does not exist is created by the first change. A damaged one is set aside
    /// under another name; one that may not be read stays as it is, and nothing is kept in this run.
    explicit JsonPreferences(QString path, WritePolicy policy = {});
    /// Writes what is left to write, at most for 2 s.
    ~JsonPreferences() override;
    Q_DISABLE_COPY_MOVE(JsonPreferences)

    /// The preferences of `domain`; none where its file can't be both read and written, or the name is no file name.
    [[nodiscard]] static std::unique_ptr<JsonPreferences> openSuite(const QString &domain, WritePolicy policy = {});
    /// The file of a domain, in the person's configuration folder (freedesktop.org, XDG Base Directory).
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
    /// A number that JSON can't hold (infinite or none) removes the key.
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
    // Word of an attempt travels through it, so that none arrives after the preferences are gone.
    QObject m_receiver;
    QJsonObject m_values;
    bool m_isWhole = true;
    QList<Waiting> m_waiting;
    std::shared_ptr<PreferencesWriter> m_writer;
    std::thread m_thread;
};

} // namespace pingwell
