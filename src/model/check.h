#pragma once

namespace pingwell {

/// Stops the program with `message` on standard error, in release builds too. For bugs of ours only: data from the
/// network, the keyring, the bus or a file must never lead to this call.
[[noreturn]] void fatal(const char *message);

/// Stops the program with `message` unless `assumption` holds.
inline void check(bool assumption, const char *message)
{
    if (!assumption)
        fatal(message);
}

} // namespace pingwell
