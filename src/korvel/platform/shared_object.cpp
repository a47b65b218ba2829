#include "korvel/platform/shared_object.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <filesystem>
#include <fstream>
#include <link.h>
#include <system_error>
#include <vector>

namespace korvel::platform {
namespace {

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);

constexpr unsigned char OwnClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;

template <class Record>
bool Read(std::ifstream& file, std::uint64_t place, Record* records, std::size_t count) {
    file.seekg(static_cast<std::streamoff>(place));
    file.read(reinterpret_cast<char*>(records), static_cast<std::streamsize>(count * sizeof(Record)));
    return static_cast<bool>(file);
}

// The loader maps what the header says, and a file that ends before that ends the process at the first
// access.
bool IsWhole(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const auto size = static_cast<std::uint64_t>(std::max<std::streamoff>(file.tellg(), 0));
    Header header{};
    if (!file || !Read(file, 0, &header, 1) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0 ||
        header.e_ident[EI_CLASS] != OwnClass || header.e_phentsize != sizeof(Segment))
        return false;
    std::vector<Segment> segments(header.e_phnum);
    if (header.e_phoff > size || !Read(file, header.e_phoff, segments.data(), segments.size()))
        return false;
    return std::ranges::all_of(segments, [&](const Segment& segment) {
        return segment.p_offset <= size && segment.p_filesz <= size - segment.p_offset;
    });
}

// The system names the file as it was found, perhaps relative to the folder that is current while it loads.
std::string FindOwnFile() {
    Dl_info found{};
    const bool isKnown = dladdr(reinterpret_cast<const void*>(&OwnFile), &found) != 0 && found.dli_fname;
    std::error_code ignored; // no folder is current: the name stays unknown
    return isKnown ? std::filesystem::absolute(found.dli_fname, ignored).string() : "";
}

const std::string FileWhenLoaded = FindOwnFile();

} // namespace

std::string OwnFile() {
    return FileWhenLoaded;
}

void* LoadFunction(const std::string& path, const char* name) {
    if (!IsWhole(path))
        return nullptr;
    void* object = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* function = object ? dlsym(object, name) : nullptr;
    if (object && !function)
        dlclose(object);
    return function;
}

} // namespace korvel::platform
