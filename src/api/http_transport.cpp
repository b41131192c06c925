#include "api/http_transport.h"

namespace pingwell {

HTTPTransport::~HTTPTransport() = default;

} // namespace pingwell
