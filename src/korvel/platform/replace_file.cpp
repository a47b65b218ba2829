#include "korvel/platform/replace_file.h"

#include "korvel/platform/file_error.h"
#include "korvel/platform/utf8.h"

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace korvel::platform {

namespace {

void Require(bool succeeded, const std::filesystem::path& path) {
    if (!succeeded)
        throw FileError(path, errno);
}

// An open file that is closed at the end.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return m_number; }
    bool IsOpen() const { return m_number >= 0; }
    // False for a failure that the system reports only now.
    bool Close() { return ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

bool WriteAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// The file that is to be replaced, after following links.
std::filesystem::path TargetOf(const std::filesystem::path& path) {
    constexpr int MostLinks = 40; // as the system itself follows
    std::filesystem::path target = path;
    std::error_code none;
    for (int links = 0; std::filesystem::is_symlink(std::filesystem::symlink_status(target, none)); ++links) {
        if (links == MostLinks)
            throw FileError(path, ELOOP);
        target = target.parent_path() / std::filesystem::read_symlink(target, none);
    }
    return target;
}

std::filesystem::path NameBeside(const std::filesystem::path& target) {
    const std::string suffix = "." + std::to_string(::getpid()) + ".new";
    std::string name = target.filename().string();
    name.resize(CutUtf8(name, NAME_MAX - suffix.size()).size());
    return target.parent_path() / (name + suffix);
}

// Changing the owner takes rights that few have; the group alone is often allowed.
void KeepOwner(const Descriptor& file, const struct stat& replaced) {
    if (::fchown(file.Number(), replaced.st_uid, replaced.st_gid) != 0) [[maybe_unused]]
        const int result = ::fchown(file.Number(), static_cast<uid_t>(-1), replaced.st_gid);
}

// The new content beside the file that it is to replace; removed unless it replaces it.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& target) : m_name(NameBeside(target)) {}
    ~NewFile() {
        if (m_isThere)
            ::unlink(m_name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    void Write(std::string_view content, const struct stat* replaced, const std::filesystem::path& path) {
        constexpr mode_t UsualPermissions = 0666;
        // What has this name was left by a killed program of the same number. What takes it from here on is
        // someone else's and is neither written to nor removed.
        ::unlink(m_name.c_str());
        Descriptor file(::open(m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, UsualPermissions));
        Require(file.IsOpen(), path);
        m_isThere = true;
        if (replaced != nullptr) {
            KeepOwner(file, *replaced); // before the permissions, of which it clears some
            Require(::fchmod(file.Number(), replaced->st_mode & 07777) == 0, path);
        }
        Require(WriteAll(file.Number(), content), path);
        Require(::fsync(file.Number()) == 0, path);
        Require(file.Close(), path);
    }

    void Replace(const std::filesystem::path& target, const std::filesystem::path& path) {
        Require(::rename(m_name.c_str(), target.c_str()) == 0, path);
        m_isThere = false;
    }

private:
    std::filesystem::path m_name;
    bool m_isThere = false;
};

int OpenFolderOf(const std::filesystem::path& target) {
    const std::filesystem::path folder = target.has_parent_path() ? target.parent_path() : ".";
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

// A file system that cannot flush a folder says so by EINVAL: there is nothing left to do then.
bool Flush(const Descriptor& folder) {
    return ::fsync(folder.Number()) == 0 || errno == EINVAL;
}

// The state of the file that is to be replaced; throws for what is no file, and for one that may not be
// written. False when there is none.
bool Inspect(const std::filesystem::path& target, struct stat& state, const std::filesystem::path& path) {
    if (::stat(target.c_str(), &state) != 0) {
        Require(errno == ENOENT, path);
        return false;
    }
    if (!S_ISREG(state.st_mode))
        throw FileError(path, S_ISDIR(state.st_mode) ? EISDIR : EINVAL);
    Require(::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) == 0, path);
    return true;
}

} // namespace

void ReplaceFile(const std::filesystem::path& path, std::string_view content) {
    const std::filesystem::path target = TargetOf(path);
    struct stat replaced {};
    const bool exists = Inspect(target, replaced, path);
    const Descriptor folder(OpenFolderOf(target));
    Require(folder.IsOpen(), path);
    NewFile beside(target);
    beside.Write(content, exists ? &replaced : nullptr, path);
    beside.Replace(target, path);
    Require(Flush(folder), path);
}

} // namespace korvel::platform
