// What every program of the session may call or say: opening addresses at the running program, and a notification
// server's events. The calls are made as the bus would make them, without one.
#include "expect.h"
#include "linux/notifications/banner_actions.h"
#include "linux/notifications/banner_event.h"
#include "linux/session/application_adaptor.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using namespace pingwell;

/// The running program as others see it.
class Served final : public SingleInstance
{
public:
    Role claim(const QList<QUrl> &) override { return Role::primary; }
};

QString text(FuzzedDataProvider &input)
{
    return QString::fromStdString(input.ConsumeRandomLengthString());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzedDataProvider input(data, size);
    Served served;
    ApplicationAdaptor adaptor(&served);
    QObject::connect(&served, &SingleInstance::opened, &served, [](const QList<QUrl> &urls, const QByteArray &token) {
        for (const QUrl &url : urls)
            expect(url.scheme() == QStringLiteral("pingwell"));
        expect(!token.contains('\0'));
    });
    const QVariantMap platformData{{QStringLiteral("activation-token"), text(input)}, {text(input), text(input)}};
    QStringList addresses;
    while (addresses.size() < 4 && input.remaining_bytes() > 8)
        addresses << text(input);
    adaptor.Open(addresses, platformData);
    adaptor.Activate(platformData);
    adaptor.ActivateAction(text(input), {text(input)}, platformData);

    const QString key = text(input);
    const QStringList offered{text(input), text(input)};
    expect(!actionIdentifierOf(key, offered) || offered.contains(key));
    EarlyBannerEvents events;
    for (int count = input.ConsumeIntegralInRange(0, 200); count > 0; --count)
        events.keep({BannerEvent::Kind::action, text(input), input.ConsumeIntegral<uint>(), text(input), 0});
    static_cast<void>(events.take(text(input), 1));
    return 0;
}
