#include "linux/preferences/json_preferences.h"

#include "linux/preferences/preferences_file.h"
#include "model/report.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QStandardPaths>

#include <cmath>
#include <utility>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

// JSON has no type for bytes: they are stored as an object with this one key.
const QString bytesKey = u"base64"_s;

} // namespace

JsonPreferences::JsonPreferences(QString path, WritePolicy policy)
    : m_policy(std::move(policy))
{
    SharedPreferencesFile file(std::move(path));
    const SharedPreferencesFile::Opened opened = file.open();
    m_values = opened.content;
    m_isWhole = opened.isWhole;
    const auto onAttempt = [this] {
        QMetaObject::invokeMethod(
            &m_receiver, [this] { noteAttempt(); }, Qt::QueuedConnection);
    };
    m_writer = std::make_shared<PreferencesWriter>(std::move(file), opened.content, m_policy.delay, onAttempt);
    m_thread = std::thread([writer = m_writer] { writer->run(); });
}

JsonPreferences::~JsonPreferences()
{
    if (m_writer->finish())
        m_thread.join();
    else
        m_thread.detach();
}

std::unique_ptr<JsonPreferences> JsonPreferences::openSuite(const QString &domain, WritePolicy policy)
{
    const QString path = pathOf(domain);
    const QFileInfo file(path);
    const bool isFileName = !domain.isEmpty() && !domain.contains(u'/');
    if (isFileName && makePreferencesFolder(path) && QFileInfo(file.path()).isWritable() &&
        (!file.exists() || (file.isFile() && file.isReadable())))
        return std::make_unique<JsonPreferences>(path, std::move(policy));
    report("preferences", u"%1 can't be used"_s.arg(path));
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
    m_values = {};
    m_writer->add({.forgetsRest = true}, PreferencesWriter::Haste::atOnce);
}

void JsonPreferences::change(const QString &key, const QJsonValue &value)
{
    using Haste = PreferencesWriter::Haste;
    m_values.insert(key, value);
    m_writer->add({.values = {{key, value}}}, m_policy.isUrgent(key) ? Haste::atOnce : Haste::soon);
}

void JsonPreferences::whenWritten(std::function<void(bool lasts)> then)
{
    const quint64 attempt = m_writer->hurry();
    if (m_writer->hasEnded(attempt))
        then(lasts());
    else
        m_waiting.append({attempt, std::move(then)});
}

void JsonPreferences::noteAttempt()
{
    m_values = m_writer->content();
    // Taken out first, because a callback may call `whenWritten`.
    const QList<Waiting> waiting = std::exchange(m_waiting, {});
    for (const Waiting &one : waiting) {
        if (m_writer->hasEnded(one.attempt))
            one.then(lasts());
        else
            m_waiting.append(one);
    }
}

} // namespace pingwell
