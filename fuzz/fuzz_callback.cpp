// What the browser hands over at the end of signing in.
#include "auth/callback_result.h"
#include "expect.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace pingwell;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    for (const QUrl &url : {QUrl(QString::fromUtf8(bytes)), QUrl::fromEncoded("pingwell://auth/callback?" + bytes)}) {
        const CallbackResult result = parseCallback(url);
        expect(result.kind == CallbackResult::Kind::error || !result.value.isEmpty());
        expect(!signInErrorMessage(result.value).isEmpty());
    }
    return 0;
}
