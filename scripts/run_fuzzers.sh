#!/usr/bin/env bash
# Runs every fuzz target for so many seconds, from its seeds and from what earlier runs found.
#
#   scripts/run_fuzzers.sh SECONDS   after the preset fuzz was built
#
# Inputs that broke a target are kept in build/fuzz/failures, named after it.
set -u
cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
[[ "${1:-}" =~ ^[1-9][0-9]*$ ]] || { echo "usage: scripts/run_fuzzers.sh SECONDS" >&2; exit 2; }

[ -w /dev/shm ] && export TMPDIR=/dev/shm # the targets write a file for each of their inputs
mkdir -p build/fuzz/failures
failed=()
ran=0
for program in build/fuzz/fuzz/fuzz_*; do
    [ -x "$program" ] || continue
    name=$(basename "$program")
    name=${name#fuzz_}
    corpus=build/fuzz/corpus/$name
    mkdir -p "$corpus"
    log=build/fuzz/$name.log
    if "$program" -max_total_time="$1" -max_len=4096 -timeout=20 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/failures/$name-" "$corpus" "fuzz/seeds/$name" >"$log" 2>&1 </dev/null; then
        echo "$name: $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs"
    else
        failed+=("$name")
        tail -n 40 "$log" >&2
    fi
    ran=$((ran + 1))
done
[ "$ran" -gt 0 ] || { echo "No fuzz target is built." >&2; exit 1; }
[ ${#failed[@]} -eq 0 ] || { echo "Failed: ${failed[*]}; see build/fuzz/failures" >&2; exit 1; }
echo "All $ran targets held for $1 seconds each."
