# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# Shared by ./run, ./test and the journeys: packages, the build, a private display and the program on it. Sourcing this
# file starts nothing.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
dev=$root/tools/dev

die() {
  echo "${0##*/}: $*" >&2
  exit 1
}

wait_until() {  # SECONDS COMMAND: evaluates COMMAND every 50 ms until it succeeds
  local end=$((${EPOCHREALTIME/[.,]/} + $1 * 1000000))
  until eval "$2"; do
    ((${EPOCHREALTIME/[.,]/} < end)) || return 1
    sleep 0.05
  done
}

# A single query of the package database finds missing packages. Apt runs only if there are some, so that a warm start
# costs milliseconds and needs no network.
require_packages() {  # LIST...
  local wanted missing as_root=()
  wanted=$(cd "$dev" && sed 's/ *#.*//; /^$/d' "$@")
  # shellcheck disable=SC2086
  missing=$(comm -23 <(sort <<<"$wanted") <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
    sed -n 's/^installed //p' | sort))
  [[ $missing ]] || return 0
  missing=$(paste -sd' ' <<<"$missing")
  if ((EUID != 0)); then
    command -v sudo >/dev/null || die "run as root, or install first: apt-get install --no-install-recommends $missing"
    as_root=(sudo)
  fi
  echo "Installing: $missing"
  # A stale package list is better than none; if it does not suffice, the installation reports it.
  "${as_root[@]}" apt-get update -q || true
  # shellcheck disable=SC2086
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends -o DPkg::Lock::Timeout=300 $missing ||
    die "these packages could not be installed: $missing"
}

build() {  # PRESET
  local dir=$root/build/$1
  # Ninja detects changes of CMakeLists.txt files, but not of the presets.
  [[ $dir/build.ninja -nt $root/CMakePresets.json ]] || cmake -S "$root" --preset "$1"
  cmake --build "$dir"
}

# Runs a command that is terminated with this shell, even if the shell is killed.
as_companion() {
  exec setpriv --pdeathsig TERM "$@"
}

companions=()  # processes to stop before leaving

stop_companions() {
  ((${#companions[@]})) || return 0
  kill "${companions[@]}" 2>/dev/null || true
  wait_until 5 '! kill -0 "${companions[@]}" 2>/dev/null' || kill -KILL "${companions[@]}" 2>/dev/null || true
  companions=()
}

start_server() {  # [OPTIONS] of Xvfb
  local number
  exec {display_fd}< <(as_companion Xvfb -displayfd 1 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp -noreset "$@" 2>/dev/null)
  companions+=($!)
  read -r -t 20 -u "$display_fd" number || die "Xvfb did not start"
  unset WAYLAND_DISPLAY
  export DISPLAY=:$number QT_QPA_PLATFORM=xcb
  # A layout with most European letters: for a missing one, xdotool has to change the key map, which the program may
  # notice too late.
  setxkbmap us altgr-intl
}

start_display() {  # [OPTIONS] of Xvfb
  start_server "$@"
  as_companion openbox --sm-disable --config-file "$dev/openbox.xml" 2>/dev/null &
  companions+=($!)
  wait_until 20 'xdotool get_num_desktops >/dev/null 2>&1' || die "openbox did not start"
}

# Waits for a window with this title, activates it and stores its id in $window.
use_window() {  # TITLE [SECONDS]
  wait_until "${2:-10}" 'window=$(xdotool search --onlyvisible --limit 1 --name "^'"$1"'$" 2>/dev/null)' || return 1
  # A dialog that has just closed may change the focus once more, and xdotool would wait in vain: try twice.
  timeout 2 xdotool windowactivate --sync "$window" 2>/dev/null || timeout 3 xdotool windowactivate --sync "$window" 2>/dev/null
}

running() {
  kill -0 "$program" 2>/dev/null
}

# Waits for the player window; stops waiting if the program has ended.
find_player() {  # SECONDS
  wait_until "$1" 'use_window Quillmere 0 || ! running' && running
}

launch() {  # PROGRAM [ARGUMENTS]: starts it and waits for the player window
  as_companion "$@" &
  program=$!
  companions+=("$program")
  find_player 30
}

# Closes the program like a user. Returns its exit code, or 124 if it does not end.
close_program() {
  find_player 10 && xdotool key --clearmodifiers ctrl+q
  wait_until 10 '! running' || return 124
  wait "$program"
}
