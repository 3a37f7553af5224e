#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Runs a command that needs programs which not every machine has; without one it is skipped, or fails
# where ZQ_MUST_RUN is set. Arguments: the programs, separated by spaces; command...
for tool in $1; do
  command -v "$tool" >/dev/null && continue
  echo "Needs $tool"
  [ -z "${ZQ_MUST_RUN:-}" ] && exit 77
  exit 1
done
shift
exec "$@"
