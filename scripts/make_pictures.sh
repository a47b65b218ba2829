#!/usr/bin/env bash
# Makes the pictures of the documents with the inspector itself: scripts/make_pictures.sh [INSPECTOR]
# Without an inspector named, one is built. The pictures depend on no screen, theme, locale or settings of
# the machine.
set -eu
cd "$(dirname "$0")/.."

inspector=${1:-}
if [ -z "$inspector" ]; then
    . scripts/setup.sh
    require_packages "${build_packages[@]}"
    build release inspector
    inspector=build/release/host/inspector
fi

settings=$(mktemp -d)
trap 'rm -rf "$settings"' EXIT

rm -f docs/inspector.png # the inspector replaces its own pictures only, and an old one may not say that it is
track="Alignments Tracks/Alignment Track 2"
env -u QT_STYLE_OVERRIDE -u QT_SCALE_FACTOR -u QT_QPA_PLATFORMTHEME XDG_CONFIG_HOME="$settings" \
    QT_QPA_PLATFORM=offscreen "$inspector" docs/example.xml --screenshot docs/inspector.png --size 860x716 \
    --locale en-GB --language English --angle-unit gon \
    --expand "$track/Cant Cant of track 2/CantStation 2" --expand "$track/CoordGeom/Curve T3"
echo "docs/inspector.png"
