#include "desktop/preference_keys.h"
#include "linux/preferences/file_lock.h"
#include "linux/preferences/json_preferences.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr int keysOfEach = 40;

void writeKeys(const QString &path, const QString &prefix)
{
    JsonPreferences preferences(path);
    preferences.remove(u"removed"_s);
    for (int i = 0; i < keysOfEach; ++i) {
        preferences.setNumber(prefix + QString::number(i), i);
        preferences.flush();
    }
}

[[noreturn]] void countForEver(const QString &path)
{
    JsonPreferences preferences(path);
    const QString filler(20'000, u'x');
    for (;;) {
        preferences.setString(u"filler"_s, filler);
        preferences.setNumber(u"count"_s, preferences.number(u"count"_s).value_or(0) + 1);
        preferences.flush();
    }
}

/// Whether what does not fit on the disk still holds for this run.
bool holdsOnAFullDisk(const QString &path)
{
    // Beyond this size every write fails, as on a full disk.
    const rlimit limit{.rlim_cur = 4096, .rlim_max = 4096};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    JsonPreferences preferences(path);
    preferences.setString(u"big"_s, QString(10'000, u'x'));
    preferences.flush();
    return preferences.string(u"big"_s).value_or(QString()).size() == 10'000 && !preferences.lasts();
}

/// What another process does with the file at `path`; its exit status.
int play(const QString &part, const QString &path)
{
    if (part == u"counts")
        countForEver(path);
    if (part == u"fills")
        return holdsOnAFullDisk(path) ? 0 : 1;
    writeKeys(path, part);
    return 0;
}

/// Has this program play a part in another process; its process id.
pid_t start(const char *part, const QString &path)
{
    const QByteArray file = QFile::encodeName(path);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl("/proc/self/exe", "part", part, file.constData(), nullptr);
        ::_exit(127);
    }
    return child;
}

bool succeeded(pid_t child)
{
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

class JsonPreferencesTest : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_home;
    QString m_path;

    QByteArray content() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QJsonObject object() const { return QJsonDocument::fromJson(content()).object(); }
    void setContent(const QByteArray &bytes) const
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

private slots:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        m_path = m_home->filePath(u"p.json"_s);
    }

    void keepsTypesAndValues()
    {
        const QString text = u"Grüße 🐙\n\"\\"_s;
        const QByteArray bytes("\0\xff{}", 4);
        const double largestExact = 9007199254740991.0;
        JsonPreferences first(m_path);
        first.setString(u"text"_s, text);
        first.setString(u"5"_s, u"5"_s);
        first.setNumber(u"exact"_s, largestExact);
        first.setNumber(u"digits"_s, 0.1 + 0.2);
        first.setBoolean(u"false"_s, false);
        first.setData(u"bytes"_s, bytes);
        first.setStrings(u"no element"_s, {});
        first.flush();
        const JsonPreferences second(m_path);
        QVERIFY(first.isWhole() && second.isWhole());
        for (const JsonPreferences *read : {&std::as_const(first), &second}) {
            QCOMPARE(read->string(u"text"_s), std::optional(text));
            QCOMPARE(read->number(u"exact"_s), std::optional(largestExact));
            QVERIFY(read->number(u"digits"_s) == 0.1 + 0.2);
            QCOMPARE(read->boolean(u"false"_s), std::optional(false));
            QCOMPARE(read->data(u"bytes"_s), std::optional(bytes));
            QCOMPARE(read->strings(u"no element"_s), std::optional(QStringList()));
            // Nothing is read as another type.
            QVERIFY(!read->number(u"5"_s) && !read->number(u"false"_s) && !read->strings(u"text"_s));
            QVERIFY(!read->data(u"text"_s) && !read->boolean(u"exact"_s) && !read->string(u"bytes"_s));
        }
    }

    void removesNothingButWhatItIsTold()
    {
        setContent(R"({"later":{"nested":[1,null]},"id":9007199254740993,"gone":1})");
        JsonPreferences(m_path).remove(u"gone"_s);
        JsonPreferences(m_path).setNumber(u"none"_s, std::numeric_limits<double>::quiet_NaN());
        JsonPreferences(m_path).setBoolean(u"mine"_s, true);
        QCOMPARE(QJsonDocument::fromJson(content()),
                 QJsonDocument::fromJson(R"({"later":{"nested":[1,null]},"id":9007199254740993,"mine":true})"));
        JsonPreferences(m_path).removeAll();
        QCOMPARE(QJsonDocument::fromJson(content()), QJsonDocument(QJsonObject()));
    }

    void twoProgramsLoseNoneOfEachOthersKeys()
    {
        JsonPreferences(m_path).setBoolean(u"removed"_s, true);
        const pid_t one = start("one", m_path);
        const pid_t two = start("two", m_path);
        QVERIFY(succeeded(one) && succeeded(two));
        QCOMPARE(object().size(), 2 * keysOfEach);
        QVERIFY(!object().contains(u"removed"_s));
    }

    void takesOverWhatItDidNotChangeItself()
    {
        JsonPreferences here(m_path, {.delay = 1h});
        JsonPreferences there(m_path, {.delay = 1h});
        for (JsonPreferences *each : {&here, &there})
            each->setString(u"both"_s, each == &here ? u"here"_s : u"there"_s);
        there.setString(u"theirs"_s, u"there"_s);
        there.flush();
        QVERIFY(!here.contains(u"theirs"_s));
        here.flush();
        QTRY_COMPARE(here.string(u"theirs"_s), std::optional(u"there"_s));
        QCOMPARE(here.string(u"both"_s), std::optional(u"here"_s));
        QCOMPARE(object(), (QJsonObject{{u"both"_s, u"here"_s}, {u"theirs"_s, u"there"_s}}));
    }

    void writesBehindAndAtOnceWhatAKillMayNotLose()
    {
        JsonPreferences keystrokes(m_path, {.delay = 100ms});
        int pressed = 0;
        // Every 50 ms at most: what follows puts nothing off.
        QTRY_VERIFY((keystrokes.setNumber(u"pressed"_s, ++pressed), object().contains(u"pressed"_s)));

        JsonPreferences preferences(m_path, {.isUrgent = &preference_keys::mustOutlastAKill, .delay = 1h});
        preferences.setBoolean(preference_keys::selfHostedURL, true);
        QVERIFY(!object().contains(preference_keys::selfHostedURL));
        for (const QString &key :
             {preference_keys::sessionErasingOwed, preference_keys::device(QUrl(u"https://s"_s)),
              preference_keys::lastNotifiedAt, preference_keys::shownNotifications, u"pingwell.loginItem.offered"_s}) {
            preferences.setBoolean(key, true);
            QTRY_VERIFY2(object().contains(key), qPrintable(key));
        }
        QVERIFY2(object().contains(preference_keys::selfHostedURL), "the order is not kept");
    }

    void aLockedFileHoldsNobodyUp()
    {
        JsonPreferences preferences(m_path, {.delay = 1h});
        auto other = std::make_unique<FileLock>(m_path + u".lock"_s, 1s);
        QStringList told;
        const auto tell = [&told](bool lasts) { told << (lasts ? u"lasts"_s : u"does not last"_s); };
        int typed = 0;
        const auto isToldWhileTyping = [&] {
            // All of it before the attempt gives up.
            if (typed < 4)
                preferences.setNumber(u"typed"_s, ++typed);
            return !told.isEmpty();
        };
        QVERIFY(!isToldWhileTyping());
        preferences.whenWritten(tell);
        QVERIFY2(told.isEmpty(), "the caller waited for the lock");
        QTRY_VERIFY(isToldWhileTyping());
        QCOMPARE(told, QStringList{u"does not last"_s});
        QVERIFY(preferences.number(u"typed"_s) == typed && !preferences.lasts());
        other.reset();
        preferences.whenWritten(tell);
        QTRY_COMPARE(told.last(), u"lasts"_s);
        QCOMPARE(object(), (QJsonObject{{u"typed"_s, typed}}));
    }

    void aDeadDiskHoldsTheEndUpForABoundedTime()
    {
        auto preferences = std::make_unique<JsonPreferences>(m_path);
        // Who reads a pipe waits until somebody writes to it.
        QCOMPARE(::mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);
        preferences->setBoolean(u"k"_s, true);
        preferences.reset();
        // The thread left behind ends with its attempt.
        QFile pipe(m_path);
        QVERIFY(pipe.open(QIODevice::WriteOnly));
        pipe.close();
        QTRY_VERIFY(QFileInfo(m_path).isFile());
    }

    void aKilledProgramLeavesAWholeFile()
    {
        JsonPreferences(m_path).setNumber(u"count"_s, 0);
        double last = 0;
        for (int run = 0; run < 10; ++run) {
            const pid_t child = start("counts", m_path);
            // Killed in the midst of its writing, each time at another place.
            QTRY_VERIFY(object().value(u"count"_s).toDouble() > last + run);
            ::kill(child, SIGKILL);
            QVERIFY(!succeeded(child));
            QVERIFY(QJsonDocument::fromJson(content()).isObject());
            last = object().value(u"count"_s).toDouble();
        }
    }

    void aFullDiskLeavesTheFileAsItWas()
    {
        JsonPreferences(m_path).setBoolean(u"before"_s, true);
        const QByteArray before = content();
        QVERIFY(succeeded(start("fills", m_path)));
        QCOMPARE(content(), before);
    }

    void setsDamagedFilesAside()
    {
        qsizetype kept = 0;
        for (const QByteArray &bytes : {QByteArray("{\"a\":"), QByteArray(), QByteArray(R"(["a"])"),
                                        QByteArray("\0\x01\xff", 3), QByteArray(200'000, '[')}) {
            setContent(bytes);
            JsonPreferences preferences(m_path);
            QVERIFY(!preferences.isWhole());
            preferences.setBoolean(u"new"_s, true);
            preferences.flush();
            QCOMPARE(object(), (QJsonObject{{u"new"_s, true}}));
            // Each damaged file is kept, none over an earlier one.
            const auto files = QDir(m_home->path()).entryInfoList({u"*.damaged-*"_s});
            QCOMPARE(files.size(), ++kept);
            QVERIFY(std::any_of(files.begin(), files.end(), [&](const auto &f) { return f.size() == bytes.size(); }));
        }
    }

    void leavesAFileAloneThatItCannotRead()
    {
        // A folder in its place can't be read by anyone.
        QVERIFY(QDir().mkpath(m_path));
        JsonPreferences preferences(m_path);
        preferences.setBoolean(u"k"_s, true);
        preferences.flush();
        QVERIFY(!preferences.isWhole() && !preferences.lasts());
        QVERIFY(QFileInfo(m_path).isDir());
        // Once it can be, everything is written with the next change.
        QVERIFY(QDir().rmdir(m_path));
        preferences.setBoolean(u"l"_s, true);
        preferences.flush();
        QVERIFY(preferences.lasts());
        QCOMPARE(object(), (QJsonObject{{u"k"_s, true}, {u"l"_s, true}}));
    }

    void suitesArePrivateAndNamedPlainly()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_home->path()));
        const mode_t before = ::umask(0);
        const auto suite = JsonPreferences::openSuite(u"com.pingwell.mac"_s);
        suite->setBoolean(u"k"_s, true);
        suite->flush();
        ::umask(before);
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        for (const QString &path : {u"pingwell"_s, u"pingwell/com.pingwell.mac.json"_s}) {
            QVERIFY2(QFile::exists(m_home->filePath(path)), qPrintable(path));
            QVERIFY2(!(QFile::permissions(m_home->filePath(path)) & others), qPrintable(path));
        }
        QVERIFY(QDir().mkpath(m_home->filePath(u"pingwell/folder.json"_s)));
        for (const QString &domain : {QString(), u"../other"_s, u"folder"_s})
            QVERIFY2(!JsonPreferences::openSuite(domain), qPrintable(domain));
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[0], "part") == 0)
        return play(QString::fromLocal8Bit(argv[1]), QFile::decodeName(argv[2]));
    JsonPreferencesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "json_preferences_test.moc"
