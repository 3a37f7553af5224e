#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Reads the sources that call Aravis as with the oldest version that the build takes, and with 0.10,
# which has all that has changed since; aravis/arv.h states what differs. Arguments: source directory of
# this folder, C++ compiler.
set -euo pipefail
here=$1 compiler=$2
cd "$here/../../device"
mapfile -t sources < <(grep -rlE --include='*.cpp' '\b(arv_|ARV_)' .)
# shellcheck disable=SC2046
for version in 0.8.20 0.10.0; do
  IFS=. read -r major minor micro <<<$version
  echo "Aravis $version:"
  "$compiler" -std=c++17 -fsyntax-only -Wall -Wextra -Werror -DMAJOR="$major" -DMINOR="$minor" \
    -DMICRO="$micro" -DZQ_VERSION='""' -I. -I../include -I"$here/aravis" \
    $(pkg-config --cflags gio-2.0 libusb-1.0) "${sources[@]}"
done
