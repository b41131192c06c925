#include "status/menu_bar_label.h"

namespace pingwell {

MenuBarLabel menuBarLabel(qsizetype count)
{
    if (count <= 0)
        return {.symbol = QStringLiteral("bell"), .text = {}, .accessibleLabel = QStringLiteral("Pingwell")};
    const QString number = QString::number(count);
    return {.symbol = QStringLiteral("bell.badge"),
            .text = number,
            .accessibleLabel = QStringLiteral("Pingwell, %1 waiting").arg(number)};
}

} // namespace pingwell
