#include "text/time_format.h"

#include <cmath>

namespace pingwell {

namespace {

/// `value` truncated towards zero, as decimal text. Printing the double avoids an integer overflow for huge values.
QString wholeText(double value)
{
    return QString::number(std::trunc(value), 'f', 0);
}

QString numberText(std::int64_t value)
{
    return QString::number(value);
}

} // namespace

QString countdownText(double seconds)
{
    if (!std::isfinite(seconds))
        return QStringLiteral("\u2014");
    if (seconds < 60)
        return wholeText(std::ceil(std::max(seconds, 0.0))) + u's';
    const double minutes = std::trunc(seconds / 60);
    if (minutes > 59)
        return wholeText(minutes / 60) + u'h';
    return wholeText(minutes) + u'm';
}

QString durationText(std::int64_t minutes)
{
    if (minutes <= 59)
        return numberText(minutes) + u'm';
    if (minutes % 60 == 0)
        return numberText(minutes / 60) + u'h';
    return numberText(minutes / 60) + QStringLiteral("h ") + numberText(minutes % 60) + u'm';
}

QString shortAge(Instant at, Instant now)
{
    const double interval = (now - at).count();
    // The comparison is written so that NaN reads as "now", too.
    if (!(interval >= 60))
        return QStringLiteral("now");
    if (interval < 3600)
        return wholeText(interval / 60) + u'm';
    if (interval < 86400)
        return wholeText(interval / 3600) + u'h';
    return wholeText(interval / 86400) + u'd';
}

QString relativeAge(Instant at, Instant now)
{
    const QString age = shortAge(at, now);
    return age == u"now" ? QStringLiteral("just now") : QString(age + QStringLiteral(" ago"));
}

QString minutesText(std::int64_t minutes)
{
    if (minutes <= 59)
        return numberText(minutes) + QStringLiteral(" minutes");
    if (minutes == 60)
        return QStringLiteral("1 hour");
    return numberText(minutes / 60) + QStringLiteral(" hours");
}

const QStringList &hourLabels()
{
    static const QStringList labels = [] {
        QStringList hours;
        for (int hour = 0; hour < 24; ++hour)
            hours << QStringLiteral("%1:00").arg(hour, 2, 10, QLatin1Char('0'));
        return hours;
    }();
    return labels;
}

} // namespace pingwell
