# Shared by the desktop checks: a named comparison that counts failures, and the
# standard MPRIS client aimed at the program.
failures=0
expect() {  # expect <what> <wanted> <got>
  if [ "$2" != "$3" ]; then
    echo "FAIL: $1: wanted '$2', got '$3'"
    failures=$((failures + 1))
  else
    echo "ok: $1: $3"
  fi
}
player() { playerctl -p brevane "$@" 2>/dev/null; }

# Waits up to 20 s for the program on the bus, then for the first run's soundscape to
# finish fading in to Master's level.
wait_for_player() {
  for _ in $(seq 1 80); do
    playerctl -l 2>/dev/null | grep -qx brevane && break
    sleep 0.25
  done
  expect "on the bus" brevane "$(playerctl -l 2>/dev/null | grep -x brevane)"
  for _ in $(seq 1 80); do
    [ "$(player volume)" = "0.600000" ] && break
    sleep 0.25
  done
}
