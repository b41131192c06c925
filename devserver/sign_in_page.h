#pragma once

#include "model/enumerations.h"

#include <QString>

namespace pingwell::devserver {

/// The page on which the person agrees to sign in or cancels.
QString signInPage(AuthProvider provider, const QString &name, const QString &continueAddress,
                   const QString &cancelAddress);
/// The page that says why a sign-in can't start.
QString signInProblemPage(const QString &problem);

} // namespace pingwell::devserver
