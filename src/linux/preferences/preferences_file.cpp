#include "linux/preferences/preferences_file.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

constexpr QFile::Permissions ownerReadsAndWrites = QFile::ReadOwner | QFile::WriteOwner;

/// Syncs the folder of `path`, so that renaming a file in it survives a power failure.
void syncFolderOf(const QString &path)
{
    const int folder =
        ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace

PreferencesContent readPreferencesFile(const QString &path)
{
    using Kind = PreferencesContent::Kind;
    QFile file(path);
    if (!file.exists() && !QFileInfo(path).isSymLink())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return {.kind = Kind::unreadable, .error = file.errorString()};
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError)
        return {.kind = Kind::unreadable, .error = file.errorString()};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return {.kind = Kind::damaged, .error = error.errorString()};
    if (!document.isObject())
        return {.kind = Kind::damaged, .error = u"not an object"_s};
    return {.object = document.object()};
}

std::optional<QString> replacePreferencesFile(const QString &path, const QJsonObject &content)
{
    QSaveFile file(path);
    // Unbuffered: a buffer that could be written only in part, as on a full disk, would be reported as written.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !file.setPermissions(ownerReadsAndWrites))
        return file.errorString();
    const QByteArray bytes = QJsonDocument(content).toJson();
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return u"no room for it"_s;
    }
    if (!file.commit())
        return file.errorString();
    syncFolderOf(path);
    return std::nullopt;
}

QString setPreferencesFileAside(const QString &path)
{
    for (int number = 1; number < 1000; ++number) {
        const QString name = u"%1.damaged-%2"_s.arg(path).arg(number);
        // QFile::rename fails if another program has created that name since the check.
        if (!QFile::exists(name) && QFile::rename(path, name))
            return name;
    }
    return {};
}

bool makePreferencesFolder(const QString &path)
{
    const QDir folder = QFileInfo(path).dir();
    if (folder.exists())
        return true;
    const QFileInfo self(folder.path());
    return QDir().mkpath(self.path()) &&
           QDir(self.path()).mkdir(self.fileName(), ownerReadsAndWrites | QFile::ExeOwner);
}

} // namespace pingwell
