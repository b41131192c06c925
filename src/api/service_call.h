#pragma once

#include "api/api_client.h"
#include "api/dashboard.h"
#include "api/decoding.h"
#include "async/background.h"

namespace pingwell {

/// The request of one operation.
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

/// Decodes the payload of a `DataEnvelope`.
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

/// Decodes the payload of a `MessageDataEnvelope`.
template<typename DTO>
WithMessage<Mapped<DTO>> readMessageData(WireObject body, WireStrings &strings)
{
    WithMessage<Mapped<DTO>> result;
    result.message = ErrorEnvelope::read(body).message;
    result.record = readData<DTO>(body, strings);
    return result;
}

/// Performs the call with the client's transport. The only place that treats a response which is not HTTP as no
/// response (`APIError::offline()`).
QCoro::Task<Outcome<HTTPResponse>> responseTo(APIClientPtr client, ServiceCall call);

/// Decodes the response in the thread pool.
template<typename Record>
QCoro::Task<Outcome<Record>> decodedInBackground(HTTPResponse response, RecordReader<Record> read)
{
    auto decode = [response = std::move(response), read] { return decoded(response, read); };
    Outcome<Record> outcome = co_await inBackground(std::move(decode));
    co_return outcome;
}

/// Performs the call and returns the record in its response.
template<typename Record>
QCoro::Task<Outcome<Record>> request(APIClientPtr client, ServiceCall call, RecordReader<Record> read)
{
    const Outcome<HTTPResponse> response = co_await responseTo(client, call);
    if (response.error())
        co_return *response.error();
    Outcome<Record> record = co_await decodedInBackground(*response.value(), read);
    co_return record;
}

/// Performs the call and returns the sentence in the service's response, if there is one.
QCoro::Task<Outcome<std::optional<QString>>> requestMessage(APIClientPtr client, ServiceCall call);

/// Performs the call and returns only whether it succeeded.
QCoro::Task<Outcome<Done>> requestNothing(APIClientPtr client, ServiceCall call);

} // namespace pingwell
