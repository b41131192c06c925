#include "text/text_cut.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace pingwell {

QString firstCharacters(const QString &text, qsizetype count)
{
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype character = 0; character < count; ++character) {
        if (graphemes.toNextBoundary() < 0)
            return text;
    }
    return text.left(graphemes.position());
}

QString withinUnits(const QString &text, qsizetype units)
{
    if (text.size() <= units)
        return text;
    QTextBoundaryFinder graphemes(QTextBoundaryFinder::Grapheme, text);
    graphemes.setPosition(units);
    const qsizetype end = graphemes.isAtBoundary() ? units : graphemes.toPreviousBoundary();
    return text.left(std::max<qsizetype>(end, 0));
}

} // namespace pingwell
