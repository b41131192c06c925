#pragma once

#include <QString>

#include <chrono>

namespace pingwell {

/// An exclusive lock against other processes, held as long as the object lives. It is a kernel lock (flock on a file of
/// its own, which is never deleted), so that it ends with its process, however that ends.
class FileLock
{
public:
    /// Waits at most `longest` for the lock of the file at `path`; the lock's file is created if there is none.
    FileLock(const QString &path, std::chrono::milliseconds longest);
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    [[nodiscard]] bool isHeld() const { return m_error.isEmpty(); }
    /// Why the lock is not held, as the system's error message.
    [[nodiscard]] const QString &error() const { return m_error; }

private:
    int m_file = -1;
    QString m_error;
};

} // namespace pingwell
