#pragma once

namespace pingwell {

/// Stops the program with `message` on standard error. For broken assumptions of our own, in release builds too;
/// nothing that comes from the network, the keyring, the bus or a file may lead here.
[[noreturn]] void fatal(const char *message);

/// Stops the program with `message` unless `assumption` holds.
inline void check(bool assumption, const char *message)
{
    if (!assumption)
        fatal(message);
}

} // namespace pingwell
