// A preferences file in which anything may stand: it is read or set aside, and what is written afterwards is there.
#include "auth/account_record.h"
#include "expect.h"
#include "linux/preferences/json_preferences.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

using namespace pingwell;

void readAll(const Preferences &preferences, const QString &key)
{
    static_cast<void>(preferences.string(key));
    static_cast<void>(preferences.boolean(key));
    static_cast<void>(preferences.number(key));
    static_cast<void>(preferences.strings(key));
    if (const auto record = preferences.data(key))
        static_cast<void>(decodedAccount(*record));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // In memory: a disk would be what is measured.
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/preferences-XXXXXX"));
    static const QString path = folder.filePath(QStringLiteral("a.json"));
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly));
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();
    static_cast<void>(decodedAccount(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size))));
    {
        JsonPreferences preferences(path);
        for (const char *const key : {"a", "pingwell.session.account", "pingwell.alerts.unread"})
            readAll(preferences, QString::fromLatin1(key));
        preferences.setString(QStringLiteral("written"), QStringLiteral("here"));
    }
    expect(JsonPreferences(path).string(QStringLiteral("written")) == QStringLiteral("here"));
    for (const QString &name : QDir(folder.path()).entryList(QDir::Files))
        QFile::remove(folder.filePath(name));
    return 0;
}
