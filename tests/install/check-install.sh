#!/usr/bin/env bash
# cmake --install into a temporary prefix, then what users and packagers rely on: the programs,
# a menu entry that starts an installed program with an installed icon (an SVG that scales),
# metainfo that software centres accept, and an installed app that starts on its own.
# Usage: check-install.sh <cmake> <build folder>
set -euo pipefail
prefix=$(mktemp -d)
home=$(mktemp -d)
trap 'rm -rf "$prefix" "$home"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$1" --install "$2" --prefix "$prefix" >/dev/null
for program in "$prefix"/bin/*; do
  [ -f "$program" ] && [ -x "$program" ] || fail "$program is not an executable program"
done

desktops=("$prefix"/share/applications/*.desktop)
[ -f "${desktops[0]}" ] || fail "no .desktop file in share/applications"
for desktop in "${desktops[@]}"; do
  if command -v desktop-file-validate >/dev/null; then
    desktop-file-validate "$desktop" || fail "$desktop is not a valid desktop entry"
  fi
  exec=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$desktop")
  [ -x "$prefix/bin/$exec" ] || fail "$desktop: Exec=$exec is no installed program"
  icon=$prefix/share/icons/hicolor/scalable/apps/$(sed -n 's/^Icon=//p' "$desktop").svg
  [ -f "$icon" ] || fail "$desktop: no icon $icon"
  [ "$(xmllint --xpath 'namespace-uri(/*)' "$icon")" = http://www.w3.org/2000/svg ] &&
    xmllint --xpath '/*/@viewBox' "$icon" >/dev/null ||
    fail "$icon is not an SVG picture that scales (an svg element with a viewBox)"
done

if command -v appstreamcli >/dev/null; then
  # The metainfo's own rules, and the desktop entry it launches installed beside it.
  appstreamcli validate-tree --no-net "$prefix" || fail "the metainfo does not validate"
else
  echo "SKIP the metainfo check: no appstreamcli (scripts/install-deps installs it)"
fi

shown=$(XDG_DATA_HOME=$home/data XDG_CACHE_HOME=$home/cache XDG_CONFIG_HOME=$home/config \
  GEOQUILL_MAP_OFFLINE=1 GEOQUILL_FIRST_MAP_FRAME=exit "$prefix/bin/$exec") ||
  fail "the installed $exec failed"
[ "$shown" = "first map frame" ] || fail "the installed $exec did not show its map"
