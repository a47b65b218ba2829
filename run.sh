#!/usr/bin/env bash
# Installs what is missing, builds the inspector and opens it: ./run.sh [FILE.xml] [OPTION...]
#
#   ./run.sh --gallery FOLDER   instead, pictures of all dialogs and controls: both languages, light and dark, two scales
set -u
top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

build_programs() {
    cd "$top" && . scripts/setup.sh && require_packages "${build_packages[@]}" && build release "$@"
}

# Language and scale hold for a whole process.
take_gallery() {
    local language scale status=0
    for language in German English; do
        for scale in 1 2; do
            QT_SCALE_FACTOR=$scale "$top/build/release/host/gallery" "$1" "$language" \
                "$top/tests/data/railway.xml" || status=1
        done
    done
    return $status
}

if [ "${1:-}" = --gallery ]; then
    [ $# -eq 2 ] && [ -n "$2" ] || { echo "usage: ./run.sh --gallery FOLDER" >&2; exit 2; }
    (build_programs gallery) || exit 1
    take_gallery "$2"
    exit
fi

(build_programs inspector install_language && build/release/host/install_language >&2) || exit 1

exec "$top/build/release/host/inspector" "$@"
