#!/usr/bin/env bash
# Installs what is missing of the Debian packages that the named groups need:
#   packaging/debian-packages.sh build run test tidy fuzz package
set -euo pipefail

declare -A packages
packages[build]="
    cmake g++ git ninja-build pkg-config
    libgmock-dev libgtest-dev libicu-dev libsodium-dev libsqlite3-dev libxcb1-dev
    libxcb-shape0-dev libxcb-xfixes0-dev libxkbcommon-dev libxxhash-dev
    qcoro-qt6-dev qt6-base-dev qt6-base-dev-tools qt6-svg-dev
    qt6-declarative-dev qt6-declarative-dev-tools"
packages[run]="
    fonts-inter fonts-noto-color-emoji qt6-wayland x11-utils
    qml6-module-qtqml qml6-module-qtqml-workerscript qml6-module-qtquick
    qml6-module-qtquick-controls qml6-module-qtquick-layouts
    qml6-module-qtquick-templates qml6-module-qtquick-window"
# Checks of the sources, and a desktop without a screen.
packages[test]="
    appstream clang-format desktop-file-utils libglib2.0-bin man-db shellcheck qml6-module-qttest
    python3 python3-dbus python3-dbusmock python3-gi
    at-spi2-core dbus imagemagick libfaketime openbox openssl picom sway trayer wtype
    x11-xserver-utils xdotool xvfb"
packages[tidy]="clang clang-tidy"
packages[fuzz]="clang libclang-rt-dev"
# What makes a Debian package, and what looks at one.
packages[package]="binutils debootstrap dpkg-dev file lintian"

wanted=()
for group in "$@"; do
    read -ra names -d '' <<<"${packages[$group]}" || true # it reads to the end
    wanted+=("${names[@]}")
done

if ! command -v dpkg-query >/dev/null; then
    echo "Not a Debian system. Jotwell needs the counterparts of: ${wanted[*]}" >&2
    exit 0
fi

# dpkg-query fails when it doesn't know one of the packages, and still tells of the others.
known=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null) || true
missing=()
for name in "${wanted[@]}"; do
    grep -qx "$name installed" <<<"$known" || missing+=("$name")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "Missing Debian packages: ${missing[*]}" >&2
        echo "Only root can install them, and there is no sudo here." >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing ${missing[*]}"
"${as_root[@]}" apt-get update -q
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"
