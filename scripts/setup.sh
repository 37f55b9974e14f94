# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and ./check share: packages, configuration, build. Sourced, with `root` set to the top of the tree.

# How the cache finds what other clones compiled stands in the presets.
export CCACHE_MAXSIZE="${CCACHE_MAXSIZE:-3G}"

# The packages of packages.txt that are there for one of the given purposes.
listed_packages() {
    local purpose
    for purpose in "$@"; do
        awk -v purpose="$purpose" '!/^#/ && $2 == purpose { print $1 }' "$root/packages.txt"
    done
}

is_installed() {
    [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "This needs the rights of an administrator, and there is no sudo. Please let somebody run:" >&2
        echo "  $*" >&2
        return 1
    fi
}

# Installs what is missing for the given purposes; says and does nothing where all is there.
install_packages() {
    local package missing=()
    if ! command -v apt-get >/dev/null; then
        echo "No apt-get here: please see to it that what packages.txt lists is installed." >&2
        return 0
    fi
    for package in $(listed_packages "$@"); do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing: ${missing[*]}"
    as_root apt-get --quiet=2 update
    as_root env DEBIAN_FRONTEND=noninteractive apt-get --quiet=2 --yes --no-install-recommends \
        -o Dpkg::Use-Pty=0 install "${missing[@]}" </dev/null >/dev/null
}

# build PRESET [TARGET...]: all targets where none is named. A failure does not stop the rest: one run tells all.
build() {
    local preset="$1"
    shift
    if [ ! -f "$root/build/$preset/build.ninja" ]; then
        (cd "$root" && cmake --log-level=NOTICE --preset "$preset")
    fi
    (cd "$root" && cmake --build --preset "$preset" ${1:+--target "$@"} -- -k 0)
}
