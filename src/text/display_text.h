#pragma once

#include <QString>

namespace pingwell {

/// The longest text in one view, in UTF-16 units: more than a screenful, far less than what slows text layout down.
inline constexpr qsizetype displayLength = 8'000;
/// The longest text after "Show all".
inline constexpr qsizetype fullDisplayLength = 64'000;
/// The longest text where there is room for one line only.
inline constexpr qsizetype displayLineLength = 300;
/// The longest run of characters without a place to break the line.
inline constexpr qsizetype longestUnbrokenRun = 200;

/// A text made safe to show. It is used for display only: records and answers keep the original text.
struct DisplayText
{
    QString text;
    /// The end was left out, or the search ended after very many invisible characters.
    bool isCut = false;

    friend bool operator==(const DisplayText &, const DisplayText &) = default;
};

/// `raw` for display, so that people see the text as it is: without control characters (newline and tab stay),
/// bidirectional overrides and isolates, and invisible characters (joiners stay, scripts and emoji need them). It has
/// at most three newlines in a row, zero-width spaces in long unbroken runs, and at most `maximumLength` units. Empty
/// when `raw` has no visible character.
[[nodiscard]] DisplayText displayText(const QString &raw, qsizetype maximumLength = displayLength);

/// `raw` cleaned in the same way, on one line: every run of white space or other blanks becomes one space, and none is
/// left at either end.
[[nodiscard]] QString displayLine(const QString &raw, qsizetype maximumLength = displayLineLength);

/// A cleaned text for use inside a sentence. Text that is written from right to left is isolated, so that it cannot
/// reorder the words around it.
[[nodiscard]] QString isolated(const QString &text);

/// A name for use inside a sentence: `displayLine`, isolated.
[[nodiscard]] QString displayName(const QString &raw);

/// The same, but "(no name)" where the name has no visible character.
[[nodiscard]] QString visibleName(const QString &raw);

/// The visible content of a line made by `displayLine`, for comparison: two lines look the same when their results are
/// equal (Unicode normal form KC, without invisible characters).
[[nodiscard]] QString seenOf(const QString &line);

} // namespace pingwell
