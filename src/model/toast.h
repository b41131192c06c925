#pragma once

#include <QString>
#include <QUuid>

namespace pingwell {

/// A message shown for a few seconds. Two toasts with the same text are different toasts.
struct Toast
{
    QString message;
    bool isError = false;
    QUuid id = QUuid::createUuid();

    friend bool operator==(const Toast &, const Toast &) = default;
};

} // namespace pingwell
