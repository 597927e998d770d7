#!/usr/bin/env bash
# The whole program while it plays: the time from its start to the first sound, resident
# memory with all five random banks loaded and eight loops playing, and its share of one
# core over a minute.
#
#   bash bench/core/program_footprint.sh [build folder] [seconds] [first-run]
#
# The session is the one bench_startup leaves in its temporary tree (every bank set by an
# earlier run), cut down to four loops in each fixed background bank and none in the custom
# one. The program runs on a copy of the build's install tree, offscreen, on SDL's disk
# output, which takes the mix at the pace of a sound card; the level of its last second
# shows that the session was playing. With `first-run` no session is copied: the program
# starts as on a new machine, playing the stock scenario "Summer Storm" with its weather.
set -euo pipefail

build=$(realpath "${1:-build}")
seconds=${2:-60}
mode=${3:-session}
session=/tmp/brevane-bench-session
tree=$(mktemp -d /tmp/brevane-footprint.XXXXXX)
trap 'rm -rf "$tree"' EXIT

"$build/bench/bench_startup" --benchmark_filter='^BM_QuitWritingTheSession/0' >/dev/null
cp "$build/brevane/brevane" "$tree/"
cp -r "$build/brevane/config" "$session/soundbanks" "$tree/"
for folder in bin help visual; do
  ln -s "$build/brevane/$folder" "$tree/$folder"
done
if [ "$mode" = session ]; then
cp "$session"/*.tmp "$session"/*.ini "$tree/"
python3 - "$tree" <<'PY'
import re, sys
tree = sys.argv[1]

def keep_loops(name, count, drop_files=False):
    path = f"{tree}/{name}"
    text = open(path, newline="").read()
    body = text.rstrip("\r\n")
    ending = text[len(body) :]
    fields = body.split(",")
    # The on flags follow the run of rates (800 each in this session).
    first = max(i for i in range(60) if fields[i] == "800") + 1
    for i in range(first + count, first + 18):
        fields[i] = "0"
    body = ",".join(fields)
    if drop_files:
        body = re.sub(r'"soundbanks/background sounds/[^"]*"', '""', body)
    open(path, "w", newline="").write(body + ending)

keep_loops("back.ini", 4)
keep_loops("back2.ini", 4)
keep_loops("backc.ini", 0, drop_files=True)
PY
fi

cd "$tree"
started=$(date +%s.%N)
QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$tree/out.raw" ./brevane >"$tree/log.txt" 2>&1 &
pid=$!
ticks() { awk '{print $14 + $15}' "/proc/$pid/stat"; }
# The first sound: the moment the output holds a sample that is not silence, polled.
python3 - "$tree/out.raw" "$started" <<'PY'
import array, os, sys, time
path, started = sys.argv[1], float(sys.argv[2])
while time.time() - started < 10:
    if os.path.exists(path):
        data = open(path, "rb").read()
        if any(abs(x) > 1e-4 for x in array.array("f", data[: len(data) // 4 * 4])):
            print(f"first sound {time.time() - started:.3f} s after the program was started")
            break
    time.sleep(0.005)
else:
    print("no sound in 10 s")
PY
sleep 20
rss=$(awk '/^VmRSS/ {print $2}' "/proc/$pid/status")
start=$(ticks)
sleep "$seconds"
end=$(ticks)
rss_end=$(awk '/^VmRSS/ {print $2}' "/proc/$pid/status")
kill -TERM "$pid"
wait "$pid" || true

python3 - "$tree/out.raw" <<'PY'
import array, math, sys
raw = array.array("f", open(sys.argv[1], "rb").read()[-44100 * 2 * 4 :])
rms = math.sqrt(sum(x * x for x in raw) / max(len(raw), 1))
print(f"level of the last second: {20 * math.log10(max(rms, 1e-9)):.1f} dBFS RMS")
PY
hz=$(getconf CLK_TCK)
awk -v r="$rss" -v e="$rss_end" -v a="$start" -v b="$end" -v hz="$hz" -v s="$seconds" 'BEGIN {
  printf "resident 20 s after start: %.1f MB; after %d s more: %.1f MB\n", r / 1024, s, e / 1024
  printf "CPU over %d s: %.2f s, %.1f %% of one core\n", s, (b - a) / hz, 100 * (b - a) / hz / s
}'
