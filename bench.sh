#!/usr/bin/env bash
# Builds in release mode, installs the peers and measures all of them in the same run. Each line holds, between
# tabs: operation, n, ours, unit, peer, the peer's figure, and how many times our figure the peer's is. Where
# there is no peer, "goal" stands for the most that it may cost, "at the end" for what the same costs there, and
# "without" for what it costs without.
#
#   ./bench.sh                   every measure, trees with 1,000 to 1,000,000 members
#   ./bench.sh MEMBERS...        the same with trees of these sizes
set -u
cd "$(dirname "${BASH_SOURCE[0]}")" || exit 1
. scripts/setup.sh

require_packages "${build_packages[@]}" "${bench_packages[@]}"
build bench tree_bench reading_bench edit_bench thread_bench progress_bench copy_bench combo_bench event_bench layout_bench load_bench wx_bench wx_event_bench text_bench expression_bench || exit 1

[ $# -gt 0 ] || set -- 1000 10000 100000 1000000
programs=build/bench/benchmarks
{
    LC_ALL=de_DE.UTF-8 $programs/text_bench
    $programs/expression_bench
    $programs/layout_bench
    $programs/edit_bench
    $programs/thread_bench
    QT_QPA_PLATFORM=offscreen $programs/progress_bench
    $programs/copy_bench
    QT_QPA_PLATFORM=offscreen $programs/tree_bench "$@"
    QT_QPA_PLATFORM=offscreen $programs/reading_bench
    QT_QPA_PLATFORM=offscreen $programs/combo_bench
    QT_QPA_PLATFORM=offscreen $programs/load_bench
    QT_QPA_PLATFORM=offscreen $programs/event_bench
    xvfb-run -a $programs/wx_bench "$@"
    xvfb-run -a $programs/wx_event_bench
} | awk -F '\t' -v OFS='\t' '
    BEGIN { print "operation", "n", "ours", "unit", "peer", "peer figure", "ratio" }
    $3 == "ours" { ours[$1, $2] = $5; next }
    { print $1, $2, ours[$1, $2], $4, $3, $5, (ours[$1, $2] > 0 ? sprintf("%.2f", $5 / ours[$1, $2]) : "-") }'
