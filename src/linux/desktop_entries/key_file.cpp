#include "linux/desktop_entries/key_file.h"

#include <QStringList>

namespace pingwell {

QHash<QString, QString> keyFileGroup(const QByteArray &file, const QString &header)
{
    QHash<QString, QString> values;
    bool isInGroup = false;
    const QStringList lines = QString::fromUtf8(file).split(u'\n');
    for (const QString &untrimmed : lines) {
        const QString line = untrimmed.trimmed();
        if (line.startsWith(u'[')) {
            isInGroup = line == header;
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (!isInGroup || equals <= 0 || line.startsWith(u'#'))
            continue;
        const QString key = line.left(equals).section(u'[', 0, 0).trimmed();
        // The first value of a key is the untranslated one; translations follow and are ignored.
        if (!values.contains(key))
            values.insert(key, line.mid(equals + 1).trimmed());
    }
    return values;
}

bool saysNo(const QHash<QString, QString> &group, const QString &key)
{
    static const QStringList words{QStringLiteral("false"), QStringLiteral("0"), QStringLiteral("no"),
                                   QStringLiteral("off")};
    return words.contains(group.value(key), Qt::CaseInsensitive);
}

bool saysYes(const QHash<QString, QString> &group, const QString &key)
{
    static const QStringList words{QStringLiteral("true"), QStringLiteral("1"), QStringLiteral("yes"),
                                   QStringLiteral("on")};
    return words.contains(group.value(key), Qt::CaseInsensitive);
}

} // namespace pingwell
