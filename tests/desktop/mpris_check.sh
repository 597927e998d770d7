#!/usr/bin/env bash
# The built program on a private session bus, driven by the standard MPRIS client as a
# desktop's media keys would: pause silences, play restores, next and previous change
# the scenario, the title follows, the volume is Master's. Run under dbus-run-session.
# Usage: mpris_check.sh <build tree folder>
set -u
built="$1"
run=$(mktemp -d)
trap 'kill -TERM "$pid" 2>/dev/null; wait "$pid" 2>/dev/null; rm -rf "$run"' EXIT
# A tree of the run's own: the program copied, the built folders linked.
cp "$built/brevane" "$run/brevane"
for d in "$built"/*/; do ln -s "$d" "$run/$(basename "$d")"; done

source "$(dirname "$0")/checks.sh"

QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy "$run/brevane" >"$run/log.txt" 2>&1 &
pid=$!
wait_for_player
expect "status" Playing "$(player status)"
expect "title" "Summer Storm" "$(player metadata title)"
expect "artist" Brevane "$(player metadata artist)"
expect "volume is Master" 0.600000 "$(player volume)"

player play-pause; sleep 0.5
expect "paused" Paused "$(player status)"
expect "paused is silent" 0.000000 "$(player volume)"
player play-pause; sleep 0.5
expect "playing again" Playing "$(player status)"
expect "at its level again" 0.600000 "$(player volume)"

player next; sleep 1
next_title=$(player metadata title)
[ "$next_title" != "Summer Storm" ] && [ -n "$next_title" ] && moved=yes || moved=no
expect "next changes the scenario" yes "$moved"
player previous; sleep 1
expect "previous comes back" "Summer Storm" "$(player metadata title)"

player volume 0.3; sleep 0.5
expect "volume sets Master" 0.300000 "$(player volume)"

kill -TERM "$pid"; wait "$pid"; status=$?
expect "quits cleanly" 0 "$status"
[ "$failures" -eq 0 ]
