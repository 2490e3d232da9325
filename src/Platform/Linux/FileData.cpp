#include "Platform/Linux/FileData.h"

#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace orvelle {

namespace {

constexpr off_t chunk = 1 << 20; // bytes between two looks at whether to go on

/// Copies what lies between two places of both files.
int copyRange(int source, int destination, off_t from, off_t end, char* buffer,
              const std::atomic<bool>& cancelled) {
    while (from < end) {
        if (cancelled)
            return ECANCELED;
        const auto wanted = static_cast<std::size_t>(std::min(chunk, end - from));
        const auto count = pread(source, buffer, wanted, from);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            return 0; // the file was cut meanwhile
        for (ssize_t done = 0; done < count;) {
            const auto written = pwrite(destination, buffer + done,
                                        static_cast<std::size_t>(count - done), from + done);
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                return written < 0 ? errno : EIO;
            done += written;
        }
        from += count;
    }
    return 0;
}

} // namespace

int copyFileData(int source, int destination, const std::atomic<bool>& cancelled) {
    struct stat status {};
    if (fstat(source, &status) != 0)
        return errno;
    if (ioctl(destination, FICLONE, source) == 0)
        return 0;
    const off_t length = status.st_size;
    const auto buffer = std::make_unique<char[]>(chunk);
    for (off_t data = 0; data < length;) {
        const off_t start = lseek(source, data, SEEK_DATA);
        if (start < 0 && errno == ENXIO)
            break; // nothing but a hole is left
        // A file system that knows no holes has data everywhere.
        const off_t from = start < 0 ? data : start;
        const off_t hole = start < 0 ? length : lseek(source, from, SEEK_HOLE);
        const off_t end = hole <= from ? length : std::min(hole, length);
        if (from >= length)
            break;
        if (const int failure = copyRange(source, destination, from, end, buffer.get(), cancelled))
            return failure;
        data = end;
    }
    struct stat now {};
    if (fstat(source, &now) != 0)
        return errno;
    return ftruncate(destination, std::min(length, now.st_size)) == 0 ? 0 : errno;
}

} // namespace orvelle
