// Runs a target over the files of folders, with any compiler.

#include "fuzz_target.h"

namespace {

int Replay(const char* folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::printf("%s\n", entry.path().c_str());
        std::fflush(stdout);
        const std::string bytes = korvel::platform::ContentOf(entry.path());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    return count;
}

} // namespace

int main(int argumentCount, char** arguments) {
    int count = 0;
    for (int i = 1; i < argumentCount; ++i)
        count += Replay(arguments[i]);
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
