#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
#
#   ./test.sh                  the tests
#   ./test.sh --asan           the same with the address and undefined behaviour sanitizers
#   ./test.sh --tsan           the same with the thread sanitizer
#   ./test.sh --fuzz SECONDS   every fuzz target for so many seconds
set -u
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. scripts/setup.sh

preset=dev
case "${1:-}" in
"") ;;
--asan | --tsan) preset=${1#--} ;;
--fuzz)
    [[ "${2:-}" =~ ^[1-9][0-9]*$ ]] || { echo "usage: ./test.sh --fuzz SECONDS" >&2; exit 2; }
    require_packages "${build_packages[@]}" "${test_packages[@]}" "${fuzz_packages[@]}"
    build fuzz fuzzers || exit 1
    exec scripts/run_fuzzers.sh "$2"
    ;;
*) sed -n '2,7s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

require_packages "${build_packages[@]}" "${test_packages[@]}"
build "$preset" || exit 1
export TSAN_OPTIONS="suppressions=$PWD/tests/tsan_suppressions.txt ${TSAN_OPTIONS:-}"
exec ctest --test-dir "build/$preset" --output-on-failure --no-tests=error -j "$(nproc)" </dev/null
