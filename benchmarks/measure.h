#pragma once

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>

/// How the benchmark programs measure, and the lines that they write: operation, n, subject, unit and
/// figure, separated by tabs. bench.sh joins the lines of the programs.
namespace bench {

/// Processor time of the process, in seconds.
inline double CpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

inline double CpuSecondsOf(const std::function<void()>& work) {
    const double start = CpuSeconds();
    work();
    return CpuSeconds() - start;
}

constexpr int Runs = 5;

inline double Median(std::array<double, Runs> figures) {
    std::sort(figures.begin(), figures.end());
    return figures[Runs / 2];
}

/// The median of five calls of `run`, which returns what it measured.
inline double MedianOf(const std::function<double()>& run) {
    std::array<double, Runs> figures{};
    std::generate(figures.begin(), figures.end(), run);
    return Median(figures);
}

/// Nanoseconds of one call, as the median of five series that each take long enough to measure.
inline double NanosecondsPerCall(const std::function<void()>& call) {
    long calls = 1;
    while (CpuSecondsOf([&] {
               for (long i = 0; i < calls; ++i)
                   call();
           }) < 0.05)
        calls *= 2;
    return MedianOf([&] {
        return 1e9 / static_cast<double>(calls) * CpuSecondsOf([&] {
                   for (long i = 0; i < calls; ++i)
                       call();
               });
    });
}

/// Bytes that the program holds on the heap.
inline double HeapBytes() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// Keeps the compiler from dropping a result that nobody reads.
template <typename T>
void Keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

inline void Write(const char* operation, long n, const char* subject, const char* unit, double figure) {
    std::printf("%s\t%ld\t%s\t%s\t%.6g\n", operation, n, subject, unit, figure);
    std::fflush(stdout);
}

} // namespace bench
