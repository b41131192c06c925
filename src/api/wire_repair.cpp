#include "api/wire_repair.h"

#include <QByteArrayView>
#include <QChar>

#include <simdjson.h>

#include <algorithm>
#include <cctype>
#include <optional>

namespace pingwell {

namespace {

constexpr qsizetype escapeLength = 6; // \uXXXX
constexpr qsizetype maximumGrowth = 1024 * 1024;
constexpr QByteArrayView replacement = "\xEF\xBF\xBD"; // U+FFFD

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isNumberPart(char c)
{
    return isDigit(c) || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

qsizetype skipDigits(QByteArrayView token, qsizetype at)
{
    while (at < token.size() && isDigit(token[at]))
        ++at;
    return at;
}

/// Whether the token is a number by the grammar of RFC 8259, section 6.
bool isNumber(QByteArrayView token)
{
    qsizetype at = token.startsWith('-') ? 1 : 0;
    const qsizetype integerEnd = skipDigits(token, at);
    if (integerEnd == at || (token[at] == '0' && integerEnd > at + 1))
        return false;
    at = integerEnd;
    if (at < token.size() && token[at] == '.') {
        const qsizetype fractionEnd = skipDigits(token, at + 1);
        if (fractionEnd == at + 1)
            return false;
        at = fractionEnd;
    }
    if (at < token.size() && (token[at] == 'e' || token[at] == 'E')) {
        ++at;
        if (at < token.size() && (token[at] == '+' || token[at] == '-'))
            ++at;
        const qsizetype exponentEnd = skipDigits(token, at);
        if (exponentEnd == at)
            return false;
        at = exponentEnd;
    }
    return at == token.size();
}

/// The length of the UTF-8 sequence that begins with this byte; 1 for a byte that begins none.
qsizetype sequenceLength(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    if (byte >= 0xF0)
        return 4;
    if (byte >= 0xE0)
        return 3;
    return byte >= 0xC0 ? 2 : 1;
}

bool isContinuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20;
}

/// Whether the character needs no escape in a string.
bool isPlain(char c)
{
    return static_cast<unsigned char>(c) < 0x80 && !isControl(c) && c != '"' && c != '\\';
}

/// The replacement of a raw control character: an escape for line breaks and tabs, else U+FFFD.
QByteArrayView escaped(char control)
{
    switch (control) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    }
    return replacement;
}

/// The UTF-16 code unit of the escape at the beginning of `text`; none when `text` begins with no such escape.
std::optional<char16_t> escapedUnit(QByteArrayView text)
{
    if (text.size() < escapeLength || !text.startsWith("\\u"))
        return std::nullopt;
    const QByteArrayView digits = text.sliced(2, escapeLength - 2);
    bool isHexadecimal = false;
    const uint unit = digits.toUInt(&isHexadecimal, 16);
    if (!isHexadecimal || !std::all_of(digits.begin(), digits.end(), [](char c) { return std::isxdigit(c); }))
        return std::nullopt;
    return static_cast<char16_t>(unit);
}

class Repair
{
public:
    explicit Repair(QByteArrayView json)
        : m_largest(json.size() + maximumGrowth)
        , m_rest(json)
    {
        m_result.reserve(json.size());
    }

    QByteArray run()
    {
        while (!m_rest.isEmpty()) {
            if (m_result.size() > m_largest)
                return {};
            if (m_inString)
                takeInString();
            else
                takeOutsideStrings();
        }
        return m_result;
    }

private:
    void keep(qsizetype length)
    {
        length = std::min(length, m_rest.size());
        m_result.append(m_rest.first(length));
        m_rest = m_rest.sliced(length);
    }

    void replace(qsizetype length, QByteArrayView with)
    {
        m_result.append(with);
        m_rest = m_rest.sliced(length);
    }

    void takeOutsideStrings()
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isNumberPart);
        const QByteArrayView token = m_rest.first(end - m_rest.begin());
        if (token.isEmpty()) {
            m_inString = m_rest.startsWith('"');
            keep(1);
        } else if (isNumber(token) && !isTaken(token)) {
            replace(token.size(), token.startsWith('-') ? "-1e300" : "1e300");
        } else {
            keep(token.size());
        }
    }

    void takeInString()
    {
        const char first = m_rest.front();
        if (isPlain(first)) {
            keep(std::find_if_not(m_rest.begin(), m_rest.end(), isPlain) - m_rest.begin());
        } else if (isControl(first)) {
            replace(1, escaped(first));
        } else if (first == '"') {
            m_inString = false;
            keep(1);
        } else if (first == '\\') {
            takeEscape();
        } else {
            takeSequence();
        }
    }

    /// Copies one sequence that begins with a byte above 127.
    void takeSequence()
    {
        qsizetype length = 1;
        const qsizetype wanted = std::min(sequenceLength(m_rest.front()), m_rest.size());
        while (length < wanted && isContinuation(m_rest[length]))
            ++length;
        if (simdjson::validate_utf8(m_rest.data(), static_cast<std::size_t>(length)))
            keep(length);
        else
            replace(length, replacement);
    }

    void takeEscape()
    {
        const std::optional<char16_t> unit = escapedUnit(m_rest);
        if (!unit) {
            // Copies the escape together with the character after it, which may be a quotation mark. It needs no
            // repair.
            const bool escapes = m_rest.size() > 1 && (isPlain(m_rest[1]) || m_rest[1] == '"' || m_rest[1] == '\\');
            keep(escapes ? 2 : 1);
            return;
        }
        if (!QChar::isSurrogate(*unit)) {
            keep(escapeLength);
            return;
        }
        const std::optional<char16_t> next = escapedUnit(m_rest.sliced(escapeLength));
        if (QChar::isHighSurrogate(*unit) && next && QChar::isLowSurrogate(*next))
            keep(2 * escapeLength);
        else
            replace(escapeLength, "\\ufffd");
    }

    /// Whether the parser accepts the number. Only the parser knows which numbers are out of its range.
    bool isTaken(QByteArrayView token)
    {
        return m_parser.parse(token.data(), static_cast<std::size_t>(token.size())).error() == simdjson::SUCCESS;
    }

    simdjson::dom::parser m_parser;
    qsizetype m_largest;
    QByteArrayView m_rest;
    QByteArray m_result;
    bool m_inString = false;
};

} // namespace

QByteArray withReadableTokens(const QByteArray &json)
{
    return Repair(json).run();
}

} // namespace pingwell
