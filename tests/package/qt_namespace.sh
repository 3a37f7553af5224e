#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# A Qt that was built in a namespace: ours is configured with its definition, which reaches the core,
# that knows no Qt, and who uses pkg-config. Then the headers are read as such a Qt's: each that
# applications include, alone, and all of ours behind Qt's, where a class declared outside of the
# namespace is another one. Nothing is linked. Arguments: source directory of this folder, C++ compiler.
set -euo pipefail
here=$1 compiler=$2
source=$(realpath "$here/../..")
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

cat >"$stage/namespace.cmake" <<'END'
find_package(Qt5 REQUIRED COMPONENTS Core)
set_property(TARGET Qt5::Core APPEND PROPERTY INTERFACE_COMPILE_DEFINITIONS QT_NAMESPACE=Own)
END
cmake -G Ninja -S "$source" -B "$stage/build" -DCMAKE_CXX_COMPILER="$compiler" \
  -DCMAKE_PROJECT_INCLUDE="$stage/namespace.cmake" -DZQ_BUILD_TESTS=OFF >/dev/null
grep -q -- '-DQT_NAMESPACE=Own$' "$stage/build/ZQFeatureBrowser.pc"
object=src/CMakeFiles/zq_core.dir/ZQFeatureBrowser.cpp.o
cmake --build "$stage/build" --target $object >/dev/null
nm -C "$stage/build/$object" |
  grep 'U featurebrowser::CameraFeatureBrowser::CameraFeatureBrowser(Own::QWidget\*)' >/dev/null

read_headers() { # reads what comes as lines
  # shellcheck disable=SC2046
  "$compiler" -std=c++17 -fPIC -fsyntax-only -DQT_NAMESPACE=Own -I"$source/include" \
    -I"$source/widget" -I"$source/imageview" -I"$source/viewer" -I"$source/translations" \
    $(pkg-config --cflags Qt5Widgets | sed 's/-I/-isystem /g') -x c++ -
}
for header in ZQFeatureBrowser CameraFeatureBrowser ZQImageView; do
  echo "#include \"featurebrowser/$header.h\"" | read_headers
done
cd "$source"
{ echo '#include <QtWidgets>' && find widget imageview viewer -name '*.h' -printf '#include "%P"\n'; } |
  read_headers
