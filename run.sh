#!/usr/bin/env bash
# Installs what is missing, builds the inspector and opens it: ./run.sh [FILE.xml] [OPTION...]
set -u
top=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

( cd "$top" && . scripts/setup.sh && require_packages "${build_packages[@]}" &&
    build release inspector install_language && build/release/host/install_language >&2 ) || exit 1

exec "$top/build/release/host/inspector" "$@"
