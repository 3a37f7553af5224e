#!/usr/bin/env bash

# SPDX-FileCopyrightText: the ZQFeatureBrowser authors
#
# SPDX-License-Identifier: MIT

# Makes the Debian packages of a build, looks into them, and uses them without installing: the viewer,
# and an example built against what they hold. Arguments: build directory, source directory of the
# project, C++ compiler, flags of that build, its Qt's version.
set -euo pipefail
build=$1 source=$2 compiler=$3 flags=$4 qt=$5
if [ "$qt" = 5 ]; then
  runtime=libzqfeaturebrowser1 dev=libzqfeaturebrowser-dev qt_dev=qtbase5-dev
else
  runtime=libzqfeaturebrowserqt6-1 dev=libzqfeaturebrowserqt6-dev qt_dev=qt6-base-dev
fi
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
export QT_QPA_PLATFORM=offscreen

(cd "$build" && cpack -G DEB -B "$stage" >"$stage/log" 2>&1) || { cat "$stage/log"; exit 1; }
field() { dpkg-deb -f "$stage/$1"_*.deb "$2"; }
check_fields() { # lines of standard input: package, field, what has to stand in it
  while read -r package field wanted; do
    field "$package" "$field" | grep -qF "$wanted" || { echo "$package: $field lacks $wanted"; exit 1; }
  done
}
check_fields <<END
$runtime Depends libaravis-0.8-0 (>= 0.8
$runtime Depends libqt${qt}widgets$qt
$dev Depends $runtime (= $(field $runtime Version))
$dev Depends $qt_dev
END
for package in "$stage"/*.deb; do
  dpkg-deb -x "$package" "$stage/root"
done
lintian --allow-root --fail-on error "$stage"/*.deb >"$stage/lint" 2>&1 || { cat "$stage/lint"; exit 1; }
echo "Packages: fields and lintian"

root=$stage/root/usr
words=share/locale/de/LC_MESSAGES/zqdevicemanager$([ "$qt" = 5 ] || echo qt6).mo
dpkg-deb -c "$stage/$runtime"_*.deb | grep -qF "$words" || { echo "missing: $words"; exit 1; }
check_viewer() { # and the documentation: the packages that there are with Qt 5 only
  check_fields <<END
zqviewer Depends $runtime (= $(field $runtime Version))
libzqfeaturebrowser-doc Architecture all
END
  for file in lib/udev/rules.d/60-zqfeaturebrowser.rules share/icons/hicolor/scalable/apps/zqviewer.svg \
    share/doc/zqviewer/{copyright,NOTICE} share/doc/libzqfeaturebrowser-doc/{embedding.md,examples/dock.cpp}; do
    [ -s "$root/$file" ] || { echo "missing: $file"; exit 1; }
  done
  desktop-file-validate "$root"/share/applications/*.desktop
  appstreamcli validate --no-net "$root"/share/metainfo/*.xml
  LD_LIBRARY_PATH=$(dirname "$(find "$root" -name libZQFeatureBrowser.so)")
  export LD_LIBRARY_PATH
  [ "$("$root/bin/zqviewer" --simulate --set Width=640 --get Width 2>/dev/null)" = 640 ]
  zcat "$root/share/man/man1/zqviewer.1.gz" | sed 's/\\-/-/g' >"$stage/manual"
  "$root/bin/zqviewer" --help | grep -oE '^ +(-., )?--[a-z-]+' | grep -oE -- '--.*' | while read -r option; do
    grep -qE -- "$option( |$)" "$stage/manual" || { echo "the manual lacks $option"; exit 1; }
  done
  echo "Viewer: runs, and its manual has all its options"
}
[ "$qt" != 5 ] || check_viewer

cmake -G Ninja -S "$source/examples" -B "$stage/examples" -DCMAKE_PREFIX_PATH="$root" \
  -DZQ_QT_VERSION="$qt" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$stage/examples" --target zq_features >/dev/null
grep -q "Width = " <<<"$("$stage/examples/zq_features")"
echo "Example: built against the development package and ran"
