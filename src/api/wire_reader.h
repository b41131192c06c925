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

/// The longest identifier of a record, in bytes. It becomes part of an address and of many names on a screen.
inline constexpr std::size_t maximumIdentifierBytes = 4096;

/// A record lacks something it can't do without. Never leaves the decoding of one body.
class UndecodableRecord : public std::exception
{
};

/// A record has everything it can't do without, but something of it is of a kind that no record can have. A list leaves
/// that one record out.
class UnfitRecord final : public UndecodableRecord
{
};

/// The value, which the record can't do without.
template<typename Value>
Value required(std::optional<Value> value)
{
    if (!value)
        throw UndecodableRecord();
    return *std::move(value);
}

template<typename Record>
class WireList;

/// A list of texts. An element that is something other than text is left out.
class WireTexts
{
public:
    explicit WireTexts(simdjson::dom::array array)
        : m_array(array)
    {
    }

    /// Hands every text to `take`.
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

/// One JSON object, read by key. A key that is absent, null or of another type than asked for gives none. Quickest when
/// asked in the order in which the service writes. Texts are views into the document, which must outlive them.
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
    /// None for a number with a fraction or beyond 64 bits.
    std::optional<std::int64_t> integer(std::string_view key);
    /// From milliseconds since 1970; a number beyond the range of dates is the first or last date.
    std::optional<Instant> instant(std::string_view key);
    std::optional<WireTexts> texts(std::string_view key);
    std::optional<WireObject> object(std::string_view key);

    // Of what a record can't do without. Each throws `UndecodableRecord` for a key that is absent or null, and
    // `UnfitRecord` for one that holds something else.
    std::string_view requiredString(std::string_view key);
    /// Of at most `maximumIdentifierBytes`.
    std::string_view requiredIdentifier(std::string_view key);
    Instant requiredInstant(std::string_view key);

    /// None too when the record is not decodable.
    template<typename Record>
    std::optional<Record> record(std::string_view key);
    /// The records are read when the list is mapped.
    template<typename Record>
    std::optional<WireList<Record>> list(std::string_view key);

private:
    std::optional<simdjson::dom::element> find(std::string_view key);
    std::optional<simdjson::dom::array> array(std::string_view key);
    /// Ends the reading of a record whose required key gives no value.
    [[noreturn]] void refuse(std::string_view key);

    simdjson::dom::object m_object;
    /// Where the next key is expected.
    simdjson::dom::object::iterator m_next;
};

/// A parsed body.
class WireDocument
{
public:
    explicit WireDocument(QByteArray json);
    WireDocument(const WireDocument &) = delete;
    WireDocument &operator=(const WireDocument &) = delete;

    /// The body as an object; none when it is no JSON (RFC 8259), another kind of value, or made of so many values that
    /// reading them would take many times the memory of the body.
    [[nodiscard]] const std::optional<WireObject> &root() const { return m_root; }

private:
    simdjson::error_code parse(QByteArray &json, simdjson::dom::element &root);

    simdjson::dom::parser m_parser;
    std::optional<WireObject> m_root;
};

/// Makes the texts of one body's records. Those that come again and again (a workspace's id, an app, a topic, an
/// action) share their memory. Must not outlive the document.
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

    /// One place for every hash: a newcomer takes the place of what was there, and only some sharing is lost.
    std::array<Known, 512> m_known;
};

/// The case whose word is exactly `word`; none for any other.
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

/// A list of records. They are read one at a time: ten thousand at once would only fill memory that has to be paid for.
template<typename Record>
class WireList
{
public:
    explicit WireList(simdjson::dom::array array)
        : m_array(array)
    {
    }

    /// Hands every record to `take`, leaving out the unfit ones, and counts both. Throws `UndecodableRecord` for one
    /// that lacks a key; with `LeftOut` given as that type, such a record is left out as well.
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

    /// The first `limit` records in the program's own terms, added to `records`. Throws as `forEach` does.
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
