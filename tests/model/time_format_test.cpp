#include "time_format/time_format.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace pingwell;
using namespace Qt::StringLiterals;

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
        QTest::newRow("rounds up") << 0.2 << "1s";
        QTest::newRow("rounds up to sixty") << 59.01 << "60s";
        QTest::newRow("a minute") << 60.0 << "1m";
        QTest::newRow("drops the seconds") << 3599.0 << "59m";
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
        const auto row = [](double secondsAgo, const QString &shortText, const QString &relativeText) {
            QTest::addRow("%g s", secondsAgo) << secondsAgo << shortText << relativeText;
        };
        row(-10, u"now"_s, u"just now"_s);
        row(59.9, u"now"_s, u"just now"_s);
        row(60, u"1m"_s, u"1m ago"_s);
        row(3599, u"59m"_s, u"59m ago"_s);
        row(3600, u"1h"_s, u"1h ago"_s);
        row(86399, u"23h"_s, u"23h ago"_s);
        row(86400.0 * 400, u"400d"_s, u"400d ago"_s);
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
        const auto row = [](qint64 minutes, const QString &compact, const QString &spelled) {
            QTest::addRow("%lld", minutes) << minutes << compact << spelled;
        };
        row(-5, u"-5m"_s, u"-5 minutes"_s);
        row(59, u"59m"_s, u"59 minutes"_s);
        row(60, u"1h"_s, u"1 hour"_s);
        row(90, u"1h 30m"_s, u"1 hours"_s);
        row(240, u"4h"_s, u"4 hours"_s);
    }

    void minutes()
    {
        QFETCH(qint64, minutes);
        QTEST(durationText(minutes), "compact");
        QTEST(minutesText(minutes), "spelled");
    }
};

QTEST_APPLESS_MAIN(TimeFormatTest)
#include "time_format_test.moc"
