#include "text/initials.h"

#include <QStringList>
#include <QTextBoundaryFinder>

namespace pingwell {

namespace {

/// The first letter with the accents that are encoded as separate characters after it.
QString firstLetter(const QString &word)
{
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, word);
    const qsizetype end = letters.toNextBoundary();
    return word.left(end).toUpper();
}

} // namespace

QString initialsOf(const QString &name)
{
    const QStringList words = name.split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return QStringLiteral("?");
    const QString first = firstLetter(words.first());
    return words.size() > 1 ? first + firstLetter(words.last()) : first;
}

} // namespace pingwell
