#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Makes the API reference, whose warnings are errors. Argument: the Doxyfile.
set -euo pipefail
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT
{ cat "$1"; echo "OUTPUT_DIRECTORY = $output"; } | doxygen -
[ -f "$output/html/classfeaturebrowser_1_1FeatureReceiverAdapter.html" ]
