# Fetches the sources of Debian packages that exist for no cross compiler. To be sourced by the scripts at the root.

# fetch_source PACKAGE: unpacks its source into build/sources/PACKAGE.
fetch_source() {
    local package=$1 sources=build/sources as_root=()
    [ -d "$sources/$package" ] && return
    echo "Fetching the source of $package."
    mkdir -p "$sources"
    if ! (cd "$sources" && apt-get -q source "$package" >/dev/null 2>&1); then
        [ "$(id -u)" = 0 ] || as_root=(sudo)
        sed 's/^Types: .*/Types: deb-src/; s/^deb /deb-src /' /etc/apt/sources.list /etc/apt/sources.list.d/*debian* 2>/dev/null |
            "${as_root[@]}" tee /etc/apt/sources.list.d/sources-of-packages.$(
                [ -f /etc/apt/sources.list.d/debian.sources ] && echo sources || echo list) >/dev/null
        "${as_root[@]}" apt-get -q update >/dev/null
        (cd "$sources" && apt-get -q source "$package" >/dev/null)
    fi
    mv "$sources/$package"-*/ "$sources/$package"
}
