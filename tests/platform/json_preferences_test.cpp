#include "platform/json_preferences.h"

#include <QDir>
#include <QElapsedTimer>
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

using Read = std::function<QVariant(const Preferences &)>;
using Write = std::function<void(Preferences &)>;

template<typename Value>
QVariant variant(const std::optional<Value> &value)
{
    return value ? QVariant::fromValue(*value) : QVariant();
}

QVariantMap readings(const Preferences &preferences)
{
    return {{u"string"_s, variant(preferences.string(u"k"_s))},
            {u"data"_s, variant(preferences.data(u"k"_s))},
            {u"boolean"_s, variant(preferences.boolean(u"k"_s))},
            {u"number"_s, variant(preferences.number(u"k"_s))},
            {u"strings"_s, variant(preferences.strings(u"k"_s))}};
}

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

private slots:
    void init();
    void keepsTypesAndValues_data();
    void keepsTypesAndValues();
    void removes();
    void keepsWhatItDoesNotKnow();
    void makesAPrivateFileInAPrivateFolder();
    void twoProgramsLoseNoneOfEachOthersKeys();
    void aKilledProgramLeavesAWholeFile();
    void aFullDiskLeavesTheFileAsItWas();
    void setsADamagedFileAside_data();
    void setsADamagedFileAside();
    void leavesAFileAloneThatItCannotRead();
    void opensOnlyUsableSuites_data();
    void opensOnlyUsableSuites();

private:
    [[nodiscard]] QByteArray content() const;
    void setContent(const QByteArray &bytes) const;
    [[nodiscard]] QStringList files() const;

    std::unique_ptr<QTemporaryDir> m_home;
    QString m_path;
};

void JsonPreferencesTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_home->path().toUtf8());
    m_path = JsonPreferences::pathOf(u"com.pingwell.mac"_s);
    QCOMPARE(m_path, m_home->filePath(u"pingwell/com.pingwell.mac.json"_s));
}

QByteArray JsonPreferencesTest::content() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void JsonPreferencesTest::setContent(const QByteArray &bytes) const
{
    QDir().mkpath(QFileInfo(m_path).path());
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QStringList JsonPreferencesTest::files() const
{
    return QDir(QFileInfo(m_path).path()).entryList(QDir::Files | QDir::Hidden);
}

void JsonPreferencesTest::keepsTypesAndValues_data()
{
    QTest::addColumn<Write>("write");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QVariant>("value");
    const auto text = [](const QString &value) -> Write { return [=](Preferences &p) { p.setString(u"k"_s, value); }; };
    const auto number = [](double value) -> Write { return [=](Preferences &p) { p.setNumber(u"k"_s, value); }; };
    const auto bytes = [](const QByteArray &v) -> Write { return [=](Preferences &p) { p.setData(u"k"_s, v); }; };
    const auto list = [](const QStringList &v) -> Write { return [=](Preferences &p) { p.setStrings(u"k"_s, v); }; };
    const auto add = [](const char *row, const Write &write, const char16_t *type, const QVariant &value) {
        QTest::newRow(row) << write << QString::fromUtf16(type) << value;
    };
    add("text", text(u"Grüße 🐙\n\"\\"_s), u"string", u"Grüße 🐙\n\"\\"_s);
    add("text that looks like a number", text(u"5"_s), u"string", u"5"_s);
    add("empty text", text(u""_s), u"string", u""_s);
    add("integer", number(15), u"number", 15.0);
    add("milliseconds", number(1'767'225'600'123.25), u"number", 1'767'225'600'123.25);
    add("largest exact integer", number(9'007'199'254'740'991), u"number", 9'007'199'254'740'991.0);
    add("many digits", number(0.1 + 0.2), u"number", 0.1 + 0.2);
    add("huge", number(1e300), u"number", 1e300);
    add(
        "true", [](Preferences &p) { p.setBoolean(u"k"_s, true); }, u"boolean", true);
    add(
        "false", [](Preferences &p) { p.setBoolean(u"k"_s, false); }, u"boolean", false);
    add("bytes", bytes(QByteArray("\0\xff{}", 4)), u"data", QByteArray("\0\xff{}", 4));
    add("no bytes", bytes(""), u"data", QByteArray(""));
    add("one element", list({u"a"_s}), u"strings", QStringList{u"a"_s});
    add("no element", list({}), u"strings", QStringList());
}

void JsonPreferencesTest::keepsTypesAndValues()
{
    QFETCH(Write, write);
    QFETCH(QString, type);
    QFETCH(QVariant, value);
    QVariantMap expected{{u"string"_s, {}}, {u"data"_s, {}}, {u"boolean"_s, {}}, {u"number"_s, {}}, {u"strings"_s, {}}};
    expected[type] = value;

    JsonPreferences first(m_path);
    write(first);
    QCOMPARE(readings(first), expected);
    // Another one while the first still runs: nothing waits to be written.
    const JsonPreferences second(m_path);
    QVERIFY(second.contains(u"k"_s));
    QCOMPARE(readings(second), expected);
}

void JsonPreferencesTest::removes()
{
    JsonPreferences preferences(m_path);
    preferences.setString(u"a"_s, u"1"_s);
    preferences.setNumber(u"b"_s, 2);
    preferences.setNumber(u"c"_s, 3);
    preferences.remove(u"a"_s);
    preferences.setNumber(u"b"_s, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(QJsonDocument::fromJson(content()).object(), (QJsonObject{{u"c"_s, 3}}));
    preferences.removeAll();
    QCOMPARE(QJsonDocument::fromJson(content()), QJsonDocument(QJsonObject()));
    QVERIFY(!JsonPreferences(m_path).contains(u"c"_s));
}

void JsonPreferencesTest::keepsWhatItDoesNotKnow()
{
    setContent(R"({"later":{"nested":[1,null]},"id":9007199254740993})");
    JsonPreferences(m_path).setBoolean(u"mine"_s, true);
    const QJsonObject expected{{u"later"_s, QJsonDocument::fromJson(R"({"nested":[1,null]})").object()},
                               {u"id"_s, qint64(9007199254740993)},
                               {u"mine"_s, true}};
    QCOMPARE(QJsonDocument::fromJson(content()).object(), expected);
}

void JsonPreferencesTest::makesAPrivateFileInAPrivateFolder()
{
    const mode_t before = ::umask(0);
    JsonPreferences(m_path).setBoolean(u"k"_s, true);
    ::umask(before);
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFileInfo(m_path).permissions() & others));
    QVERIFY(!(QFileInfo(QFileInfo(m_path).path()).permissions() & others));
}

void JsonPreferencesTest::twoProgramsLoseNoneOfEachOthersKeys()
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
    QVERIFY(succeeded(one));
    QVERIFY(succeeded(two));
    const QJsonObject object = QJsonDocument::fromJson(content()).object();
    QCOMPARE(object.size(), 2 * keys);
    QVERIFY(!object.contains(u"removed"_s));
}

void JsonPreferencesTest::aKilledProgramLeavesAWholeFile()
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
        QTRY_VERIFY(QJsonDocument::fromJson(content()).object().value(u"count"_s).toDouble() > last + run);
        ::kill(child, SIGKILL);
        QVERIFY(!succeeded(child));
        const QJsonDocument document = QJsonDocument::fromJson(content());
        QVERIFY(document.isObject());
        last = document.object().value(u"count"_s).toDouble();
    }
}

void JsonPreferencesTest::aFullDiskLeavesTheFileAsItWas()
{
    JsonPreferences(m_path).setBoolean(u"before"_s, true);
    const QByteArray before = content();
    const QStringList filesBefore = files();
    const pid_t child = fork([this] {
        // Beyond this size every write fails, as on a full disk.
        const rlimit limit{.rlim_cur = 4096, .rlim_max = 4096};
        std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
        JsonPreferences preferences(m_path);
        preferences.setString(u"big"_s, QString(10'000, u'x'));
        // It still holds for this run.
        if (preferences.string(u"big"_s).value_or(QString()).size() != 10'000)
            ::_exit(1);
    });
    QVERIFY(succeeded(child));
    QCOMPARE(content(), before);
    QCOMPARE(files(), filesBefore);
}

void JsonPreferencesTest::setsADamagedFileAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("cut off") << QByteArray(R"({"a":"b)");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("array") << QByteArray(R"(["a"])");
    QTest::newRow("binary") << QByteArray("\0\x01\xff", 3);
    QTest::newRow("deeply nested") << QByteArray(200'000, '[');
}

void JsonPreferencesTest::setsADamagedFileAside()
{
    QFETCH(QByteArray, bytes);
    for (int time = 1; time <= 2; ++time) {
        setContent(bytes);
        JsonPreferences preferences(m_path);
        QVERIFY(!preferences.contains(u"a"_s));
        preferences.setBoolean(u"new"_s, true);
        QCOMPARE(QJsonDocument::fromJson(content()).object(), (QJsonObject{{u"new"_s, true}}));
        // Each damaged file is kept, none over an earlier one.
        const auto kept = QDir(QFileInfo(m_path).path()).entryInfoList({u"*.damaged-*"_s});
        QCOMPARE(kept.size(), time);
        for (const QFileInfo &file : kept)
            QCOMPARE(file.size(), bytes.size());
    }
}

void JsonPreferencesTest::leavesAFileAloneThatItCannotRead()
{
    // A folder in its place can't be read by anyone; missing permissions stop only those who are not root.
    QVERIFY(QDir().mkpath(m_path));
    JsonPreferences preferences(m_path);
    preferences.setBoolean(u"k"_s, true);
    QCOMPARE(preferences.boolean(u"k"_s), std::optional(true));
    QVERIFY(QFileInfo(m_path).isDir());
    QVERIFY(!JsonPreferences(m_path).contains(u"k"_s));

    if (::geteuid() == 0)
        return;
    QVERIFY(QDir().rmdir(m_path));
    setContent(R"({"a":"b"})");
    QFile(m_path).setPermissions({});
    JsonPreferences(m_path).setBoolean(u"k"_s, true);
    QFile(m_path).setPermissions(QFile::ReadOwner);
    QCOMPARE(content(), R"({"a":"b"})");
}

void JsonPreferencesTest::opensOnlyUsableSuites_data()
{
    QTest::addColumn<QString>("domain");
    QTest::addColumn<bool>("opens");
    QTest::newRow("new") << u"com.pingwell.mac.uitest"_s << true;
    QTest::newRow("no name") << QString() << false;
    QTest::newRow("outside") << u"../other"_s << false;
    QTest::newRow("a folder") << u"folder"_s << false;
}

void JsonPreferencesTest::opensOnlyUsableSuites()
{
    QFETCH(QString, domain);
    QFETCH(bool, opens);
    QVERIFY(QDir().mkpath(JsonPreferences::pathOf(u"folder"_s)));
    QCOMPARE(JsonPreferences::openSuite(domain) != nullptr, opens);
}

QTEST_GUILESS_MAIN(JsonPreferencesTest)
#include "json_preferences_test.moc"
