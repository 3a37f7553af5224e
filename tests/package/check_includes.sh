#!/usr/bin/env bash
# Each folder includes only what its place in the house allows. Argument: the source directory.
set -euo pipefail
cd "$1"
status=0
forbid() { # folders, what they may not include
  if grep -rnE "^ *# *include *[<\"]($2)" $1 --include='*.h' --include='*.cpp'; then
    echo "^ $1 may not include this" >&2
    status=1
  fi
}
foreign_ui='Q[A-Z]|Qt|qwt|qglobal|K[A-Z]'
foreign_camera='arv|glib|gio|gobject|pugixml'
forbid include "$foreign_ui|$foreign_camera|safe_"
forbid src "$foreign_ui|$foreign_camera|\.\./"
forbid widget "$foreign_camera|safe_|\.\./(src|device)"
forbid device "$foreign_ui|safe_|\.\./(src|widget)"
forbid viewer "$foreign_camera|safe_|\.\./(src|widget|device)"
exit $status
