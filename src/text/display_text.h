#pragma once

#include <QString>

namespace pingwell {

/// How much of a text one view shows: more than a screenful, far below what makes text layout slow.
inline constexpr qsizetype displayLength = 8'000;
/// How much "Show all" shows.
inline constexpr qsizetype fullDisplayLength = 64'000;
/// How much of a text is shown where only one line has room.
inline constexpr qsizetype displayLineLength = 300;
/// The longest run of characters without a place to break a line.
inline constexpr qsizetype longestUnbrokenRun = 200;

/// A text made safe to show. It is only ever shown: records and answers keep the words as they came.
struct DisplayText
{
    QString text;
    /// The end was left out, or was not looked at behind very many invisible characters.
    bool isCut = false;

    friend bool operator==(const DisplayText &, const DisplayText &) = default;
};

/// `raw` without control characters (newline and tab stay), bidirectional overrides and isolates and invisible
/// characters (joiners stay, scripts and emoji need them), so that what is read is what was written; with at most three
/// newlines in a row, unbroken runs broken by zero-width spaces, and at most `maximumLength` units. Empty where nothing
/// of `raw` can be seen.
[[nodiscard]] DisplayText displayText(const QString &raw, qsizetype maximumLength = displayLength);

/// `raw` cleaned in the same way and set on one line: any white space and any other blank is one space, none at the
/// ends.
[[nodiscard]] QString displayLine(const QString &raw, qsizetype maximumLength = displayLineLength);

/// A cleaned text to be put into a sentence: kept by itself when it is written from right to left, so that it cannot
/// reorder the words around it.
[[nodiscard]] QString isolated(const QString &text);

/// A name to be put into a sentence: as `displayLine`, and isolated.
[[nodiscard]] QString displayName(const QString &raw);

/// The same for what has to be called somehow: "(no name)" where nothing of it can be seen.
[[nodiscard]] QString visibleName(const QString &raw);

/// What is seen of a line made by `displayLine`: two lines look the same when this is equal (Unicode normal form KC,
/// without the characters that leave no mark).
[[nodiscard]] QString seenOf(const QString &line);

} // namespace pingwell
