#include "linux/preferences/shared_preferences_file.h"

#include "linux/preferences/file_lock.h"
#include "linux/preferences/preferences_file.h"
#include "model/report.h"

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds longestWaitForLock(500);

} // namespace

SharedPreferencesFile::SharedPreferencesFile(QString path)
    : m_path(std::move(path))
{
}

SharedPreferencesFile::Opened SharedPreferencesFile::open()
{
    const PreferencesContent content = readPreferencesFile(m_path);
    if (content.kind == PreferencesContent::Kind::object)
        return {.content = content.object, .isWhole = true};
    if (content.kind == PreferencesContent::Kind::unreadable) {
        fail(u"can't be read, nothing is kept in this run"_s, content.error);
        return {};
    }
    const FileLock lock(m_path + u".lock"_s, longestWaitForLock);
    if (!lock.isHeld()) {
        fail(u"is damaged and can't be locked"_s, lock.error());
        return {};
    }
    // Read again with the lock held, because another program may have renamed the damaged file meanwhile.
    return {.content = readPresent().value_or(QJsonObject())};
}

std::optional<QJsonObject> SharedPreferencesFile::write(const PreferenceChanges &changes)
{
    if (!makePreferencesFolder(m_path))
        return fail(u"can't be written"_s, u"no folder for it"_s);
    const FileLock lock(m_path + u".lock"_s, longestWaitForLock);
    if (!lock.isHeld())
        return fail(u"can't be locked"_s, lock.error());
    const std::optional<QJsonObject> present = readPresent();
    if (!present)
        return std::nullopt;
    const QJsonObject wanted = changes.over(*present);
    if (wanted == *present)
        return wanted;
    if (const auto problem = replacePreferencesFile(m_path, wanted))
        return fail(u"can't be written"_s, *problem);
    return wanted;
}

/// Reads what the file holds now. A damaged file is renamed; none when the file can't be read or renamed. Called with
/// the lock held.
std::optional<QJsonObject> SharedPreferencesFile::readPresent()
{
    const PreferencesContent content = readPreferencesFile(m_path);
    if (content.kind == PreferencesContent::Kind::unreadable)
        return fail(u"can't be read, nothing is kept in this run"_s, content.error);
    if (content.kind == PreferencesContent::Kind::damaged) {
        const QString name = setPreferencesFileAside(m_path);
        if (name.isEmpty())
            return fail(u"is damaged and can't be set aside"_s, content.error);
        report("preferences", u"%1 is damaged (%2) and was set aside as %3"_s.arg(m_path, content.error, name));
    }
    return content.object;
}

/// Reports the first failure of each kind. Returns none, so that a caller can return its result.
std::nullopt_t SharedPreferencesFile::fail(const QString &what, const QString &reason)
{
    if (!m_reported.contains(what)) {
        m_reported.insert(what);
        report("preferences", u"%1 %2: %3"_s.arg(m_path, what, reason));
    }
    return std::nullopt;
}

} // namespace pingwell
