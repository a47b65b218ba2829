#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over every source of the build "clang".
#
#   scripts/run_clang_tidy.sh [PATTERN]   PATTERN: only files whose path matches it
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
log=build/clang/clang-tidy.log
run-clang-tidy-14 -quiet -p build/clang -j "${JOBS:-$(nproc)}" "$PWD/(src|host|tests|fuzz|benchmarks)/.*${1:-}" \
    >"$log" 2>/dev/null
status=$?
grep -E '(warning|error): ' "$log" | sort -u >&2
[ "$status" -eq 0 ] || { echo "clang-tidy: see $log" >&2; exit 1; }
echo "clang-tidy found nothing."
