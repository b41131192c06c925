#include "time_format/time_format.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace pingwell;

class TimeFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void countdown_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("text");
        QTest::newRow("no deadline") << std::numeric_limits<double>::infinity() << "—";
        QTest::newRow("not a number") << std::nan("") << "—";
        QTest::newRow("past") << -5.0 << "0s";
        QTest::newRow("zero") << 0.0 << "0s";
        QTest::newRow("rounds up") << 0.2 << "1s";
        QTest::newRow("rounds up to sixty") << 59.01 << "60s";
        QTest::newRow("a minute") << 60.0 << "1m";
        QTest::newRow("drops the seconds") << 3599.0 << "59m";
        QTest::newRow("an hour") << 3600.0 << "1h";
        QTest::newRow("drops the minutes") << 7199.0 << "1h";
        QTest::newRow("beyond any integer")
            << 1e300 << QString(QString::number(std::trunc(std::trunc(1e300 / 60) / 60), 'f', 0) + u'h');
    }

    void countdown()
    {
        QFETCH(double, seconds);
        QTEST(countdownText(seconds), "text");
    }

    void ages_data()
    {
        QTest::addColumn<double>("secondsAgo");
        QTest::addColumn<QString>("shortText");
        QTest::addColumn<QString>("relativeText");
        QTest::newRow("to come") << -10.0 << "now"
                                 << "just now";
        QTest::newRow("under a minute") << 59.9 << "now"
                                        << "just now";
        QTest::newRow("a minute") << 60.0 << "1m"
                                  << "1m ago";
        QTest::newRow("almost an hour") << 3599.0 << "59m"
                                        << "59m ago";
        QTest::newRow("an hour") << 3600.0 << "1h"
                                 << "1h ago";
        QTest::newRow("almost a day") << 86399.0 << "23h"
                                      << "23h ago";
        QTest::newRow("a day") << 86400.0 << "1d"
                               << "1d ago";
        QTest::newRow("many days") << 86400.0 * 400 << "400d"
                                   << "400d ago";
    }

    void ages()
    {
        QFETCH(double, secondsAgo);
        const Instant now{Seconds(1'700'000'000)};
        QTEST(shortAge(now - Seconds(secondsAgo), now), "shortText");
        QTEST(relativeAge(now - Seconds(secondsAgo), now), "relativeText");
    }

    void minutes_data()
    {
        QTest::addColumn<qint64>("minutes");
        QTest::addColumn<QString>("compact");
        QTest::addColumn<QString>("spelled");
        QTest::newRow("negative") << qint64(-5) << "-5m"
                                  << "-5 minutes";
        QTest::newRow("one") << qint64(1) << "1m"
                             << "1 minutes";
        QTest::newRow("just under an hour") << qint64(59) << "59m"
                                            << "59 minutes";
        QTest::newRow("an hour") << qint64(60) << "1h"
                                 << "1 hour";
        QTest::newRow("an hour and one") << qint64(61) << "1h 1m"
                                         << "1 hours";
        QTest::newRow("an hour and a half") << qint64(90) << "1h 30m"
                                            << "1 hours";
        QTest::newRow("four hours") << qint64(240) << "4h"
                                    << "4 hours";
    }

    void minutes()
    {
        QFETCH(qint64, minutes);
        QTEST(durationText(minutes), "compact");
        QTEST(minutesText(minutes), "spelled");
    }

    void hours()
    {
        QCOMPARE(hourLabels().size(), 24);
        QCOMPARE(hourLabels().first(), QStringLiteral("00:00"));
        QCOMPARE(hourLabels().last(), QStringLiteral("23:00"));
    }
};

QTEST_APPLESS_MAIN(TimeFormatTest)
#include "time_format_test.moc"
