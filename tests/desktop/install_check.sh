#!/usr/bin/env bash
# The program as a user installs it. The .deb that cpack makes passes lintian; unpacked
# with dpkg-deb -x into a throw-away prefix, its desktop entry and metainfo validate and
# its icon is where the entry names it. Started by the entry's Exec line with a fresh
# home: sound plays, the media keys silence it and bring it back, the title is the
# scenario, the session is written in the user's folder, and nothing under the prefix
# changes. Run under dbus-run-session.
# Usage: install_check.sh <build folder>
set -u
build="$1"
work=$(mktemp -d)
pid=""
trap '[ -n "$pid" ] && kill -TERM "$pid" 2>/dev/null; wait 2>/dev/null; rm -rf "$work"' EXIT
source "$(dirname "$0")/checks.sh"

cpack --config "$build/CPackConfig.cmake" -B "$work/pkg" >"$work/cpack.txt" 2>&1 ||
  { cat "$work/cpack.txt"; echo "FAIL: cpack"; exit 1; }
deb=$(ls "$work"/pkg/brevane_*.deb)
lintian --fail-on error "$deb" >"$work/lintian.txt" 2>&1
expect "lintian finds no error" 0 "$?"
grep '^E:' "$work/lintian.txt"

root="$work/root"
dpkg-deb -x "$deb" "$root"
entry="$root/usr/share/applications/org.brevane.Brevane.desktop"
desktop-file-validate "$entry"
expect "desktop entry is valid" 0 "$?"
appstreamcli validate --no-net "$root/usr/share/metainfo/org.brevane.Brevane.metainfo.xml" >/dev/null
expect "metainfo is valid" 0 "$?"
icon=$(sed -n 's/^Icon=//p' "$entry")
[ -f "$root/usr/share/icons/hicolor/scalable/apps/$icon.svg" ] && [ -f "$root/usr/share/icons/hicolor/48x48/apps/$icon.png" ] && found=yes || found=no
expect "icon in the theme" yes "$found"

sums() { (cd "$root" && find . -type f -print0 | sort -z | xargs -0 sha256sum); }
sums >"$work/before.txt"

# Peak of the 32-bit float output written since byte $1.
peak_since() {
  tail -c +"$(($1 + 1))" "$work/out.raw" | od -An -v -f |
    awk '{ for (i = 1; i <= NF; i++) { v = $i < 0 ? -$i : $i; if (v > m) m = v } } END { printf "%s", (m > 0.001 ? "sound" : (m > 0.0001 ? "faint" : "silence")) }'
}
size() { stat -c %s "$work/out.raw"; }
# Listens to one second of what the program plays.
listen() { local from; from=$(size); sleep 1; peak_since "$from"; }

home="$work/home"
mkdir -p "$home"
exec_line=$(sed -n 's/^Exec=//p' "$entry" | sed 's/ %[a-zA-Z]//g')
(cd "$home" && exec env -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME="$home" PATH="$root/usr/bin:$PATH" \
   QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/out.raw" \
   sh -c "exec $exec_line" >"$work/log.txt" 2>&1) &
pid=$!
wait_for_player
expect "title is the scenario" "Summer Storm" "$(player metadata title)"
expect "sound plays" sound "$(listen)"
player play-pause; sleep 0.5
expect "pause silences" silence "$(listen)"
player play-pause; sleep 0.5
expect "play brings the sound back" sound "$(listen)"

kill -TERM "$pid"; wait "$pid"; status=$?; pid=""
expect "quits cleanly" 0 "$status"
user="$home/.local/share/brevane"
[ -s "$user/main.tmp" ] && [ -s "$user/mainb.tmp" ] && written=yes || written=no
expect "session in the user's folder" yes "$written"
grep -q "Summer Storm" "$user/main.tmp" && named=yes || named=no
expect "session names the scenario" yes "$named"
sums >"$work/after.txt"
cmp -s "$work/before.txt" "$work/after.txt" && same=yes || same=no
expect "prefix unchanged" yes "$same"
[ "$failures" -eq 0 ] || cat "$work/log.txt"
[ "$failures" -eq 0 ]
