#include "api/unpacked_response.h"

#include <zlib.h>

#include <algorithm>

namespace pingwell {

namespace {

constexpr qsizetype stepBytes = qsizetype{256} * 1024;
/// zlib's option that accepts gzip and deflate and recognises them by their first bytes.
constexpr int gzipOrDeflate = 15 + 32;

/// One run of zlib's inflate; the destructor frees zlib's memory.
class Inflation
{
public:
    explicit Inflation(const QByteArray &packed)
    {
        // zlib reads these bytes and never writes them, despite its signature. A body is far below 4 GiB.
        m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.constData()));
        m_stream.avail_in = static_cast<uInt>(packed.size());
        m_state = inflateInit2(&m_stream, gzipOrDeflate);
    }
    ~Inflation() { inflateEnd(&m_stream); }
    Q_DISABLE_COPY_MOVE(Inflation)

    [[nodiscard]] bool goesOn() const { return m_state == Z_OK; }
    [[nodiscard]] bool isComplete() const { return m_state == Z_STREAM_END; }

    /// Unpacks the next bytes into `body`. zlib reports input that ends too early as an error, too.
    void step(QByteArray &body)
    {
        const qsizetype before = body.size();
        body.resize(before + stepBytes);
        m_stream.next_out = reinterpret_cast<Bytef *>(body.data() + before);
        m_stream.avail_out = static_cast<uInt>(stepBytes);
        m_state = inflate(&m_stream, Z_NO_FLUSH);
        body.truncate(body.size() - qsizetype(m_stream.avail_out));
    }

private:
    z_stream m_stream{};
    int m_state = Z_OK;
};

bool isPacked(const QByteArray &encoding)
{
    return encoding == "gzip" || encoding == "x-gzip" || encoding == "deflate";
}

} // namespace

Outcome<HTTPResponse> unpacked(const HTTPResponse &response, qint64 limit)
{
    if (response.body.isEmpty() || !isPacked(response.contentEncoding))
        return response;
    const qint64 allowed = std::min(limit, freelyUnpackedBytes + unpackedBytesPerByte * response.body.size());
    HTTPResponse plain = response;
    plain.body.clear();
    plain.contentEncoding.clear();
    Inflation inflation(response.body);
    while (inflation.goesOn()) {
        inflation.step(plain.body);
        if (plain.body.size() > allowed)
            return APIError::tooLarge();
    }
    if (!inflation.isComplete())
        return APIError::badResponse();
    return plain;
}

} // namespace pingwell
