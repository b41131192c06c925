#include "api/wire_reader.h"

#include "api/wire_repair.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace pingwell {

namespace {

/// A body may have `fewValues` values, and one more for each `fewestBytesPerValue` bytes. An alert has about one value
/// per ten bytes.
constexpr qsizetype fewValues = 1'000'000;
constexpr qsizetype fewestBytesPerValue = 10;

/// Longer texts are not shared: they hardly ever repeat.
constexpr std::size_t longestSharedText = 64;

/// Whether the body has more values than the parser may be given. The parser uses up to 24 bytes for each value,
/// however short: a body of nothing but digits and commas would use twelve times its size. Every value except the first
/// follows one of the counted characters; those inside texts are counted, too, which only makes the estimate higher.
bool isTooDense(const QByteArray &json)
{
    const qsizetype most = fewValues + json.size() / fewestBytesPerValue;
    return json.size() > most && std::count_if(json.begin(), json.end(), [](char c) {
                                     return c == ',' || c == ':' || c == '[' || c == '{';
                                 }) > most;
}

bool isRepairable(simdjson::error_code error)
{
    return error == simdjson::NUMBER_ERROR || error == simdjson::STRING_ERROR || error == simdjson::UTF8_ERROR ||
           error == simdjson::UNESCAPED_CHARS;
}

bool hasPadding(QByteArray &json)
{
    // The parser reads in blocks, up to this many bytes past the end; the array's spare capacity may be read.
    return json.data_ptr().freeSpaceAtEnd() >= qsizetype{simdjson::SIMDJSON_PADDING};
}

} // namespace

std::optional<std::string_view> WireObject::string(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    std::string_view text;
    if (!element || element->get(text) != simdjson::SUCCESS)
        return std::nullopt;
    return text;
}

std::optional<bool> WireObject::flag(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    bool flag = false;
    if (!element || element->get(flag) != simdjson::SUCCESS)
        return std::nullopt;
    return flag;
}

std::optional<std::int64_t> WireObject::integer(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    if (!element)
        return std::nullopt;
    std::int64_t integer = 0;
    if (element->get(integer) == simdjson::SUCCESS)
        return integer;
    // "30.0" and "3e1" are integers, too; 2^63 is the first number beyond the range.
    double number = 0;
    if (element->get(number) != simdjson::SUCCESS || std::trunc(number) != number || std::abs(number) >= 0x1p63)
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

std::optional<Instant> WireObject::instant(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    double milliseconds = 0;
    if (!element || element->get(milliseconds) != simdjson::SUCCESS)
        return std::nullopt;
    return instantFromMilliseconds(std::clamp(milliseconds, -maximumInstantMilliseconds, maximumInstantMilliseconds));
}

std::string_view WireObject::requiredString(std::string_view key)
{
    const std::optional<std::string_view> text = string(key);
    if (!text)
        refuse(key);
    return *text;
}

std::string_view WireObject::requiredIdentifier(std::string_view key)
{
    const std::string_view identifier = requiredString(key);
    if (identifier.size() > maximumIdentifierBytes)
        throw UnfitRecord();
    return identifier;
}

Instant WireObject::requiredInstant(std::string_view key)
{
    const std::optional<Instant> found = instant(key);
    if (!found)
        refuse(key);
    return *found;
}

void WireObject::refuse(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    if (element && !element->is_null())
        throw UnfitRecord();
    throw UndecodableRecord();
}

std::optional<WireTexts> WireObject::texts(std::string_view key)
{
    const std::optional<simdjson::dom::array> found = array(key);
    if (!found)
        return std::nullopt;
    return WireTexts(*found);
}

std::optional<WireObject> WireObject::object(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    simdjson::dom::object object;
    if (!element || element->get(object) != simdjson::SUCCESS)
        return std::nullopt;
    return WireObject(object);
}

std::optional<simdjson::dom::array> WireObject::array(std::string_view key)
{
    const std::optional<simdjson::dom::element> element = find(key);
    simdjson::dom::array array;
    if (!element || element->get(array) != simdjson::SUCCESS)
        return std::nullopt;
    return array;
}

std::optional<simdjson::dom::element> WireObject::find(std::string_view key)
{
    const simdjson::dom::object::iterator start = m_next;
    for (auto field = start; field != m_object.end(); ++field) {
        if (field.key_equals(key)) {
            m_next = field;
            ++m_next;
            return field.value();
        }
    }
    for (auto field = m_object.begin(); field != start; ++field) {
        if (field.key_equals(key)) {
            m_next = field;
            ++m_next;
            return field.value();
        }
    }
    return std::nullopt;
}

WireDocument::WireDocument(QByteArray json)
{
    if (isTooDense(json))
        return;
    simdjson::dom::element root;
    simdjson::error_code error = parse(json, root);
    if (isRepairable(error)) {
        json = withReadableTokens(json);
        error = parse(json, root);
    }
    simdjson::dom::object object;
    if (error == simdjson::SUCCESS && root.get(object) == simdjson::SUCCESS)
        m_root.emplace(object);
}

simdjson::error_code WireDocument::parse(QByteArray &json, simdjson::dom::element &root)
{
    return m_parser.parse(json.constData(), static_cast<std::size_t>(json.size()), !hasPadding(json)).get(root);
}

QString WireStrings::text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::optional<QString> WireStrings::text(std::optional<std::string_view> utf8)
{
    if (!utf8)
        return std::nullopt;
    return text(*utf8);
}

QString WireStrings::shared(std::string_view utf8)
{
    if (utf8.size() > longestSharedText)
        return text(utf8);
    Known &known = m_known[std::hash<std::string_view>()(utf8) % m_known.size()];
    if (known.utf8 != utf8)
        known = {utf8, text(utf8)};
    return known.text;
}

std::optional<QString> WireStrings::shared(std::optional<std::string_view> utf8)
{
    if (!utf8)
        return std::nullopt;
    return shared(*utf8);
}

QStringList WireStrings::sharedList(const WireTexts &texts, qsizetype limit)
{
    QStringList list;
    texts.forEach([&](std::string_view text) {
        if (list.size() < limit)
            list.append(shared(text));
    });
    return list;
}

} // namespace pingwell
