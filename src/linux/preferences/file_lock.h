#pragma once

#include <QString>

#include <chrono>

namespace pingwell {

/// Keeps other processes out for as long as it lives. The lock is the kernel's (flock on a file of its own, which stays
/// behind), so that it ends with its process however that ends.
class FileLock
{
public:
    /// Waits at most `longest` for the lock of the file at `path`, which is made if there is none.
    FileLock(const QString &path, std::chrono::milliseconds longest);
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    [[nodiscard]] bool isHeld() const { return m_error.isEmpty(); }
    /// Why the lock is not held, in the system's words.
    [[nodiscard]] const QString &error() const { return m_error; }

private:
    int m_file = -1;
    QString m_error;
};

} // namespace pingwell
