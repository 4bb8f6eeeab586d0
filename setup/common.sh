# What `run`, `test`, `bench` and `fuzz` share; sourced by them from the project's root.

# packages GROUP...: the Debian packages of these groups of setup/packages, one a line, each by its name on this system.
packages() {
    local group line name
    for group in "$@"; do
        awk -v group="# $group" '/^#/ { take = ($0 == group); next } take && NF { print }' setup/packages
    done | while read -r line; do
        name=$line
        while [[ $name == *"|"* ]] && ! apt-cache show "${name%%|*}" >/dev/null 2>&1; do name=${name#*|}; done
        echo "${name%%|*}"
    done
}

# not_installed GROUP...: those of them that are missing.
not_installed() {
    local package
    for package in $(packages "$@"); do
        dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || echo "$package"
    done
}

# install GROUP...: makes sure that the Debian packages of these groups of setup/packages are there.
# Names what is missing before it installs it; uses sudo only when not root.
install() {
    local missing
    missing=$(not_installed "$@")
    [ -n "$missing" ] || return 0
    if ! command -v apt-get >/dev/null; then
        echo "These Debian packages are needed, and this system has no apt-get to install them:" $missing >&2
        return 1
    fi
    echo "Installing what is missing:" $missing
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    # Asked for again in between: which name is this system's may only be known now.
    "${as_root[@]}" apt-get update -qq &&
        missing=$(not_installed "$@") &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >build/apt.log 2>&1 ||
        { echo "Installing failed; the end of build/apt.log:" >&2; tail -n 20 build/apt.log >&2; return 1; }
}

# build PRESET [TARGET...]: configures and builds; prints the compiler's words only when it fails.
# TARNVALE_CMAKE, where it is set, holds further arguments for CMake's configuration.
build() {
    local preset=$1 target targets=() launcher=()
    shift
    for target in "$@"; do targets+=(--target "$target"); done
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    echo "Building ($preset) …"
    cmake --preset "$preset" "${launcher[@]}" ${TARNVALE_CMAKE:-} >"build/$preset.log" 2>&1 &&
        cmake --build --preset "$preset" "${targets[@]}" >>"build/$preset.log" 2>&1 ||
        { echo "The build failed; the end of build/$preset.log:" >&2; tail -n 60 "build/$preset.log" >&2; return 1; }
}
