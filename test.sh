#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
#
#   ./test.sh                  the tests
#   ./test.sh --asan           the same with the address and undefined behaviour sanitizers
#   ./test.sh --tsan           the same with the thread sanitizer
#   ./test.sh --fuzz SECONDS   every fuzz target for so many seconds
#   ./test.sh --format         whether every source is formatted
#   ./test.sh --check          the same, a whole build with Clang, and its static checks
set -u
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. scripts/setup.sh

check_format() {
    require_packages "${format_packages[@]}"
    find src host tests fuzz benchmarks \( -name "*.h" -o -name "*.cpp" \) -print0 | xargs -0 clang-format-14 --dry-run -Werror
}

preset=dev
case "${1:-}" in
"") ;;
--asan | --tsan) preset=${1#--} ;;
--format) check_format; exit ;;
--check)
    require_packages "${build_packages[@]}" "${test_packages[@]}" "${bench_packages[@]}" "${check_packages[@]}"
    check_format && build clang all all_verify_interface_header_sets || exit 1
    exec scripts/run_clang_tidy.sh
    ;;
--fuzz)
    [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || { echo "usage: ./test.sh --fuzz SECONDS" >&2; exit 2; }
    require_packages "${build_packages[@]}" "${test_packages[@]}" "${fuzz_packages[@]}"
    build fuzz fuzzers || exit 1
    exec scripts/run_fuzzers.sh "$2"
    ;;
*) sed -n '2,9s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

require_packages "${build_packages[@]}" "${test_packages[@]}"
build "$preset" || exit 1
exec ctest --preset "$preset" -j "$(nproc)" </dev/null
