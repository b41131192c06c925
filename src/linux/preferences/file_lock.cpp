#include "linux/preferences/file_lock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace pingwell {

using namespace std::chrono_literals;

FileLock::FileLock(const QString &path, std::chrono::milliseconds longest)
    : m_file(::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
{
    const auto end = std::chrono::steady_clock::now() + longest;
    while (m_file < 0 || ::flock(m_file, LOCK_EX | LOCK_NB) != 0) {
        const bool isHeldByAnother = m_file >= 0 && (errno == EWOULDBLOCK || errno == EINTR);
        if (!isHeldByAnother || std::chrono::steady_clock::now() >= end) {
            m_error = qt_error_string(errno);
            return;
        }
        std::this_thread::sleep_for(5ms);
    }
}

FileLock::~FileLock()
{
    if (m_file >= 0)
        ::close(m_file);
}

} // namespace pingwell
