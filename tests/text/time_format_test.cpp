#include "text/time_format.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace pingwell;
using namespace Qt::StringLiterals;

class TimeFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void countdown()
    {
        const std::pair<double, QString> rows[] = {
            {std::numeric_limits<double>::infinity(), u"—"_s},
            {std::nan(""), u"—"_s},
            {-5, u"0s"_s},
            {0.2, u"1s"_s},
            {59.01, u"60s"_s},
            {60, u"1m"_s},
            {3599, u"59m"_s},
            {7199, u"1h"_s},
            {1e300, QString::number(std::trunc(std::trunc(1e300 / 60) / 60), 'f', 0) + u'h'}};
        for (const auto &[seconds, text] : rows)
            QCOMPARE(countdownText(seconds), text);
    }

    void ages()
    {
        const std::pair<double, QString> rows[] = {
            {60, u"1m"_s}, {3599, u"59m"_s}, {3600, u"1h"_s}, {86399, u"23h"_s}, {86400.0 * 400, u"400d"_s}};
        const Instant now{Seconds(1'700'000'000)};
        for (const auto &[secondsAgo, text] : rows) {
            QCOMPARE(shortAge(now - Seconds(secondsAgo), now), text);
            QCOMPARE(relativeAge(now - Seconds(secondsAgo), now), text + u" ago"_s);
        }
        for (const double secondsAgo : {-10.0, 59.9}) {
            QCOMPARE(shortAge(now - Seconds(secondsAgo), now), u"now"_s);
            QCOMPARE(relativeAge(now - Seconds(secondsAgo), now), u"just now"_s);
        }
    }

    void minutes()
    {
        const std::tuple<qint64, QString, QString> rows[] = {{-5, u"-5m"_s, u"-5 minutes"_s},
                                                             {59, u"59m"_s, u"59 minutes"_s},
                                                             {60, u"1h"_s, u"1 hour"_s},
                                                             {90, u"1h 30m"_s, u"1 hours"_s},
                                                             {240, u"4h"_s, u"4 hours"_s}};
        for (const auto &[minutes, compact, spelled] : rows) {
            QCOMPARE(durationText(minutes), compact);
            QCOMPARE(minutesText(minutes), spelled);
        }
    }
};

QTEST_APPLESS_MAIN(TimeFormatTest)
#include "time_format_test.moc"
