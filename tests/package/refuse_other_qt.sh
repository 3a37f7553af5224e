#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# A program of one Qt that takes the libraries for the other is told so: by CMake, by the compiler,
# and when it runs. Arguments: build directory, source directory of this folder, C++ compiler, flags
# of that build, its Qt's version.
set -euo pipefail
build=$1 source=$2 compiler=$3 flags=$4 qt=$5
other=$((11 - qt))
if [ "$qt" = 5 ]; then package=ZQFeatureBrowser wanted=Qt6 unwanted=; else
  package=ZQFeatureBrowserQt6 wanted= unwanted=Qt6
fi
pkg-config --exists Qt${other}Widgets || {
  echo "Needs Qt $other"
  exit $([ -z "${ZQ_MUST_RUN:-}" ] && echo 77 || echo 1)
}
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cmake --install "$build" --prefix "$stage/prefix" >/dev/null

expect() { # words, command...: fails and says so
  if "${@:2}" >"$stage/said" 2>&1 || ! tr -s '\n ' ' ' <"$stage/said" | grep -qF "$1"; then
    cat "$stage/said"
    echo "Not refused with: $1"
    exit 1
  fi
}
configure() { # which of the two is found first
  cmake --fresh -G Ninja -S "$source/other_qt" -B "$stage/build" -DCMAKE_PREFIX_PATH="$stage/prefix" \
    -DPACKAGE=$package -DQT="$other" -DFIRST="$1" -DCMAKE_CXX_COMPILER="$compiler"
}
expect "find ZQFeatureBrowser$wanted instead" configure qt
expect 'not agree with the value of QT_MAJOR_VERSION' configure package
echo "CMake: refused"

PKG_CONFIG_PATH=$(dirname "$(find "$stage/prefix" -name $package.pc)")
libdir=$(dirname "$PKG_CONFIG_PATH")
export PKG_CONFIG_PATH QT_QPA_PLATFORM=offscreen LD_LIBRARY_PATH=$libdir
build() { # source, package: with the other Qt
  # shellcheck disable=SC2046,SC2086
  "$compiler" $flags -std=c++17 -fPIC "$source/consumer/$1.cpp" -o "$stage/program" \
    $(pkg-config --cflags --libs Qt${other}Widgets "$2")
}
expect 'made for another Qt' build image "ZQImageView$unwanted"
build main $package
expect "link libZQFeatureBrowserWidget$wanted instead" "$stage/program"
echo "Compiler and program: refused"
