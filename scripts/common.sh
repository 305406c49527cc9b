# Functions that the scripts share; sourced by them.

say() { printf '%s\n' "$*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The packages that building and running need, and what they are for in words of their own.
build_packages="g++ cmake ninja-build qt6-base-dev fonts-dejavu-core"

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# need_packages NAME...: installs what is missing of these Debian packages. On a system without them it names what
# is missing and stops.
need_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        missing=""
        for tool in c++ cmake ninja; do
            command -v "$tool" >/dev/null || missing="$missing $tool"
        done
        [ -z "$missing" ] || fail "Missing:$missing. Also needed: CMake 3.25, a C++20 compiler, Qt 6.4 with" \
            "Widgets, Network and Test. Install them by your system's own means and start again."
        return 0
    fi
    missing=""
    for package in "$@"; do
        is_installed "$package" || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    say "Installing:$missing"
    as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "Missing packages:$missing. Install them as root and start again."
        as_root=sudo
    fi
    $as_root apt-get update -qq
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}

# build PRESET TARGET: configures and builds TARGET (all for everything) in build/PRESET; says little when all is
# well. More arguments go to CMake's configuration.
build() {
    preset=$1
    target=$2
    shift 2
    log="$root/build-$preset.log"
    say "Building in build/$preset ..."
    cmake --preset "$preset" "$@" >"$log" 2>&1 || show_log
    cmake --build --preset "$preset" --target "$target" >>"$log" 2>&1 || show_log
    rm -f "$log"
}

show_log() {
    tail -n 60 "$log" >&2
    fail "The build failed; all of its output is in $(basename "$log")."
}
