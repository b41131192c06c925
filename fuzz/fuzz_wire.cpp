// Bodies of the service: whatever arrives becomes records or an error, and every text of a record can be shown.
#include "api/dashboard_dto.h"
#include "api/decoding.h"
#include "api/invitation_dto.h"
#include "api/session_dto.h"
#include "expect.h"
#include "text/display_text.h"

namespace {

using namespace pingwell;

Dashboard readDashboard(WireObject body, WireStrings &strings)
{
    return required(body.record<DashboardDTO>("data")).mapped(strings);
}

QList<Invitation> readInvitations(WireObject body, WireStrings &strings)
{
    return required(body.list<InvitationDTO>("data")).mapped(strings);
}

void show(const QString &text)
{
    const DisplayText shown = displayText(text);
    expect(!shown.text.contains(QChar(0x202e)) && !shown.text.contains(QChar(u'\0')));
    expect(!displayLine(text).contains(u'\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const HTTPResponse response{.status = 200,
                                .body = QByteArray(reinterpret_cast<const char *>(data), qsizetype(size))};
    const auto dashboard = decoded<Dashboard>(response, readDashboard);
    if (const auto *read = std::get_if<Dashboard>(&dashboard)) {
        for (const Alert &alert : read->alerts) {
            show(alert.title);
            show(alert.body);
            expect(!alert.replyState(Instant{}) || alert.kind == AlertKind::ask);
        }
    }
    static_cast<void>(decoded<QList<Invitation>>(response, readInvitations));
    static_cast<void>(messageOrFailureOf({.status = 500, .body = response.body}));
    return 0;
}
