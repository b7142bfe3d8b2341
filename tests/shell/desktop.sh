# Sourced: a screen of its own with a window manager, for scripts that drive the real program.

desktop_start() {
  local program
  for program in Xvfb openbox xdotool xprop "$@"; do
    command -v "$program" >/dev/null || { echo "$program is not installed" >&2; return 2; }
  done
  unset QT_QPA_PLATFORM
  desktop_number=$(mktemp)
  Xvfb -displayfd 9 -screen 0 "${desktop_size:-1280x900x24}" -nolisten tcp 9>"$desktop_number" >/dev/null 2>&1 &
  desktop_pids=($!)
  local tries
  for tries in $(seq 200); do
    [ -s "$desktop_number" ] && break
    sleep 0.1
  done
  DISPLAY=:$(cat "$desktop_number")
  export DISPLAY
  openbox --sm-disable >/dev/null 2>&1 &
  desktop_pids+=($!)
  for tries in $(seq 450); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
    sleep 0.1
  done
}

desktop_stop() {
  local pid
  for pid in "${desktop_pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  rm -f "$desktop_number"
}

# Waits until a window of that title, which may be a pattern, is seen and has the focus.
desktop_wait() {
  local tries
  for tries in $(seq 450); do
    # shellcheck disable=SC2053
    [[ "$(xdotool getactivewindow getwindowname 2>/dev/null)" == $1 ]] && return 0
    sleep 0.1
  done
  echo "no window \"$1\"; at the front is \"$(xdotool getactivewindow getwindowname 2>/dev/null)\"" >&2
  return 1
}
