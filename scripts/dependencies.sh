# Sourced by the other scripts: installs Debian packages that are missing.

# need PACKAGE...
need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing ${missing[*]}"
    local sudo=
    [ "$(id -u)" = 0 ] || sudo=sudo
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libgl-dev libutf8proc-dev
    libdeflate-dev libarchive-dev zlib1g-dev nlohmann-json3-dev libgtest-dev libgmock-dev libbenchmark-dev)
release_packages=(librsvg2-bin dpkg-dev lintian desktop-file-utils appstream mandoc)
test_packages=(clang-format jq fonts-dejavu-core xvfb xauth dbus at-spi2-core python3-pyatspi
    strace openbox xdotool "${release_packages[@]}")
windows_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 wine nsis dpkg-dev make googletest
    qt6-base-dev-tools)
