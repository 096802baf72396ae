# Builds programs into build/release. To be sourced by the scripts at the root, after $root is set.
. "$root/setup/packages.sh"

log=$root/build/build.log

# build PACKAGE-GROUP... -- OPTION... -- TARGET...: installs what is missing, then builds. All scripts share one build
# folder, so an option that was ever switched on stays on: what ./test built is never stale or gone after ./run.
build() {
    local list=groups word
    local groups=() options=() targets=()
    for word in "$@"; do
        case $word,$list in
        --,groups) list=options ;;
        --,options) list=targets ;;
        *,groups) groups+=("$word") ;;
        *,options) options+=("-D$word=ON") ;;
        *,targets) targets+=(--target "$word") ;;
        esac
    done
    install_packages "${groups[@]}"
    cd "$root"
    mkdir -p build
    local cache=build/release/CMakeCache.txt
    if [ ! -f build/release/build.ninja ]; then
        options=(-DLUMENFOLD_TESTS=OFF -DLUMENFOLD_BENCH=OFF -DLUMENFOLD_FORGE=OFF "${options[@]}")
    fi
    : >"$log"
    for word in "${options[@]}"; do
        grep -q "^${word#-D}\$" <(sed 's/:BOOL=/=/' "$cache" 2>/dev/null) && continue
        cmake --preset release "${options[@]}" >>"$log" 2>&1 || build_failed
        break
    done
    if [ "${verbose:-}" ]; then
        cmake --build --preset release "${targets[@]}"
    else
        cmake --build --preset release "${targets[@]}" >>"$log" 2>&1 || build_failed
    fi
}

build_failed() {
    tail -n 20 "$log" >&2
    echo "The build failed; all that it printed is in ${log#"$root/"}." >&2
    exit 1
}
