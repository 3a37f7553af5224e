#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Installs into a staging prefix and builds consumers against it with CMake and with pkg-config: the
# examples of README as they stand, and a program that shows that it works. Arguments: build
# directory, source directory of this folder, C++ compiler, flags of that build, its Qt's version.
set -euo pipefail
build=$1 source=$2 compiler=$3 flags=$4 qt=$5
suffix=$([ "$qt" = 5 ] || echo "Qt$qt")
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

# First below another prefix, then moved: an installed tree may not depend on where it was built.
cmake --install "$build" --prefix "$stage/first" >/dev/null
mv "$stage/first" "$stage/prefix"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=0 # Qt's off-screen platform leaks its screen

example() { # language, number: that block of README
  awk -v fence="\`\`\`$1" -v wanted="$2" '
    $0 == fence { inside = ++count == wanted; next }
    $0 == "```" { inside = 0 }
    inside' "$source/../../README.md"
}
mkdir "$stage/readme"
example cmake 1 | sed "s/ZQFeatureBrowser 1/ZQFeatureBrowser$suffix 1/; s/Qt5/Qt$qt/g" \
  >"$stage/readme/application.cmake"
example cpp 1 >"$stage/readme/application.cpp"
{
  echo '#include <featurebrowser/ZQCamera.h>'
  echo 'void open();'
  echo 'void open() {'
  example cpp 2
  echo '}'
} >"$stage/readme/opening.cpp"

cmake -G Ninja -S "$source/consumer" -B "$stage/consumer" -DCMAKE_PREFIX_PATH="$stage/prefix" \
  -DREADME="$stage/readme" -DQT="$qt" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$stage/consumer" >/dev/null
"$stage/consumer/consumer"
! command -v msgfmt >/dev/null ||
  LC_ALL=C.UTF-8 LANGUAGE=de "$stage/consumer/consumer" | grep -x "none: keine solche Datei"
"$stage/consumer/image"
echo "find_package(ZQFeatureBrowser$suffix): built and ran; README's examples: built"

libdir=$(dirname "$(find "$stage/prefix" -name "libZQFeatureBrowser$suffix.so")")
export PKG_CONFIG_PATH=$libdir/pkgconfig
for library in ZQFeatureBrowser ZQFeatureBrowserWidget ZQDeviceManager ZQImageView; do
  pkg-config --exact-version="$(pkg-config --modversion "ZQFeatureBrowser$suffix")" "$library$suffix"
done
# shellcheck disable=SC2046,SC2086
"$compiler" $flags -std=c++17 -fPIC "$source/consumer/main.cpp" -o "$stage/by_pkg_config" \
  $(pkg-config --cflags --libs "ZQFeatureBrowser$suffix" "Qt${qt}Widgets")
LD_LIBRARY_PATH=$libdir "$stage/by_pkg_config"
# shellcheck disable=SC2046,SC2086
"$compiler" $flags -std=c++17 -fPIC "$source/consumer/image.cpp" -o "$stage/image" \
  $(pkg-config --cflags --libs "ZQImageView$suffix")
LD_LIBRARY_PATH=$libdir "$stage/image"
echo "pkg-config: built and ran"

[ "$qt" != 5 ] || "$stage/prefix/bin/zqviewer" --version
