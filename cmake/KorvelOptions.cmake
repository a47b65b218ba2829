# Options of the build, and the flags that every target of the project shares. Inside the build of a host only
# the libraries are built, with the host's own choice of warnings and compiler launcher.

option(KORVEL_BUILD_QT "Build the Qt display" ON)
option(KORVEL_INSTALL "Install the libraries with their headers and package files" ${PROJECT_IS_TOP_LEVEL})
option(KORVEL_BUILD_HOST "Build the inspector; tests and fuzz targets bring it along" ${PROJECT_IS_TOP_LEVEL})
option(KORVEL_BUILD_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(KORVEL_BUILD_FUZZERS "Build the fuzz targets (Clang only)" OFF)
option(KORVEL_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(KORVEL_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" ${PROJECT_IS_TOP_LEVEL})
set(KORVEL_SANITIZE "" CACHE STRING "Sanitizers to build with: address,undefined or thread")

# What the maker of a distribution says of itself; the Text table shows these three rows.
set(KORVEL_RIGHTS_LINE "" CACHE STRING "Rights line of the about box; $1 stands for the year")
set(KORVEL_WEB_ADDRESS "" CACHE STRING "Web address of the maker")
set(KORVEL_MAIL_ADDRESS "" CACHE STRING "Mail address of the maker")

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  find_program(KORVEL_CCACHE ccache)
  if(KORVEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${KORVEL_CCACHE})
  endif()
endif()

add_library(korvel_flags INTERFACE)
target_compile_features(korvel_flags INTERFACE cxx_std_20)
target_compile_options(korvel_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-align -Wimplicit-fallthrough -Wundef
  # GCC 12 warns of an overlap in `"text" + std::string` that cannot happen (its bug 105651).
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
  $<$<BOOL:${KORVEL_WARNINGS_AS_ERRORS}>:-Werror>)

if(KORVEL_SANITIZE)
  target_compile_options(korvel_flags INTERFACE
    -fsanitize=${KORVEL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all
    # Instrumented code of GCC 12's own <regex> seems uninitialized to it; the sanitizers see what really is.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(korvel_flags INTERFACE -fsanitize=${KORVEL_SANITIZE})
endif()

if(KORVEL_BUILD_FUZZERS)
  target_compile_options(korvel_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
