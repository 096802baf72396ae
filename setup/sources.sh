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

# fetch_source PACKAGE: unpacks its source into build/sources/PACKAGE.
fetch_source() {
    local package=$1 sources=build/sources
    [ -d "$sources/$package" ] && return
    echo "Fetching the source of $package."
    mkdir -p "$sources"
    local fetch=(apt-get -q -o APT::Sandbox::User=root source "$package") # whose user may not write here
    (cd "$sources" && "${fetch[@]}" >/dev/null 2>&1) ||
        { allow_sources && (cd "$sources" && "${fetch[@]}" >/dev/null); }
    mv "$sources/$package"-*/ "$sources/$package"
}
