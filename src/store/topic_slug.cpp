#include "store/topic_slug.h"

#include "text/text_cut.h"

#include <QRegularExpression>

namespace pingwell {

namespace {

constexpr qsizetype maximumCharacters = 40;

} // namespace

QString slug(const QString &name)
{
    static const QRegularExpression others(QStringLiteral("[^a-z0-9-]+"));
    static const QRegularExpression hyphensAtTheEnds(QStringLiteral("^-+|-+$"));
    QString slug = firstCharacters(name.trimmed(), maximumCharacters).toLower();
    slug.replace(others, QStringLiteral("-"));
    slug.remove(hyphensAtTheEnds);
    return slug;
}

} // namespace pingwell
