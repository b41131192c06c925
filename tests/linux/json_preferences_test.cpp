#include "linux/preferences/json_preferences.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// Runs `work` in another process; its process id.
pid_t fork(const std::function<void()> &work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
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
        // Another one while the first still runs: nothing waits to be written.
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
        constexpr int keys = 40;
        JsonPreferences(m_path).setBoolean(u"removed"_s, true);
        const auto work = [this](const QString &prefix) {
            return [this, prefix] {
                JsonPreferences preferences(m_path);
                preferences.remove(u"removed"_s);
                for (int i = 0; i < keys; ++i)
                    preferences.setNumber(prefix + QString::number(i), i);
            };
        };
        const pid_t one = fork(work(u"one"_s));
        const pid_t two = fork(work(u"two"_s));
        QVERIFY(succeeded(one) && succeeded(two));
        QCOMPARE(object().size(), 2 * keys);
        QVERIFY(!object().contains(u"removed"_s));
    }

    void aKilledProgramLeavesAWholeFile()
    {
        JsonPreferences(m_path).setNumber(u"count"_s, 0);
        double last = 0;
        for (int run = 0; run < 10; ++run) {
            const pid_t child = fork([this] {
                JsonPreferences preferences(m_path);
                const QString filler(20'000, u'x');
                for (;;) {
                    preferences.setString(u"filler"_s, filler);
                    preferences.setNumber(u"count"_s, preferences.number(u"count"_s).value_or(0) + 1);
                }
            });
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
        const pid_t child = fork([this] {
            // Beyond this size every write fails, as on a full disk.
            const rlimit limit{.rlim_cur = 4096, .rlim_max = 4096};
            std::signal(SIGXFSZ, SIG_IGN);
            ::setrlimit(RLIMIT_FSIZE, &limit);
            JsonPreferences preferences(m_path);
            preferences.setString(u"big"_s, QString(10'000, u'x'));
            // It still holds for this run.
            if (preferences.string(u"big"_s).value_or(QString()).size() != 10'000 || preferences.lasts())
                ::_exit(1);
        });
        QVERIFY(succeeded(child));
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
        QVERIFY(!preferences.isWhole() && !preferences.lasts());
        QVERIFY(QFileInfo(m_path).isDir());
        // Once it can be, everything is written with the next change.
        QVERIFY(QDir().rmdir(m_path));
        preferences.setBoolean(u"l"_s, true);
        QVERIFY(preferences.lasts());
        QCOMPARE(object(), (QJsonObject{{u"k"_s, true}, {u"l"_s, true}}));
    }

    void suitesArePrivateAndNamedPlainly()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_home->path()));
        const mode_t before = ::umask(0);
        const auto suite = JsonPreferences::openSuite(u"com.pingwell.mac"_s);
        suite->setBoolean(u"k"_s, true);
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

QTEST_GUILESS_MAIN(JsonPreferencesTest)
#include "json_preferences_test.moc"
