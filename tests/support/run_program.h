#pragma once

#include <array>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace korvel {

struct Outcome {
    int status = -1;
    std::string output; // both streams
};

/// Runs a command of the shell.
inline Outcome RunProgram(const std::string& command) {
    Outcome outcome;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    std::array<char, 4096> buffer;
    while (const std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
        outcome.output.append(buffer.data(), count);
    outcome.status = WEXITSTATUS(pclose(pipe));
    return outcome;
}

} // namespace korvel
