#pragma once

#include "api/api_client.h"
#include "api/dashboard.h"
#include "api/decoding.h"
#include "async/background.h"

namespace pingwell {

/// What one operation asks of the service.
struct ServiceCall
{
    QByteArray method;
    QString path;
    std::optional<JSONObject> body = std::nullopt;
};

template<typename DTO>
using Mapped = decltype(std::declval<DTO>().mapped(std::declval<WireStrings &>()));

template<typename DTO>
Mapped<DTO> readBare(WireObject body, WireStrings &strings)
{
    return DTO::read(body).mapped(strings);
}

/// Of `DataEnvelope`.
template<typename DTO>
Mapped<DTO> readData(WireObject body, WireStrings &strings)
{
    return required(body.record<DTO>("data")).mapped(strings);
}

/// The first `limit` of the records.
template<typename DTO, qsizetype limit>
QList<Mapped<DTO>> readDataList(WireObject body, WireStrings &strings)
{
    QList<Mapped<DTO>> records;
    required(body.list<DTO>("data")).mapTo(records, limit, strings);
    return records;
}

/// Of `MessageDataEnvelope`.
template<typename DTO>
WithMessage<Mapped<DTO>> readMessageData(WireObject body, WireStrings &strings)
{
    WithMessage<Mapped<DTO>> result;
    result.message = ErrorEnvelope::read(body).message;
    result.record = readData<DTO>(body, strings);
    return result;
}

/// Has the client's transport perform the request. Throws `APIError::offline()`, or the transport's own `APIError`,
/// when no HTTP answer arrived.
QCoro::Task<HTTPResponse> responseTo(APIClientPtr client, HTTPRequest request);

/// Decodes the response in the thread pool.
template<typename Record>
QCoro::Task<Record> decodedInBackground(HTTPResponse response, RecordReader<Record> read)
{
    auto decode = [response = std::move(response), read] { return decoded(response, read); };
    Outcome<Record> outcome = co_await inBackground(std::move(decode));
    co_return valueOf(std::move(outcome));
}

/// Performs the call for the record in its response.
template<typename Record>
QCoro::Task<Record> request(APIClientPtr client, ServiceCall call, RecordReader<Record> read)
{
    const HTTPRequest prepared = client->makeRequest(call.method, call.path, call.body);
    const HTTPResponse response = co_await responseTo(client, prepared);
    Record record = co_await decodedInBackground(response, read);
    co_return record;
}

/// Performs the call for the sentence that the service answers with, if it does.
QCoro::Task<std::optional<QString>> requestMessage(APIClientPtr client, ServiceCall call);

/// Performs the call and only tells failure from success.
QCoro::Task<> requestNothing(APIClientPtr client, ServiceCall call);

} // namespace pingwell
