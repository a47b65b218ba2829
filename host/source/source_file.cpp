#include "source/source_file.h"

#include "source/document_error.h"
#include "source/gzip.h"
#include "texts/system_reason.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace korvel::inspector {
namespace {

constexpr std::size_t LargestFile = std::numeric_limits<std::uint32_t>::max();
constexpr std::size_t LargestRead = 1 << 20; // so that the reading can be cancelled in between

class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) {}
    ~FileDescriptor() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int Get() const { return m_descriptor; }

private:
    int m_descriptor;
};

FileStamp StampOf(const struct stat& status) {
    constexpr std::int64_t Second = 1'000'000'000;
    return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
            status.st_ctim.tv_sec * Second + status.st_ctim.tv_nsec};
}

[[noreturn]] void Fail(const std::string& path, const XmlReason& reason) {
    throw DocumentError(path, reason);
}

} // namespace

std::optional<FileStamp> StampOf(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? std::optional(StampOf(status)) : std::nullopt;
}

SourceFile ReadSourceFile(const std::string& path, ReadingProgress* progress) {
    // O_NONBLOCK: opening a pipe that nobody writes to must not wait.
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.Get() < 0)
        Fail(path, SystemReason(errno));
    struct stat status {};
    if (fstat(file.Get(), &status) != 0)
        Fail(path, SystemReason(errno));
    if (S_ISDIR(status.st_mode))
        Fail(path, "is a folder");
    if (!S_ISREG(status.st_mode))
        Fail(path, "is not a regular file");
    if (static_cast<std::size_t>(status.st_size) >= LargestFile)
        Fail(path, "is larger than 4 GB");

    SourceFile source{std::string(static_cast<std::size_t>(status.st_size), '\0'), false, StampOf(status)};
    std::string& bytes = source.bytes;
    PhaseProgress phase(progress, ReadingProgress::Phase::File, bytes.size(), LargestRead);
    std::size_t count = 0;
    while (count < bytes.size()) {
        phase.Reach(count);
        const std::size_t wanted = std::min(bytes.size() - count, LargestRead);
        const ssize_t got = read(file.Get(), bytes.data() + count, wanted);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            Fail(path, SystemReason(errno));
        if (got == 0)
            break;
        count += static_cast<std::size_t>(got);
    }
    bytes.resize(count);
    source.isPacked = IsGzip(bytes);
    if (source.isPacked) {
        std::string unpacked;
        if (const char* reason = Unpack(bytes, LargestFile - 1, unpacked, progress))
            Fail(path, reason);
        bytes = std::move(unpacked);
    }
    if (bytes.empty())
        Fail(path, "is empty");
    return source;
}

} // namespace korvel::inspector
