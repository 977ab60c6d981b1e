#!/bin/sh
# Builds the libraries that the programs for Windows hold, from Debian's sources, into build/windows-libraries/prefix.
# Costs nothing when they are there. The prefix has their licences and the versions of their sources too.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
work=$root/build/windows-libraries
prefix=$work/prefix
libraries='expat libzip libxlsxwriter googletest fribidi harfbuzz libpng1.6'

stamp=$(cat "$0" "$here/sources.sh" "$here/toolchain.cmake" "$here/libraries/CMakeLists.txt" | sha256sum)
[ "$(cat "$prefix/stamp" 2>/dev/null)" != "$stamp" ] || exit 0

# Headers alone, and Debian's zlib: copied, since the host's own folder must not be looked into.
copy_packaged() {
    mkdir -p "$prefix/include" "$prefix/lib/pkgconfig" "$prefix/share/cmake"
    cp -r /usr/include/CLI /usr/include/nlohmann "$prefix/include"
    cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$prefix/share/cmake"
    cp /usr/x86_64-w64-mingw32/include/zlib.h /usr/x86_64-w64-mingw32/include/zconf.h "$prefix/include"
    cp /usr/x86_64-w64-mingw32/lib/libz.a "$prefix/lib"
}

note_sources() {
    mkdir -p "$prefix/licences"
    : > "$prefix/sources.txt"
    for library in $libraries; do
        cp "$SOURCES/$library/source/debian/copyright" "$prefix/licences/$library"
        echo "$library $(cat "$SOURCES/$library/version")" >> "$prefix/sources.txt"
    done
    for package in libz-mingw-w64-dev libcli11-dev nlohmann-json3-dev g++-mingw-w64-x86-64-posix; do
        cp "/usr/share/doc/$package/copyright" "$prefix/licences/$package"
        dpkg-query -W -f '${source:Package} ${source:Version}\n' "$package" >> "$prefix/sources.txt"
    done
}

export SOURCES="$work/sources"
. "$here/sources.sh"
echo "Building the libraries for Windows"
rm -rf "$prefix"
list_sources
for library in $libraries; do
    unpack_source "$library"
done
copy_packaged
cmake -S "$here/libraries" -B "$work/build" -G Ninja --log-level=ERROR -Wno-dev -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" -DSOURCES="$SOURCES" >/dev/null
cmake --build "$work/build"
cmake --install "$work/build" >/dev/null
note_sources
echo "$stamp" > "$prefix/stamp"
