#include "text/display_text.h"

#include <algorithm>

namespace pingwell {

namespace {

constexpr char16_t zeroWidthSpace = u'\u200B';
constexpr char16_t zeroWidthJoiner = u'\u200D';
constexpr char16_t firstStrongIsolate = u'\u2068';
constexpr char16_t popIsolate = u'\u2069';
constexpr char16_t ellipsis = u'\u2026';
constexpr qsizetype longestNewlineRun = 3;
/// Blank characters that are as wide as a letter.
constexpr char16_t wideBlanks[]{u'\u2800', u'\u3164', u'\uFFA0'};
/// A text that begins with more invisible units than this is not searched further.
constexpr qsizetype longestUnseenRun = fullDisplayLength;
constexpr qsizetype searchedUnitsPerShownUnit = 16;

bool isControl(char16_t unit)
{
    return (unit < 0x20 && unit != u'\n' && unit != u'\t') || (unit >= 0x7F && unit <= 0x9F);
}

/// Invisible characters, and characters that change the direction of the text.
bool isInvisible(char16_t unit)
{
    return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069) || unit == 0x200B ||
           unit == 0x200E || unit == 0x200F || unit == 0x061C || unit == 0x00AD || unit == 0x180E ||
           (unit >= 0x2060 && unit <= 0x2065) || (unit >= 0x206A && unit <= 0x206F) || unit == 0xFEFF ||
           (unit >= 0xFFF9 && unit <= 0xFFFC);
}

struct CharacterRange
{
    char32_t first;
    char32_t last;
};

/// The characters besides white space and control characters that draw nothing: Unicode's Default_Ignorable_Code_Point
/// (DerivedCoreProperties.txt), the empty Braille cell, and the marks of annotations and objects.
constexpr CharacterRange unseen[]{
    {0x00AD, 0x00AD}, {0x034F, 0x034F}, {0x061C, 0x061C}, {0x115F, 0x1160},   {0x17B4, 0x17B5},   {0x180B, 0x180F},
    {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x206F}, {0x2800, 0x2800},   {0x3164, 0x3164},   {0xFE00, 0xFE0F},
    {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFC}, {0x1BCA0, 0x1BCA3}, {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF}};

bool isUnseen(char32_t character)
{
    if (QChar::isSpace(character) || QChar::category(character) == QChar::Other_Control)
        return true;
    return std::any_of(std::begin(unseen), std::end(unseen), [character](const CharacterRange &range) {
        return range.first <= character && character <= range.last;
    });
}

/// The character that begins at `at`, and its length in units.
std::pair<char32_t, qsizetype> characterAt(const QString &text, qsizetype at)
{
    if (text.at(at).isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate())
        return {QChar::surrogateToUcs4(text.at(at), text.at(at + 1)), 2};
    return {text.at(at).unicode(), 1};
}

/// The position of the first visible character; the length of `text` where there is none.
qsizetype firstSeen(const QString &text)
{
    for (qsizetype at = 0; at < std::min(text.size(), longestUnseenRun);) {
        const auto [character, units] = characterAt(text, at);
        if (!isUnseen(character))
            return at;
        at += units;
    }
    return text.size();
}

bool isSpace(char16_t unit)
{
    return unit == u' ' || unit == u'\n' || unit == u'\t' || (unit > 0x7F && QChar(unit).isSpace());
}

/// Whether a line must not be broken before `unit`, because `unit` belongs to the character before it.
bool continuesCharacter(char16_t unit, char16_t previous)
{
    return QChar::isLowSurrogate(unit) || unit == zeroWidthJoiner || previous == zeroWidthJoiner ||
           QChar(unit).isMark();
}

/// Whether `raw` can be shown unchanged. Most texts can, and are not copied.
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

/// `text` cut to `length` units, never inside a surrogate pair.
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
        // An endless chain of joined characters is broken, too, but never inside a surrogate pair.
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
    // The search is bounded: millions of invisible characters would block the screen and show nothing.
    if (const qsizetype longest = searchedUnitsPerShownUnit * maximumLength; raw.size() > longest)
        return {displayText(raw.left(longest), maximumLength).text, true};
    if (firstSeen(raw) == raw.size())
        return {};
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
    // Twice the length, because white space is removed afterwards. Invisible characters at the beginning are skipped
    // and not counted.
    const qsizetype start = firstSeen(raw);
    QString text = displayText(start == 0 ? raw : raw.sliced(start), 2 * maximumLength).text;
    for (const char16_t blank : wideBlanks)
        text.replace(QChar(blank), QChar(u' '));
    const QString line = text.simplified();
    return line.size() > maximumLength ? cut(line, maximumLength) : line;
}

QString isolated(const QString &text)
{
    if (!readsRightToLeft(text))
        return text;
    return QChar(firstStrongIsolate) + text + QChar(popIsolate);
}

QString displayName(const QString &raw)
{
    return isolated(displayLine(raw));
}

QString visibleName(const QString &raw)
{
    const QString name = displayName(raw);
    return name.isEmpty() ? QStringLiteral("(no name)") : name;
}

QString seenOf(const QString &text)
{
    QString seen;
    seen.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const auto [character, units] = characterAt(text, at);
        if (character == U' ' || !isUnseen(character))
            seen.append(QStringView(text).sliced(at, units));
        at += units;
    }
    return seen.normalized(QString::NormalizationForm_KC);
}

} // namespace pingwell
