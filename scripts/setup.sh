# Installs the Debian packages that are missing. Sourced by run.sh, test.sh and bench.sh; call
# `require_packages PACKAGE...`. Whatever it prints goes to standard error.

build_packages=(g++ cmake ninja-build ccache libicu-dev libsqlite3-dev libboost-dev zlib1g-dev
                qt6-base-dev qt6-translations-l10n fonts-dejavu-core fonts-wqy-microhei)
test_packages=(libgtest-dev libgmock-dev libpugixml-dev pkg-config
               at-spi2-core gir1.2-atspi-2.0 python3-gi dbus xvfb openbox)
format_packages=(clang-format-14)
check_packages=(clang-14 clang-tidy-14)
fuzz_packages=(clang-14 libclang-rt-14-dev)
bench_packages=(libfmt-dev libmuparser-dev libfparser-dev libwxgtk3.2-dev xvfb xauth)

require_packages() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing. Install them as root, then start again:" >&2
            echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    local install=(env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}")
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" "${install[@]}"; } >&2 </dev/null; then
        echo "The packages could not be installed. Install them as root, then start again:" >&2
        echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
}

# build PRESET [TARGET...]: configures once, then builds what changed on both cores.
build() {
    local preset=$1 target
    shift
    local targets=()
    for target in "$@"; do
        targets+=(--target "$target")
    done
    { [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"; } >&2 &&
        cmake --build --preset "$preset" -j "$(nproc)" "${targets[@]}" >&2
}
