#include "api/wire_reader.h"

#include "api/wire_repair.h"

#include <cmath>
#include <functional>

namespace pingwell {

namespace {

/// Longer texts hardly repeat.
constexpr std::size_t longestSharedText = 64;

bool hasPadding(QByteArray &json)
{
    // The parser reads in blocks and may look that far past the end; the spare room of the array is ours to read.
    return json.data_ptr().freeSpaceAtEnd() >= qsizetype{simdjson::SIMDJSON_PADDING};
}

} // namespace

std::optional<WireTexts> WireTexts::of(simdjson::dom::array array)
{
    for (const simdjson::dom::element element : array) {
        if (!element.is_string())
            return std::nullopt;
    }
    return WireTexts(array);
}

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
    // "30.0" and "3e1" are integers too; 2^63 is the first number beyond the range.
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
    if (std::abs(milliseconds) > maximumInstantMilliseconds)
        return std::nullopt;
    return instantFromMilliseconds(milliseconds);
}

std::optional<WireTexts> WireObject::texts(std::string_view key)
{
    const std::optional<simdjson::dom::array> found = array(key);
    if (!found)
        return std::nullopt;
    return WireTexts::of(*found);
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
    simdjson::dom::element root;
    simdjson::error_code error = parse(json, root);
    if (error == simdjson::NUMBER_ERROR || error == simdjson::STRING_ERROR) {
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

QStringList WireStrings::sharedList(const std::optional<WireTexts> &texts)
{
    if (!texts)
        return {};
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts->size()));
    texts->forEach([this, &list](std::string_view text) { list.append(shared(text)); });
    return list;
}

} // namespace pingwell
