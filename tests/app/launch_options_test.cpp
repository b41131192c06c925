#include "app/launch_options.h"

#include <QTest>

using pingwell::LaunchOptions;
using namespace Qt::StringLiterals;

class LaunchOptionsTest : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
};

void LaunchOptionsTest::parse_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("hosted");
    QTest::addColumn<LaunchOptions>("expected");
    const auto row = [](const char *name, const QStringList &arguments, const LaunchOptions &expected,
                        bool hosted = false) {
        QTest::newRow(name) << (QStringList(u"pingwell"_s) + arguments) << hosted << expected;
    };
    const auto server = [](const QString &url) { return LaunchOptions{.apiBaseURL = QUrl(url)}; };

    row("nothing", {}, {});
    row("demo", {u"-demo"_s}, {.isDemo = true});
    row("test implies demo", {u"-uitest"_s}, {.isUITest = true, .isDemo = true});
    row("live test does not", {u"-uitest-live"_s}, {.isLiveUITest = true});
    row("all of a test's", {u"-uitest-popover"_s, u"-uitest-signed-out"_s, u"-uitest"_s},
        {.isUITest = true, .isDemo = true, .signedOut = true, .popoverPreview = true});
    row("under a test runner", {}, {.isDemo = true}, true);
    row("only whole arguments", {u"-uitest2"_s, u"x-demo"_s, u"--demo"_s}, {});
    row("other case", {u"-Demo"_s, u"-apibaseurl"_s, u"a.example"_s}, {});
    row("server", {u"-apiBaseURL"_s, u"http://a.example:8080"_s}, server(u"http://a.example:8080"_s));
    row("server to be tidied", {u"-apiBaseURL"_s, u"a.example/p//"_s}, server(u"https://a.example/p"_s));
    row("first server counts", {u"-apiBaseURL"_s, u"a.example"_s, u"-apiBaseURL"_s, u"b.example"_s},
        server(u"https://a.example"_s));
    row("server missing", {u"-demo"_s, u"-apiBaseURL"_s}, {.isDemo = true});
    row("server of another scheme", {u"-apiBaseURL"_s, u"ftp://a.example"_s}, {});
}

void LaunchOptionsTest::parse()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, hosted);
    QFETCH(LaunchOptions, expected);
    QProcessEnvironment environment;
    if (hosted)
        environment.insert(u"XCTestConfigurationFilePath"_s, QString());
    QVERIFY(LaunchOptions::parse(arguments, environment) == expected);
}


QTEST_GUILESS_MAIN(LaunchOptionsTest)
#include "launch_options_test.moc"
