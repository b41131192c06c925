#include "linux/preferences/json_preferences.h"

#include "linux/preferences/file_lock.h"
#include "linux/preferences/preferences_file.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QStandardPaths>

#include <cmath>
#include <cstdio>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds longestWaitForLock(500);

// JSON has no bytes: they are kept as an object of this one key.
const QString bytesKey = u"base64"_s;

void report(const QString &line)
{
    std::printf("[preferences] %s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace

JsonPreferences::JsonPreferences(QString path)
    : m_path(std::move(path))
{
    const PreferencesContent content = readPreferencesFile(m_path);
    m_isWhole = content.kind == PreferencesContent::Kind::object;
    if (m_isWhole)
        m_values = content.object;
    else if (content.kind == PreferencesContent::Kind::unreadable)
        fail(u"can't be read, nothing is kept in this run"_s, content.error);
    else if (const FileLock lock(m_path + u".lock"_s, longestWaitForLock); lock.isHeld())
        // Under the lock another program may turn out to have set it aside already.
        readPresent(m_values);
    else
        fail(u"is damaged and can't be locked"_s, lock.error());
}

JsonPreferences::~JsonPreferences()
{
    if (!lasts())
        writeChanges();
}

std::unique_ptr<JsonPreferences> JsonPreferences::openSuite(const QString &domain)
{
    const QString path = pathOf(domain);
    const QFileInfo file(path);
    const bool isFileName = !domain.isEmpty() && !domain.contains(u'/');
    if (isFileName && makePreferencesFolder(path) && QFileInfo(file.path()).isWritable() &&
        (!file.exists() || (file.isFile() && file.isReadable())))
        return std::make_unique<JsonPreferences>(path);
    report(u"%1 can't be used"_s.arg(path));
    return nullptr;
}

QString JsonPreferences::pathOf(const QString &domain)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return u"%1/pingwell/%2.json"_s.arg(folder, domain);
}

bool JsonPreferences::contains(const QString &key) const
{
    return m_values.contains(key);
}

std::optional<QString> JsonPreferences::string(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QByteArray> JsonPreferences::data(const QString &key) const
{
    const QJsonObject object = m_values.value(key).toObject();
    const QJsonValue text = object.value(bytesKey);
    if (object.size() != 1 || !text.isString())
        return std::nullopt;
    const auto bytes =
        QByteArray::fromBase64Encoding(text.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

std::optional<bool> JsonPreferences::boolean(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<double> JsonPreferences::number(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<QStringList> JsonPreferences::strings(const QString &key) const
{
    const QJsonValue value = m_values.value(key);
    if (!value.isArray())
        return std::nullopt;
    QStringList strings;
    const QJsonArray array = value.toArray();
    for (const QJsonValue &element : array) {
        if (!element.isString())
            return std::nullopt;
        strings << element.toString();
    }
    return strings;
}

void JsonPreferences::setString(const QString &key, const QString &value)
{
    change(key, value);
}

void JsonPreferences::setData(const QString &key, const QByteArray &value)
{
    change(key, QJsonObject{{bytesKey, QString::fromLatin1(value.toBase64())}});
}

void JsonPreferences::setBoolean(const QString &key, bool value)
{
    change(key, value);
}

void JsonPreferences::setNumber(const QString &key, double value)
{
    if (std::isfinite(value))
        change(key, value);
    else
        remove(key);
}

void JsonPreferences::setStrings(const QString &key, const QStringList &value)
{
    change(key, QJsonArray::fromStringList(value));
}

void JsonPreferences::remove(const QString &key)
{
    change(key, QJsonValue(QJsonValue::Undefined));
}

void JsonPreferences::removeAll()
{
    m_forgetsPresent = true;
    m_unwritten.clear();
    m_values = {};
    writeChanges();
}

void JsonPreferences::change(const QString &key, const QJsonValue &value)
{
    m_unwritten.insert(key, value);
    m_values.insert(key, value);
    writeChanges();
}

/// Lays what the file does not have yet over what it holds now. What can't be written stays to be tried again with the
/// next change.
bool JsonPreferences::writeChanges()
{
    if (!makePreferencesFolder(m_path))
        return fail(u"can't be written"_s, u"no folder for it"_s);
    const FileLock lock(m_path + u".lock"_s, longestWaitForLock);
    if (!lock.isHeld())
        return fail(u"can't be locked"_s, lock.error());
    QJsonObject present;
    if (!readPresent(present))
        return false;
    const QJsonObject wanted = merged(present);
    if (wanted != present) {
        if (const auto problem = replacePreferencesFile(m_path, wanted))
            return fail(u"can't be written"_s, *problem);
    }
    m_values = wanted;
    m_unwritten.clear();
    m_forgetsPresent = false;
    return true;
}

/// Reads what the file holds now, setting it aside when it is damaged; false where it must be left alone. The lock is
/// held.
bool JsonPreferences::readPresent(QJsonObject &present)
{
    const PreferencesContent content = readPreferencesFile(m_path);
    if (content.kind == PreferencesContent::Kind::unreadable)
        return fail(u"can't be read, nothing is kept in this run"_s, content.error);
    if (content.kind == PreferencesContent::Kind::damaged) {
        const QString name = setPreferencesFileAside(m_path);
        if (name.isEmpty())
            return fail(u"is damaged and can't be set aside"_s, content.error);
        report(u"%1 is damaged (%2) and was set aside as %3"_s.arg(m_path, content.error, name));
    }
    present = content.object;
    return true;
}

QJsonObject JsonPreferences::merged(QJsonObject present) const
{
    if (m_forgetsPresent)
        present = {};
    for (auto change = m_unwritten.cbegin(); change != m_unwritten.cend(); ++change)
        present.insert(change.key(), change.value());
    return present;
}

/// Reports the first failure of each kind; false, so that it can end a function.
bool JsonPreferences::fail(const QString &what, const QString &reason)
{
    if (!m_reported.contains(what)) {
        m_reported.insert(what);
        report(u"%1 %2: %3"_s.arg(m_path, what, reason));
    }
    return false;
}

} // namespace pingwell
