#pragma once

#include "desktop/preferences.h"

#include <QHash>
#include <QJsonObject>
#include <QSet>

#include <memory>

namespace pingwell {

/// Preferences in one JSON file. Every change is on the disk when the call returns: the file is replaced as a whole,
/// under a lock, and only the changed keys are laid over what it holds by then, so that two programs on one file lose
/// none of each other's keys, nor those of a later version.
class JsonPreferences final : public Preferences
{
public:
    /// Reads the file at `path`; one that does not exist is created by the first change. A damaged one is set aside
    /// under another name; one that may not be read stays as it is, and nothing is kept in this run.
    explicit JsonPreferences(QString path);
    /// Tries once more to write what could not be written before.
    ~JsonPreferences() override;
    Q_DISABLE_COPY_MOVE(JsonPreferences)

    /// The preferences of `domain`; none where its file can't be both read and written, or the name is no file name.
    [[nodiscard]] static std::unique_ptr<JsonPreferences> openSuite(const QString &domain);
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
    [[nodiscard]] bool lasts() const override { return m_unwritten.isEmpty() && !m_forgetsPresent; }

private:
    void change(const QString &key, const QJsonValue &value);
    bool writeChanges();
    bool readPresent(QJsonObject &present);
    [[nodiscard]] QJsonObject merged(QJsonObject present) const;
    bool fail(const QString &what, const QString &reason);

    QString m_path;
    QJsonObject m_values;
    // What the file does not have yet; an undefined value stands for a removed key.
    QHash<QString, QJsonValue> m_unwritten;
    bool m_forgetsPresent = false;
    bool m_isWhole = true;
    QSet<QString> m_reported;
};

} // namespace pingwell
