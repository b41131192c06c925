#include "store/topic_slug.h"

#include <QRegularExpression>
#include <QTextBoundaryFinder>

namespace pingwell {

namespace {

constexpr int maximumCharacters = 40;

/// The first so many of what a person sees as characters (Unicode UAX #29).
QString firstCharacters(const QString &text, int count)
{
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    for (int character = 0; character < count; ++character) {
        if (graphemes.toNextBoundary() < 0)
            return text;
    }
    return text.left(graphemes.position());
}

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
