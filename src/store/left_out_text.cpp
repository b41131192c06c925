#include "store/left_out_text.h"

#include <QLocale>
#include <QStringList>

namespace pingwell {

namespace {

struct Kind
{
    ListCount DashboardCounts::*count;
    const char *word;
};

constexpr Kind kinds[] = {
    {&DashboardCounts::alerts, "alerts"},   {&DashboardCounts::workspaces, "workspaces"},
    {&DashboardCounts::members, "members"}, {&DashboardCounts::topics, "topics"},
    {&DashboardCounts::devices, "devices"},
};

/// "3 of 12 alerts, 1 of 2 topics", by that reason; empty when there are none.
QString amounts(const DashboardCounts &counts, qint64 ListCount::*reason)
{
    const QLocale english(QLocale::English);
    QStringList parts;
    for (const Kind &kind : kinds) {
        const ListCount &count = counts.*kind.count;
        if (count.*reason > 0)
            parts << QStringLiteral("%1 of %2 %3")
                         .arg(english.toString(count.*reason), english.toString(count.sent),
                              QString::fromLatin1(kind.word));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

QString leftOutText(const DashboardCounts &counts)
{
    const QString beyond = amounts(counts, &ListCount::beyond);
    const QString unfit = amounts(counts, &ListCount::unfit);
    QStringList sentences;
    if (!beyond.isEmpty())
        sentences << QStringLiteral("The server sent more than this app can show. Not shown: %1.").arg(beyond);
    if (!unfit.isEmpty())
        sentences << QStringLiteral("The server sent something this app doesn't understand. Not shown: %1.").arg(unfit);
    return sentences.join(u' ');
}

} // namespace pingwell
