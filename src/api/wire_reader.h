#pragma once

#include "api/list_count.h"
#include "model/instant.h"
#include "model/raw_value.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <simdjson.h>

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>
#include <utility>

namespace pingwell {

/// The longest identifier of a record, in bytes. Identifiers become part of addresses and of many object names on a
/// screen.
inline constexpr std::size_t maximumIdentifierBytes = 4096;

/// A required key of a record is absent or null. Caught inside the decoding of one body.
class UndecodableRecord : public std::exception
{
};

/// A record has its required keys, but one of them has a value that no record can have. A list leaves out that one
/// record.
class UnfitRecord final : public UndecodableRecord
{
};

/// The value; throws `UndecodableRecord` when it is absent.
template<typename Value>
Value required(std::optional<Value> value)
{
    if (!value)
        throw UndecodableRecord();
    return *std::move(value);
}

template<typename Record>
class WireList;

/// A list of texts. Elements that are not text are left out.
class WireTexts
{
public:
    explicit WireTexts(simdjson::dom::array array)
        : m_array(array)
    {
    }

    /// Calls `take` with every text.
    template<typename Take>
    void forEach(Take take) const
    {
        for (const simdjson::dom::element element : m_array) {
            std::string_view text;
            if (element.get(text) == simdjson::SUCCESS)
                take(text);
        }
    }

private:
    simdjson::dom::array m_array;
};

/// One JSON object, read by key. A key that is absent, null or of another type returns none. Reading is quickest in the
/// order in which the service writes the keys. Texts are views into the document, which must outlive them.
class WireObject
{
public:
    explicit WireObject(simdjson::dom::object object)
        : m_object(object)
        , m_next(object.begin())
    {
    }

    std::optional<std::string_view> string(std::string_view key);
    std::optional<bool> flag(std::string_view key);
    /// None for a number with a fraction or outside 64 bits.
    std::optional<std::int64_t> integer(std::string_view key);
    /// Milliseconds since 1970; a number outside the range of dates becomes the first or last date.
    std::optional<Instant> instant(std::string_view key);
    std::optional<WireTexts> texts(std::string_view key);
    std::optional<WireObject> object(std::string_view key);

    // Required keys. Each function throws `UndecodableRecord` for a key that is absent or null, and `UnfitRecord` for a
    // value of another type.
    std::string_view requiredString(std::string_view key);
    /// At most `maximumIdentifierBytes` long.
    std::string_view requiredIdentifier(std::string_view key);
    Instant requiredInstant(std::string_view key);

    /// Also none when the record can't be decoded.
    template<typename Record>
    std::optional<Record> record(std::string_view key);
    /// The records are decoded when the list is mapped.
    template<typename Record>
    std::optional<WireList<Record>> list(std::string_view key);

private:
    std::optional<simdjson::dom::element> find(std::string_view key);
    std::optional<simdjson::dom::array> array(std::string_view key);
    /// Throws the exception for a required key without a usable value.
    [[noreturn]] void refuse(std::string_view key);

    simdjson::dom::object m_object;
    /// Where the search for the next key starts.
    simdjson::dom::object::iterator m_next;
};

/// A parsed body.
class WireDocument
{
public:
    explicit WireDocument(QByteArray json);
    WireDocument(const WireDocument &) = delete;
    WireDocument &operator=(const WireDocument &) = delete;

    /// The body as an object; none when the body is not JSON (RFC 8259), is another kind of value, or has so many
    /// values that parsing it would use many times the memory of the body.
    [[nodiscard]] const std::optional<WireObject> &root() const { return m_root; }

private:
    simdjson::error_code parse(QByteArray &json, simdjson::dom::element &root);

    simdjson::dom::parser m_parser;
    std::optional<WireObject> m_root;
};

/// Creates the strings of one body's records. Strings that repeat (a workspace's id, an app, a topic, an action) share
/// their memory. Must not outlive the document.
class WireStrings
{
public:
    static QString text(std::string_view utf8);
    static std::optional<QString> text(std::optional<std::string_view> utf8);
    QString shared(std::string_view utf8);
    std::optional<QString> shared(std::optional<std::string_view> utf8);
    /// The first `limit` of the texts.
    QStringList sharedList(const WireTexts &texts, qsizetype limit);

private:
    struct Known
    {
        std::string_view utf8;
        QString text;
    };

    /// One slot per hash. A new string replaces the one in its slot; the only cost is less sharing.
    std::array<Known, 512> m_known;
};

/// The enumerator whose word is exactly `word`; none for any other word.
template<typename Enumeration>
std::optional<Enumeration> fromWord(std::optional<std::string_view> word)
{
    if (!word)
        return std::nullopt;
    for (const auto &entry : rawValues<Enumeration>) {
        if (*word == std::string_view(entry.word.data(), static_cast<std::size_t>(entry.word.size())))
            return entry.value;
    }
    return std::nullopt;
}

/// A list of records. They are decoded one at a time: ten thousand decoded at once would only occupy memory.
template<typename Record>
class WireList
{
public:
    explicit WireList(simdjson::dom::array array)
        : m_array(array)
    {
    }

    /// Calls `take` with every record, leaves out the unfit ones, and counts both. Throws `UndecodableRecord` for a
    /// record that lacks a required key; with `UndecodableRecord` given as `LeftOut`, such a record is left out, too.
    template<typename LeftOut = UnfitRecord, typename Take>
    ListCount forEach(Take take) const
    {
        ListCount count;
        for (const simdjson::dom::element element : m_array) {
            ++count.sent;
            try {
                simdjson::dom::object object;
                if (element.get(object) != simdjson::SUCCESS)
                    throw UnfitRecord();
                take(Record::read(WireObject(object)));
            } catch (const LeftOut &) {
                ++count.unfit;
            }
        }
        return count;
    }

    /// Appends the first `limit` records, mapped to model values, to `records`. Throws as `forEach` does.
    template<typename LeftOut = UnfitRecord, typename Mapped>
    ListCount mapTo(QList<Mapped> &records, qsizetype limit, WireStrings &strings) const
    {
        qsizetype beyond = 0;
        ListCount count = forEach<LeftOut>([&](const Record &record) {
            if (records.size() < limit)
                records.append(record.mapped(strings));
            else
                ++beyond;
        });
        count.beyond = beyond;
        return count;
    }

private:
    simdjson::dom::array m_array;
};

template<typename Record>
std::optional<Record> WireObject::record(std::string_view key)
{
    const std::optional<WireObject> found = object(key);
    if (!found)
        return std::nullopt;
    try {
        return Record::read(*found);
    } catch (const UndecodableRecord &) {
        return std::nullopt;
    }
}

template<typename Record>
std::optional<WireList<Record>> WireObject::list(std::string_view key)
{
    const std::optional<simdjson::dom::array> found = array(key);
    if (!found)
        return std::nullopt;
    return WireList<Record>(*found);
}

} // namespace pingwell
