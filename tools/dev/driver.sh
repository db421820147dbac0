# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# Operates the program like a user, on a private display and sound server, for journeys and pictures. A script sources
# this first; everything it starts ends with it, in any case.
set -Eeuo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

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

# The user's own settings must neither influence the journey nor be changed.
mkdir -m 700 "$scratch/home" "$scratch/run"
export HOME=$scratch/home XDG_RUNTIME_DIR=$scratch/run LC_ALL=C.UTF-8
export PULSE_SERVER=unix:$scratch/run/sound  # valid after start_sound
: >"$scratch/program.log"
unset DISPLAY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS "${!XDG_@}"
export XDG_RUNTIME_DIR=$scratch/run

# ---- Conditions ------------------------------------------------------------

fail() {
  echo "$journey, line ${BASH_LINENO[-2]}: FAILED: $*" >&2
  exit 1
}

expect_soon() {  # WHAT SECONDS COMMAND: evaluates COMMAND until it succeeds
  wait_until "$2" "$3" || fail "$1: not within $2 s: $3"
}

# ---- Surroundings ----------------------------------------------------------

# A null sink; quill.monitor records what is played.
start_sound() {
  as_companion pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 \
    --realtime=no --high-priority=no --disable-shm=yes \
    -L "module-native-protocol-unix socket=$scratch/run/sound auth-anonymous=1" \
    -L "module-null-sink sink_name=quill norewinds=1" >"$scratch/sound.log" 2>&1 &
  companions+=($!)
  wait_until 10 'pactl get-default-sink 2>/dev/null | grep -q quill' || fail "no sound: $(<"$scratch/sound.log")"
}

# The recorder's device records what is played on the sink.
use_sound_card() {
  printf 'pcm.!default { type pulse }\nctl.!default { type pulse }\n' >"$scratch/asound.conf"
  export ALSA_CONFIG_PATH=$scratch/asound.conf
}

start_bus() {  # a private session bus, with the process id $bus
  exec {bus_fd}< <(as_companion dbus-daemon --session --nofork --nopidfile --print-address 2>/dev/null)
  bus=$!
  companions+=("$bus")
  read -r -t 20 -u "$bus_fd" DBUS_SESSION_BUS_ADDRESS || fail "no session bus"
  export DBUS_SESSION_BUS_ADDRESS
}

# A private session bus with an accessibility bus, switched on as by a screen reader. Call it after start_display.
start_accessibility() {
  start_bus
  dbus-send --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
    string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null || fail "no accessibility bus"
}

play_noise() {  # SECONDS
  ffmpeg -v error -f lavfi -i "anoisesrc=d=$1:a=0.9:r=44100:c=pink:seed=1" -af tremolo=f=0.5:d=0.6 -ac 2 "$scratch/noise.wav"
  as_companion paplay --device=quill "$scratch/noise.wav" &
  companions+=($!)
}

lay_folder() {  # copies the portable folder to a new $folder
  folder=$(mktemp -d "$scratch/folder.XXXX")
  cp -a "$PORTABLE_DIR/." "$folder/"
  # without recent files and settings of trial runs
  rm -f "$folder"/Files/LastFiles*.ini
  cp "$root/data/Files/Quillmere.ini" "$folder/Files/Quillmere.ini"
}

# ---- The program -----------------------------------------------------------

start_program() {  # [ARGUMENTS]: starts the program in $folder and stores the player's window id in $window
  launch "$folder/quillmere" "$@" >>"$scratch/program.log" 2>&1 || fail "the player's window did not appear"
}

quit_program() {
  local code=0
  close_program || code=$?
  ((code == 0)) || fail "exit code on Ctrl+Q: $code"
}

settings_line() {  # N
  sed -n "$1{s/\r\$//;p;q}" "$folder/Files/Quillmere.ini"
}

set_line() {  # N TEXT [N TEXT]...: call it before the start
  while (($#)); do
    sed -i "$1s/.*/$2\r/" "$folder/Files/Quillmere.ini"
    shift 2
  done
}

box() {  # succeeds if a message box waits for an answer
  xprop -id "$(xdotool getactivewindow 2>/dev/null)" _NET_WM_WINDOW_TYPE 2>/dev/null | grep -q _DIALOG
}

answer() {  # KEYS...: presses them in the next message box
  expect_soon "a message box appears" 10 box
  key "$@"
}

switch_to() {  # TITLE: a regular expression
  use_window "$1" || fail "no window: $1"
}

use_editor() { switch_to "Text Editor - ${1-.*}"; }  # [NAME]

# ---- Input and screenshots of $window: the player, unless use_window chose another --

key() {  # KEYS..., as in: key ctrl+s Return
  xdotool key --clearmodifiers "$@"
}

type_text() {  # TEXT
  local delay=15
  # A character without a key is mapped temporarily; the program needs time to notice.
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

# ---- The player's skin: coordinates in pixels of the skin, which lies below the menu bar ------

skin_top() {  # height of the menu bar
  eval "$(xdotool getwindowgeometry --shell "$window")"
  echo $((HEIGHT - 175))
}

press() {  # NAME: clicks a button of the skin
  local -A buttons=([open]="42 109" [play]="94 109" [back]="134 109" [stop]="172 109" [forward]="210 109" [record]="245 109" [seek]="${2-} 154")
  local -a place
  read -ra place <<<"${buttons[$1]}"
  click "${place[0]}" $((place[1] + $(skin_top)))
}

hover() {  # X Y
  local y=$(($2 + $(skin_top)))
  # A mouse that does not move sends no event.
  xdotool mousemove --window "$window" "$1" $((y + 1)) mousemove --window "$window" "$1" "$y"
}

shows() {  # PICTURE X Y: succeeds if the skin shows this picture of Files there
  local file=$folder/Files/$1 size
  size=$(identify -format '%wx%h' "$file")
  import -window "$window" -crop "$size+$2+$(($3 + $(skin_top)))" +repage "$scratch/shown.png"
  # Tolerates text, pointers and JPEG noise.
  (($(compare -metric AE -fuzz 4% "$file" "$scratch/shown.png" null: 2>&1 || true) < 20))
}

# A checksum of a part of $window, to detect changes.
glance() {  # X Y WIDTH HEIGHT
  import -window "$window" -crop "$3x$4+$1+$2" +repage -depth 8 rgb:- | md5sum
}

rest_mouse() { hover 330 150; }  # after a click or an open, a button keeps its picture until the mouse moves elsewhere

playing() { shows pause.jpg 70 84 || shows pause2.jpg 70 84; }
resting() { shows play.jpg 70 84 || shows play2.jpg 70 84; }

now() { echo $((${EPOCHREALTIME/[.,]/} / 1000)); }  # ms

settle() {  # MS COMMAND...: prints its output once it has been unchanged for MS
  local ms=$1 look=("${@:2}") last='' since seen
  since=$(now)
  wait_until 20 'seen=$("${look[@]}"); [[ $seen == "$last" ]] || since=$(now); last=$seen; (($(now) - since > ms))' ||
    fail "does not come to rest: ${look[*]}"
  echo "$last"
}

# Like position, after the bar has stopped: the effect of a key is drawn at the player's next tick.
rest_position() { settle 300 position; }

# [SECONDS]: the filled part of the position bar, in tenths of a second; SECONDS is the length of the recording
# (default: the sample)
position() {
  local filled
  # Counts light teal pixels in one row of the bar; the text on it is dark.
  filled=$(import -window "$window" -crop "309x1+20+$((148 + $(skin_top)))" +repage -depth 8 rgb:- |
    od -An -v -tu1 -w3 | awk '$1 > 90 && $3 - $1 > 30 { n++ } END { print n + 0 }')
  echo $((filled * ${1-66} * 10 / 309))
}
