#include "ui/display_text.h"

#include <algorithm>

namespace pingwell {

namespace {

constexpr char16_t zeroWidthSpace = u'\u200B';
constexpr char16_t zeroWidthJoiner = u'\u200D';
constexpr char16_t firstStrongIsolate = u'\u2068';
constexpr char16_t popIsolate = u'\u2069';
constexpr char16_t ellipsis = u'\u2026';
constexpr qsizetype longestNewlineRun = 3;

bool isControl(char16_t unit)
{
    return (unit < 0x20 && unit != u'\n' && unit != u'\t') || (unit >= 0x7F && unit <= 0x9F);
}

/// Marks that change the order of what is read, or that cannot be seen at all.
bool isInvisible(char16_t unit)
{
    return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069) || unit == 0x200B ||
           unit == 0x200E || unit == 0x200F || unit == 0x061C || unit == 0x00AD || unit == 0x180E ||
           (unit >= 0x2060 && unit <= 0x2065) || (unit >= 0x206A && unit <= 0x206F) || unit == 0xFEFF;
}

bool isSpace(char16_t unit)
{
    return unit == u' ' || unit == u'\n' || unit == u'\t' || (unit > 0x7F && QChar(unit).isSpace());
}

/// Whether a line may not be broken before `unit`: it continues the character before it.
bool continuesCharacter(char16_t unit, char16_t previous)
{
    return QChar::isLowSurrogate(unit) || unit == zeroWidthJoiner || previous == zeroWidthJoiner ||
           QChar(unit).isMark();
}

/// Whether `raw` can be shown as it is; most texts can, and then nothing is copied.
bool isClean(const QString &raw)
{
    qsizetype run = 0;
    qsizetype newlines = 0;
    for (const QChar character : raw) {
        const char16_t unit = character.unicode();
        run = isSpace(unit) ? 0 : run + 1;
        newlines = unit == u'\n' ? newlines + 1 : 0;
        if (isControl(unit) || isInvisible(unit) || run > longestUnbrokenRun || newlines > longestNewlineRun)
            return false;
    }
    return true;
}

/// `text` cut to `length` units, never through a surrogate pair.
QString cut(const QString &text, qsizetype length)
{
    if (length > 0 && text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length) + QChar(ellipsis);
}

class Cleaner
{
public:
    [[nodiscard]] bool isFull(qsizetype length) const { return m_text.size() >= length; }
    [[nodiscard]] const QString &text() const { return m_text; }

    void append(char16_t unit)
    {
        if (isControl(unit) || isInvisible(unit))
            return;
        m_newlines = unit == u'\n' ? m_newlines + 1 : 0;
        if (m_newlines > longestNewlineRun)
            return;
        breakLongRun(unit);
        m_text.append(QChar(unit));
        m_previous = unit;
    }

private:
    void breakLongRun(char16_t unit)
    {
        if (isSpace(unit)) {
            m_run = 0;
            return;
        }
        // Somebody who joins characters without end gets one broken all the same, though not inside a surrogate pair.
        const bool mayBreak =
            !continuesCharacter(unit, m_previous) || (m_run >= 2 * longestUnbrokenRun && !QChar::isLowSurrogate(unit));
        if (m_run >= longestUnbrokenRun && mayBreak) {
            m_text.append(QChar(zeroWidthSpace));
            m_run = 0;
        }
        ++m_run;
    }

    QString m_text;
    qsizetype m_run = 0;
    qsizetype m_newlines = 0;
    char16_t m_previous = 0;
};

bool readsRightToLeft(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        const auto direction = character.direction();
        return direction == QChar::DirR || direction == QChar::DirAL || character.isSurrogate();
    });
}

} // namespace

DisplayText displayText(const QString &raw, qsizetype maximumLength)
{
    if (raw.size() <= maximumLength && isClean(raw))
        return {raw, false};
    Cleaner cleaner;
    for (const QChar character : raw) {
        cleaner.append(character.unicode());
        if (cleaner.isFull(maximumLength + 1))
            return {cut(cleaner.text(), maximumLength), true};
    }
    return {cleaner.text(), false};
}

QString displayLine(const QString &raw, qsizetype maximumLength)
{
    // Twice the room, for the white space that goes.
    const DisplayText cleaned = displayText(raw, 2 * maximumLength);
    const QString line = cleaned.text.simplified();
    return line.size() > maximumLength ? cut(line, maximumLength) : line;
}

QString displayName(const QString &raw)
{
    const QString line = displayLine(raw);
    if (!readsRightToLeft(line))
        return line;
    return QChar(firstStrongIsolate) + line + QChar(popIsolate);
}

QString visibleName(const QString &raw)
{
    const QString name = displayName(raw);
    return name.isEmpty() ? QStringLiteral("(no name)") : name;
}

} // namespace pingwell
