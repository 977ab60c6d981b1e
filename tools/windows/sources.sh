# Debian's source packages, from the mirror that the machine's own packages come from: source it with SOURCES set to a
# folder, call list_sources once and then unpack_source for each. The machine's own lists stay as they are.

apt_sources() {
    apt-get -q -o Dir::Etc::SourceList="$SOURCES/sources.list" -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::State::Lists="$SOURCES/lists" -o Dir::Cache="$SOURCES/cache" -o APT::Sandbox::User="$(id -un)" "$@"
}

mirrors() {
    keys=/usr/share/keyrings/debian-archive-keyring.gpg
    apt-get indextargets --format "deb-src [signed-by=$keys] \$(REPO_URI) \$(RELEASE) \$(COMPONENT)" \
        'Identifier: Packages' 'Origin: Debian' | sort -u
}

list_sources() {
    mkdir -p "$SOURCES/lists/partial" "$SOURCES/cache/archives/partial"
    mirrors > "$SOURCES/sources.list"
    if [ ! -s "$SOURCES/sources.list" ]; then # a machine that has not asked its mirror yet
        $([ "$(id -u)" = 0 ] || echo sudo) apt-get -q update >/dev/null
        mirrors > "$SOURCES/sources.list"
    fi
    [ -s "$SOURCES/sources.list" ] || { echo "apt knows no mirror of Debian" >&2; return 1; }
    apt_sources update >/dev/null
}

# PACKAGE: its source with Debian's patches in $SOURCES/PACKAGE/source, and its version in $SOURCES/PACKAGE/version. Not
# every mirror has the sources of the newest security update; then it is the release's own.
unpack_source() {
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    for wanted in "$1" "$1/$release"; do
        rm -rf "${SOURCES:?}/$1"
        mkdir -p "$SOURCES/$1"
        (cd "$SOURCES/$1" && apt_sources source --download-only "$wanted" >/dev/null 2>&1) || continue
        dpkg-source --no-check -x "$SOURCES/$1"/*.dsc "$SOURCES/$1/source" >/dev/null # apt has compared the sums
        sed -n 's/^Version: //p' "$SOURCES/$1"/*.dsc | head -n1 > "$SOURCES/$1/version"
        return 0
    done
    echo "The source of $1 cannot be had" >&2
    return 1
}
