# The one list of what the project needs from the system, for ./run, ./test and CI: source it, then call
# install_packages. Each row is a Debian package and a probe that tells whether it is there. Who also wants another list
# adds it to PACKAGES before.

PACKAGES='
g++                 command -v g++
cmake               command -v cmake
ninja-build         command -v ninja
pkg-config          command -v pkg-config
qt6-base-dev        has_pkg Qt6Widgets
qt6-base-dev-tools  test -n "$(find /usr/lib /usr/lib64 -path "*qt6/libexec/rcc" -print -quit 2>/dev/null)"
libharfbuzz-dev     has_pkg harfbuzz-subset
libfribidi-dev      has_pkg fribidi
libfontconfig-dev   has_pkg fontconfig
zlib1g-dev          has_pkg zlib
libexpat1-dev       has_pkg expat
libzip-dev          has_pkg libzip
libgsf-1-dev        has_pkg libgsf-1
libxlsxwriter-dev   has_pkg xlsxwriter
libcups2-dev        has_file include/cups/cups.h
libcli11-dev        has_file include/CLI/CLI.hpp
nlohmann-json3-dev  has_file include/nlohmann/json.hpp
libgtest-dev        has_pkg gtest
fonts-liberation    has_font "Liberation Sans"
fonts-dejavu-core   has_font "DejaVu Sans"
fonts-dejavu-extra  has_font "DejaVu Math TeX Gyre"
fontconfig          command -v fc-list
desktop-file-utils  command -v desktop-file-validate
appstream           command -v appstreamcli
shared-mime-info    command -v update-mime-database
libglib2.0-bin      command -v gio
poppler-utils       command -v pdftotext
qpdf                command -v qpdf
cups-daemon         PATH=$PATH:/usr/sbin command -v cupsd
cups-client         command -v lpstat
cups-filters        test -x /usr/lib/cups/filter/pdftopdf
cups-ipp-utils      command -v ipptool
dbus                command -v dbus-daemon
bsdutils            command -v script
avahi-daemon        PATH=$PATH:/usr/sbin command -v avahi-daemon
'

# For tools/lint, and a linker that takes a third of the time.
LINT_PACKAGES='
lld                 command -v ld.lld
clang-tidy          command -v clang-tidy
cppcheck            command -v cppcheck
python3             command -v python3
'

# For ./test --windows: the cross compiler, what its libraries' sources are unpacked with, and what runs the programs.
WINDOWS_PACKAGES='
g++-mingw-w64-x86-64-posix  command -v x86_64-w64-mingw32-g++-posix
libz-mingw-w64-dev          has_file x86_64-w64-mingw32/lib/libz.a
dpkg-dev                    command -v dpkg-source
wine64                      test -x /usr/lib/wine/wine64
wine                        command -v wine
ghostscript                 command -v gs
'

# For ./windows, beside those.
INSTALLER_PACKAGES='
nsis                command -v makensis
'

# For ./test --coverage.
COVERAGE_PACKAGES='
gcovr               command -v gcovr
'

has_pkg() { pkg-config --exists "$1"; }
has_file() { [ -e "/usr/$1" ] || [ -e "/usr/local/$1" ]; }
has_font() { fc-list "$1" 2>/dev/null | grep -q .; }

missing_packages() {
    while read -r package probe; do
        [ -z "$package" ] || eval "$probe" >/dev/null 2>&1 || echo "$package"
    done <<EOF
$PACKAGES
EOF
}

install_packages() {
    missing=$(missing_packages | tr '\n' ' ')
    [ -z "$missing" ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "These are missing (by their Debian names), and there is no apt-get to install them: $missing" >&2
        return 1
    fi
    as_root=
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Install these as root first: $missing" >&2; return 1; }
        as_root=sudo
    fi
    echo "Installing: $missing"
    # shellcheck disable=SC2086
    $as_root apt-get update -q >/dev/null &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -yq --no-install-recommends $missing >/dev/null ||
        { echo "The packages could not be installed: $missing" >&2; return 1; }
    missing=$(missing_packages | tr '\n' ' ')
    [ -z "$missing" ] || { echo "Installed, but still not found: $missing" >&2; return 1; }
}
