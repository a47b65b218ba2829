#pragma once

#include <cstdlib>
#include <iostream>
#include <source_location>

/// Ends the host with failure, and says where, when it does not see what it should.
inline void Expect(bool condition, std::source_location where = std::source_location::current()) {
    if (condition)
        return;
    std::cerr << where.file_name() << ":" << where.line() << ": not so" << std::endl;
    std::exit(EXIT_FAILURE);
}
