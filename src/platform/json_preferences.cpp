#include "platform/json_preferences.h"

#include "platform/file_lock.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>

#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds longestWaitForLock(500);
constexpr QFile::Permissions ownerReadsAndWrites = QFile::ReadOwner | QFile::WriteOwner;

// JSON has no bytes: they are kept as an object of this one key.
const QString bytesKey = u"base64"_s;

void report(const QString &line)
{
    std::printf("[preferences] %s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

/// Makes the folder of `path`, for the owner alone, where there is none.
bool makeFolderOf(const QString &path)
{
    const QDir folder = QFileInfo(path).dir();
    if (folder.exists())
        return true;
    const QFileInfo self(folder.path());
    return QDir().mkpath(self.path()) &&
           QDir(self.path()).mkdir(self.fileName(), ownerReadsAndWrites | QFile::ExeOwner);
}

/// Makes the renaming of a file in the folder of `path` last through a power failure.
void syncFolderOf(const QString &path)
{
    const int folder =
        ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

struct Content
{
    enum class Kind { object, damaged, unreadable };
    Kind kind = Kind::object;
    QJsonObject object;
    QString error;
};

/// What the file at `path` holds; an empty object where there is no file.
Content contentOf(const QString &path)
{
    QFile file(path);
    if (!file.exists() && !QFileInfo(path).isSymLink())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return {.kind = Content::Kind::unreadable, .object = {}, .error = file.errorString()};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return {.kind = Content::Kind::unreadable, .object = {}, .error = file.errorString()};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return {.kind = Content::Kind::damaged, .object = {}, .error = error.errorString()};
    if (!document.isObject())
        return {.kind = Content::Kind::damaged, .object = {}, .error = u"not an object"_s};
    return {.kind = Content::Kind::object, .object = document.object(), .error = {}};
}

/// Renames the damaged file at `path` to a name that is free; its new name, or nothing.
QString setAside(const QString &path)
{
    for (int number = 1; number < 1000; ++number) {
        const QString name = u"%1.damaged-%2"_s.arg(path).arg(number);
        // QFile::rename never replaces a file.
        if (!QFile::exists(name) && QFile::rename(path, name))
            return name;
    }
    return {};
}

} // namespace

JsonPreferences::JsonPreferences(QString path)
    : m_path(std::move(path))
{
    const Content content = contentOf(m_path);
    m_isWhole = content.kind == Content::Kind::object;
    if (m_isWhole)
        m_values = content.object;
    else if (content.kind == Content::Kind::unreadable)
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
    if (isFileName && makeFolderOf(path) && QFileInfo(file.path()).isWritable() &&
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
    if (!makeFolderOf(m_path))
        return fail(u"can't be written"_s, u"no folder for it"_s);
    const FileLock lock(m_path + u".lock"_s, longestWaitForLock);
    if (!lock.isHeld())
        return fail(u"can't be locked"_s, lock.error());
    QJsonObject present;
    if (!readPresent(present))
        return false;
    const QJsonObject wanted = merged(present);
    if (wanted != present && !replace(wanted))
        return false;
    m_values = wanted;
    m_unwritten.clear();
    m_forgetsPresent = false;
    return true;
}

/// Reads what the file holds now, setting it aside when it is damaged; false where it must be left alone. The lock is
/// held.
bool JsonPreferences::readPresent(QJsonObject &present)
{
    const Content content = contentOf(m_path);
    if (content.kind == Content::Kind::unreadable)
        return fail(u"can't be read, nothing is kept in this run"_s, content.error);
    if (content.kind == Content::Kind::damaged) {
        const QString name = setAside(m_path);
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

bool JsonPreferences::replace(const QJsonObject &content)
{
    QSaveFile file(m_path);
    // Unbuffered, because a buffer that could be written only in part, as on a full disk, passes for written.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !file.setPermissions(ownerReadsAndWrites))
        return fail(u"can't be written"_s, file.errorString());
    const QByteArray bytes = QJsonDocument(content).toJson();
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return fail(u"can't be written"_s, u"no room for it"_s);
    }
    if (!file.commit())
        return fail(u"can't be written"_s, file.errorString());
    syncFolderOf(m_path);
    return true;
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
