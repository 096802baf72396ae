# Fetches the sources of Debian packages that exist for no cross compiler. To be sourced by the scripts at the root.

# Lets apt know where the sources of its packages are: beside the packages.
allow_sources() {
    local lists=/etc/apt/sources.list.d as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    if [ -f $lists/debian.sources ]; then
        sed 's/^Types: .*/Types: deb-src/' $lists/debian.sources | "${as_root[@]}" tee $lists/lumenfold.sources >/dev/null
    else
        sed -n 's/^deb /deb-src /p' /etc/apt/sources.list | "${as_root[@]}" tee $lists/lumenfold.list >/dev/null
    fi
    "${as_root[@]}" apt-get -q update >/dev/null
}

# The newest version that a server still has, where the latest one is listed but gone.
fetch_earlier() {
    local version
    for version in $(apt-cache showsrc "$1" 2>/dev/null | sed -n 's/^Version: //p' | sort -rV); do
        (cd "$sources" && "${fetch[@]}=$version" >/dev/null 2>&1) && return
    done
    echo "The source of $1 cannot be fetched; apt-get source $1 says why." >&2
    return 1
}

# fetch_source PACKAGE: unpacks its source into build/sources/PACKAGE.
fetch_source() {
    local package=$1 sources=build/sources
    [ -d "$sources/$package" ] && return
    echo "Fetching the source of $package."
    mkdir -p "$sources"
    local fetch=(apt-get -q -o APT::Sandbox::User=root source "$package") # whose user may not write here
    (cd "$sources" && "${fetch[@]}" >/dev/null 2>&1) ||
        { allow_sources && (cd "$sources" && "${fetch[@]}" >/dev/null 2>&1); } || fetch_earlier "$package"
    mv "$sources/$package"-*/ "$sources/$package"
}
