#include "store/local_id.h"

#include <QUuid>

namespace pingwell {

QString newLocalID(QChar kind)
{
    return kind + QStringLiteral("-") + QUuid::createUuid().toString(QUuid::WithoutBraces).left(8).toLower();
}

} // namespace pingwell
