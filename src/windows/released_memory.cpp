#include "windows/released_memory.h"

#ifdef __linux__

#include <QByteArray>
#include <QFile>
#include <QList>

#include <malloc.h>
#include <sys/mman.h>

namespace pingwell {

namespace {

/// A range of this process's addresses.
struct Mapping
{
    quintptr start = 0;
    quintptr end = 0;
};

/// Parses "start-end" if `line` describes a mapping of a program file that is not writable.
Mapping programFileMapping(const QByteArray &line)
{
    // start-end permissions offset device inode path
    const QList<QByteArray> fields = line.simplified().split(' ');
    if (fields.size() < 6 || !fields.at(1).startsWith("r-") || !fields.at(5).startsWith('/'))
        return {};
    const QByteArray &range = fields.first();
    const qsizetype dash = range.indexOf('-');
    return {range.left(dash).toULongLong(nullptr, 16), range.mid(dash + 1).toULongLong(nullptr, 16)};
}

/// The read-only mappings of program files that contain no changed page, so that the kernel can load every page from
/// the file again. Relocated data is read-only, too, but it was changed in memory.
QList<Mapping> cleanFileMappings()
{
    QFile maps(QStringLiteral("/proc/self/smaps"));
    if (!maps.open(QIODevice::ReadOnly))
        return {};
    QList<Mapping> clean;
    Mapping current;
    const QByteArray text = maps.readAll();
    for (const QByteArray &line : text.split('\n')) {
        const qsizetype firstSpace = line.indexOf(' ');
        const bool isHeader = firstSpace > 0 && line.at(firstSpace - 1) != ':';
        if (isHeader)
            current = programFileMapping(line);
        else if (current.start != 0 && line.startsWith("Anonymous:") && line.simplified() == "Anonymous: 0 kB")
            clean.append(current);
    }
    return clean;
}

} // namespace

void releaseUnusedMemory()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
    for (const Mapping &mapping : cleanFileMappings()) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel reports addresses as text.
        madvise(reinterpret_cast<void *>(mapping.start), mapping.end - mapping.start, MADV_DONTNEED);
    }
}

} // namespace pingwell

#else

namespace pingwell {

void releaseUnusedMemory() {}

} // namespace pingwell

#endif
