# Installs the packages of the given groups that are missing. To be sourced by the scripts at the root.

# The packages of the groups, one a line.
packages_of() {
    local group
    for group in "$@"; do
        sed -n "s/^$group //p" "$root/setup/packages.txt"
    done
}

missing_packages() {
    local package
    for package in $(packages_of "$@"); do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || echo "$package"
    done
}

# install_packages GROUP...: says what it installs; where it cannot, prints the list and ends the script.
install_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        built_without_packages && return
        echo "Please install these packages (their Debian names) with your system's own tools:" >&2
        packages_of "$@" | sed 's/^/    /' >&2
        exit 1
    fi
    local missing as_root=()
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return
    echo "Installing with apt:" $missing
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "This needs root. Please run as root: apt-get install" $missing >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get -q update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y install --no-install-recommends $missing
}

# Other systems name their packages otherwise; what counts is whether the tools and libraries are there.
built_without_packages() {
    local tool
    for tool in c++ cmake ninja pkg-config; do
        command -v "$tool" >/dev/null || return 1
    done
    pkg-config --exists sdl2 libopenmpt libpng
}
