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

/// Has the client's transport perform the call; here alone it is decided that an answer which is not HTTP is none,
/// which is `APIError::offline()`.
QCoro::Task<Outcome<HTTPResponse>> responseTo(APIClientPtr client, ServiceCall call);

/// Decodes the response in the thread pool.
template<typename Record>
QCoro::Task<Outcome<Record>> decodedInBackground(HTTPResponse response, RecordReader<Record> read)
{
    auto decode = [response = std::move(response), read] { return decoded(response, read); };
    Outcome<Record> outcome = co_await inBackground(std::move(decode));
    co_return outcome;
}

/// Performs the call for the record in its response.
template<typename Record>
QCoro::Task<Outcome<Record>> request(APIClientPtr client, ServiceCall call, RecordReader<Record> read)
{
    const Outcome<HTTPResponse> response = co_await responseTo(client, call);
    if (response.error())
        co_return *response.error();
    Outcome<Record> record = co_await decodedInBackground(*response.value(), read);
    co_return record;
}

/// Performs the call for the sentence that the service answers with, if it does.
QCoro::Task<Outcome<std::optional<QString>>> requestMessage(APIClientPtr client, ServiceCall call);

/// Performs the call and only tells failure from success.
QCoro::Task<Outcome<Done>> requestNothing(APIClientPtr client, ServiceCall call);

} // namespace pingwell
