#!/usr/bin/env bash
# Makes the Debian packages of a build, looks them over, and runs the programs out of them as they would be
# installed. Usage: packages.sh BUILD
set -euo pipefail
build=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

cpack --config "$build/CPackConfig.cmake" -B "$folder" >"$folder/cpack.log" || { cat "$folder/cpack.log"; exit 1; }
lintian --allow-root --fail-on error,warning "$folder"/*.deb

root=$folder/root
for package in "$folder"/*.deb; do
  dpkg-deb -x "$package" "$root"
done
for file in share/applications/org.tolvane.Tol.desktop share/metainfo/org.tolvane.Tol.metainfo.xml \
  share/icons/hicolor/48x48/apps/org.tolvane.Tol.png share/bash-completion/completions/tolctl \
  share/man/man1/tol.1.gz share/man/man1/tolctl.1.gz; do
  [ -s "$root/usr/$file" ] || { echo "not packaged: $file"; exit 1; }
done

terminal=$(dpkg-deb -f "$folder"/tolvane-ctl_*.deb Depends)
[[ $terminal != *widgets* ]] || { echo "tolvane-ctl needs windows: $terminal"; exit 1; }
for package in "$folder"/*.deb; do
  [[ $(dpkg-deb -f "$package" Depends) == *libsqlite3-0* ]] || { echo "$package: libraries are not named"; exit 1; }
done

"$root/usr/bin/tolctl" demo "$folder/demo"
"$root/usr/bin/tolctl" --dir "$folder/demo" update --all --on-unconvertible continue >"$folder/update.log" ||
  { cat "$folder/update.log"; exit 1; }

# The window program stays until somebody ends it: here the signal does, whose status is 128 + 15.
cd "$folder/demo"
status=0
QT_QPA_PLATFORM=offscreen timeout --preserve-status --signal=TERM 5 "$root/usr/bin/tol" || status=$?
[ "$status" -eq 143 ] || { echo "tol ended by itself with $status"; exit 1; }
