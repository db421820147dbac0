# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# For the journeys: one person's way through the whole program, on a display
# and a sound server of its own. A journey sources this first; what it starts
# is gone when it ends, however it ends.
set -Eeuo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/dev/common.sh"

: "${PORTABLE_DIR:?has to name the portable folder that was built}"
journey=$(basename "$0" .journey.sh)
shots=${SHOTS_DIR:-$(dirname "$PORTABLE_DIR")/journeys}/$journey  # screenshots
scratch=$(mktemp -d "${TMPDIR:-/tmp}/journey.XXXXXX")
program=

leave() {
  local code=$?
  trap - EXIT ERR
  if ((code != 0)); then
    [[ ! ${DISPLAY-} ]] || screenshot failed || true
    sed '/^ALSA lib/d; s/^/  program: /' "$scratch/program.log" >&2 || true
  fi
  stop_companions
  rm -rf "$scratch"
  exit $code
}
trap leave EXIT
trap 'exit 130' INT TERM HUP
trap 'echo "$journey, line $LINENO: code $? from: $BASH_COMMAND" >&2' ERR

# Nothing of the person who runs the journey may show through, or be touched.
mkdir -m 700 "$scratch/home" "$scratch/run"
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run LC_ALL=C.UTF-8
export PULSE_SERVER=unix:$scratch/run/sound  # answers after start_sound only
: >"$scratch/program.log"
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS "${!XDG_@}"
export XDG_RUNTIME_DIR=$scratch/run

# ---- Assertions ------------------------------------------------------------

fail() {
  echo "$journey, line ${BASH_LINENO[-2]}: FAILED: $*" >&2
  exit 1
}

expect() {  # WHAT COMMAND...
  local what=$1
  shift
  "$@" || fail "$what: expected this to succeed: $*"
}

expect_eq() {  # WHAT EXPECTED SEEN
  [[ $2 == "$3" ]] || fail "$1: expected '$2', saw '$3'"
}

expect_soon() {  # WHAT SECONDS COMMAND: COMMAND is evaluated until it succeeds
  wait_until "$2" "$3" || fail "$1: not within $2 s: $3"
}

# ---- Surroundings ----------------------------------------------------------

# A sink nobody hears; what is played can be recorded from quill.monitor.
start_sound() {
  as_companion pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
    --realtime=no --high-priority=no --disable-shm=yes \
    -L "module-native-protocol-unix socket=$scratch/run/sound auth-anonymous=1" \
    -L "module-null-sink sink_name=quill norewinds=1" >"$scratch/sound.log" 2>&1 &
  companions+=($!)
  wait_until 10 'pactl get-default-sink 2>/dev/null | grep -q quill' || fail "no sound: $(<"$scratch/sound.log")"
}

lay_folder() {  # prints a fresh copy of the portable folder
  local folder
  folder=$(mktemp -d "$scratch/folder.XXXX")
  cp -a "$PORTABLE_DIR/." "$folder/"
  echo "$folder"
}

# ---- The program -----------------------------------------------------------

start_program() {  # FOLDER [ARGUMENTS]: leaves the player's number in $window
  local folder=$1
  shift
  launch "$folder/quillmere" "$@" >>"$scratch/program.log" 2>&1 || fail "the player's window did not appear"
}

quit_program() {
  local code=0
  close_program || code=$?
  expect_eq "exit code on Ctrl+Q" 0 "$code"
}

settings_line() {  # FOLDER N
  sed -n "$2{s/\r\$//;p;q}" "$1/Files/Quillmere.ini"
}

# ---- Hands and eyes: on $window, the player unless use_window chose another --

key() {  # KEYS..., as in: key ctrl+s Return
  xdotool key --clearmodifiers "$@"
}

type_text() {  # TEXT
  local delay=15
  # A letter that is on no key is put on one for the moment: the program has to
  # notice in time.
  [[ $1 != *[^[:ascii:]]* ]] || delay=60
  xdotool type --clearmodifiers --delay $delay -- "$1"
}

click() {  # X Y [BUTTON]: relative to the client area
  xdotool mousemove --window "$window" "$1" "$2" click "${3:-1}"
}

screenshot() {  # NAME: the whole display
  mkdir -p "$shots"
  import -window root "$shots/$1.png"
}
