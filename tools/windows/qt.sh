#!/bin/sh
# Builds the part of Qt that the window needs, static, for Windows, from Debian's source, into build/windows-qt/prefix.
# Costs nothing when it is there: a build holds for one version. The machine's own Qt brings the tools, so the source is
# of the same version. HarfBuzz, png and zlib are those of tools/windows/libraries.sh, so that a program has one of each.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
work=$root/build/windows-qt
prefix=$work/prefix

version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev-tools)
[ "$(cat "$prefix/version" 2>/dev/null)" != "$version" ] || exit 0

# What the program does not use.
off='calendarwidget concurrent datetimeedit dbus dial etw fontdialog glib graphicseffect graphicsview hijricalendar ico
icu islamiccivilcalendar jalalicalendar jpeg keysequenceedit lcdnumber mdiarea movie network openssl pdf pkg_config
printsupport sharedmemory splashscreen sql systemsemaphore tabletevent testlib textmarkdownreader textmarkdownwriter
textodfwriter tuiotouch undocommand undoview vulkan wizard xml zstd'
own='harfbuzz png zlib'
bundled='doubleconversion freetype libb2 pcre2'

options() {
    for feature in $off; do echo "-DFEATURE_$feature=OFF"; done
    for library in $own; do echo "-DFEATURE_system_$library=ON"; done
    for library in $bundled; do echo "-DFEATURE_system_$library=OFF"; done
}

export SOURCES="$work/sources"
. "$here/sources.sh"
echo "Building Qt $version for Windows"
if [ "$(cat "$SOURCES/qt6-base/version" 2>/dev/null)" != "$version" ]; then
    rm -rf "$work"
    list_sources
    unpack_source qt6-base
fi
# A build that was broken off goes on.
if [ ! -e "$work/build/build.ninja" ]; then
    # shellcheck disable=SC2046
    cmake -S "$SOURCES/qt6-base/source" -B "$work/build" -G Ninja --log-level=WARNING -Wno-dev $(options) \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$prefix" \
        -DBUILD_SHARED_LIBS=OFF -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_HOST_PATH=/usr \
        -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(uname -m)-linux-gnu/cmake" -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
        -DINPUT_opengl=no
fi
ninja -C "$work/build" ${JOBS:+-j"$JOBS"}
ninja -C "$work/build" install >/dev/null
cp "$SOURCES/qt6-base/source/debian/copyright" "$prefix/copyright"
echo "$version" > "$prefix/version"
