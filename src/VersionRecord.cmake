# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Run with -P whenever a source of the core changed. The time is UTC and honours SOURCE_DATE_EPOCH.
string(TIMESTAMP BUILD_TIMESTAMP "%Y-%m-%dT%H:%M:%SZ" UTC)
configure_file(${TEMPLATE} ${OUTPUT} @ONLY)
