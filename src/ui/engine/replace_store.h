#pragma once

#include "store/app_store.h"

#include <QPointer>

namespace pingwell {

/// Puts `store` in the place of the one that `follower` follows; that one's signals reach it no more. False when it is
/// the same one: then there is nothing to do.
[[nodiscard]] inline bool replaceStore(QPointer<AppStore> &followed, AppStore *store, QObject *follower)
{
    if (followed == store)
        return false;
    if (followed)
        followed->disconnect(follower);
    followed = store;
    return true;
}

} // namespace pingwell
