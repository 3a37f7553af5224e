#!/usr/bin/env bash
# Installs into a staging prefix and builds a small consumer against it with CMake and with
# pkg-config. Arguments: build directory, source directory of this folder, C++ compiler, flags of
# that build.
set -euo pipefail
build=$1 source=$2 compiler=$3 flags=$4
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

# First below another prefix, then moved: an installed tree may not depend on where it was built.
cmake --install "$build" --prefix "$stage/first" >/dev/null
mv "$stage/first" "$stage/prefix"
export QT_QPA_PLATFORM=offscreen
export ASAN_OPTIONS=detect_leaks=0 # Qt's off-screen platform leaks its screen

cmake -G Ninja -S "$source/consumer" -B "$stage/consumer" -DCMAKE_PREFIX_PATH="$stage/prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$stage/consumer" >/dev/null
"$stage/consumer/consumer"
echo "find_package(ZQFeatureBrowser): built and ran"

libdir=$(dirname "$(find "$stage/prefix" -name libZQFeatureBrowser.so)")
export PKG_CONFIG_PATH=$libdir/pkgconfig
for library in ZQFeatureBrowser ZQFeatureBrowserWidget ZQDeviceManager; do
  pkg-config --exact-version="$(pkg-config --modversion ZQFeatureBrowser)" $library
done
# shellcheck disable=SC2046,SC2086
"$compiler" $flags -std=c++17 -fPIC "$source/consumer/main.cpp" -o "$stage/by_pkg_config" \
  $(pkg-config --cflags --libs ZQFeatureBrowser Qt5Widgets)
LD_LIBRARY_PATH=$libdir "$stage/by_pkg_config"
echo "pkg-config: built and ran"

"$stage/prefix/bin/zqviewer" --version
