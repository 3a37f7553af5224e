#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# As a part of another build the project brings its targets, and neither programs nor files to
# install. Arguments: source directory of this folder, C++ compiler, Qt's version.
set -euo pipefail
source=$1 compiler=$2 qt=$3
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT

cmake -G Ninja -S "$source/embedding" -B "$stage/build" -DZQ_SOURCE="$(realpath "$source/../..")" \
  -DZQ_QT_VERSION="$qt" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --install "$stage/build" --prefix "$stage/prefix" >/dev/null
[ ! -e "$stage/prefix" ] || { find "$stage/prefix"; exit 1; }
echo "Embedded: own names only, nothing to install"
