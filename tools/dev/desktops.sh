#!/usr/bin/env bash
# Tries the program under real window managers, each on a display of its own, and prints what was seen as a table:
# tools/dev/desktops.sh [WM...]; without names, all that are known. One that is not installed is left out with a note.
# Exit code 1 if a cell of the table is not "ok".
export PORTABLE_DIR=${PORTABLE_DIR:-$(dirname "$0")/../../build/quillmere}
known=(openbox xfwm4 kwin_x11 mutter marco metacity)

# ---- One window manager: `desktops.sh --under WM` prints a line "check|seen" for each check ---------------------------

start_manager() {  # WM
  local -A options=([openbox]="--sm-disable" [xfwm4]="--compositor=off" [kwin_x11]="" [mutter]="--x11 --sm-disable"
    [marco]="--no-composite --sm-disable" [metacity]="--no-composite --sm-disable")
  # A session bus and settings of its own: defaults, whatever desktop this machine has.
  # shellcheck disable=SC2086
  QT_QPA_PLATFORMTHEME='' KWIN_COMPOSE=N GSETTINGS_BACKEND=memory LIBGL_ALWAYS_SOFTWARE=1 \
    as_companion dbus-run-session -- "$1" ${options[$1]} >"$scratch/manager.log" 2>&1 &
  companions+=($!)
  wait_until 30 'xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id"' || return 1
}

cell() {  # CHECK SEEN
  local seen
  seen=$(paste -sd';' <<<"${2-}")
  printf '%s|%s\n' "$1" "${seen:-ok}"
}

title_of() { xdotool getwindowname "$1" 2>/dev/null; }
active() { title_of "$(xdotool getactivewindow 2>/dev/null)"; }
named() { xdotool search --onlyvisible --limit 1 --name "^$1\$" 2>/dev/null; }
state_has() { xprop -id "$1" _NET_WM_STATE 2>/dev/null | grep -q "$2"; }

# The keyboard is where typed letters go: the X focus, and what the window manager believes.
keyboard_in() {  # WINDOW
  [[ $(xdotool getwindowfocus 2>/dev/null) == "$1" && $(xdotool getactivewindow 2>/dev/null) == "$1" ]]
}

keyboard_returns() {  # WINDOW [SECONDS]: prints nothing, or who has the keyboard instead
  wait_until "${2:-5}" "keyboard_in $1" && ! wait_until 1 "! keyboard_in $1" || echo "keyboard in: $(active)"
}

outer_box() {  # WINDOW: left, top, right and bottom with the frame
  local X Y WIDTH HEIGHT frame
  eval "$(xdotool getwindowgeometry --shell "$1")"
  frame=$(xprop -id "$1" _NET_FRAME_EXTENTS | sed 's/.*= //; s/,//g; /:/s/.*/0 0 0 0/')
  read -r X Y < <(xwininfo -id "$1" | awk '/Absolute/ { print $NF }' | xargs)
  # shellcheck disable=SC2086
  set -- ${frame:-0 0 0 0}
  echo $((X - $1)) $((Y - $3)) $((X + WIDTH + $2)) $((Y + HEIGHT + $4))
}

placed() {  # prints nothing if the player is in its place and the editor right below it
  local p e
  read -ra p < <(outer_box "$player")
  read -ra e < <(outer_box "$editor")
  ((p[0] == 50 && p[1] == 50)) || echo "player at ${p[0]},${p[1]}"
  ((e[0] == p[0] && e[1] - p[3] == 2)) || echo "editor at $((e[0] - p[0])),$((e[1] - p[3])) from the player"
}

demanding() {  # prints windows that demand attention
  local each
  for each in $(xprop -root _NET_CLIENT_LIST | grep -o '0x[0-9a-f]*'); do
    ! state_has "$each" DEMANDS_ATTENTION || echo "demands attention: $(title_of "$each")"
  done
}

stacked_above() {  # UPPER LOWER
  local order
  order=$(xprop -root _NET_CLIENT_LIST_STACKING | grep -o '0x[0-9a-f]*' | while read -r each; do echo $((each)); done)
  (($(grep -n "^$1\$" <<<"$order" | cut -d: -f1) > $(grep -n "^$2\$" <<<"$order" | cut -d: -f1)))
}

another_window() {  # succeeds if a window other than player, editor and bookmarks has the keyboard; stores it in $box
  box=$(xdotool getactivewindow 2>/dev/null) && [[ $box != "$player" && $box != "$editor" && $(title_of "$box") != Bookmarks ]]
}

# Opens a box from the editor, closes it and expects the keyboard in the editor: prints what went wrong.
through_box() {  # CLOSE OPEN...
  local box
  to_editor
  key "${@:2}"
  if ! wait_until 3 another_window; then
    echo "does not come"
    return
  fi
  sleep 0.3  # like a hand; a box that has just come may not have taken its first key yet
  key "$1"
  if ! wait_until 10 "[[ ! \$(xdotool search --onlyvisible --name . 2>/dev/null | grep -x $box) ]]"; then
    echo "does not close"
    key "$1"
    return
  fi
  keyboard_returns "$editor"
}

to_editor() {
  keyboard_in "$editor" || timeout 3 xdotool windowactivate --sync "$editor" || true
  wait_until 2 'keyboard_in $editor' || true
}

try_start() {
  local seen
  cell "no demand for attention" "$(sleep 1; demanding)"
  wait_until 3 '[[ ! $(placed) ]]' || seen=$(placed | paste -sd';')
  cell "places of the windows" "${seen-}"
  cell "one click into the text" "$(window=$editor; click 200 150; keyboard_returns "$editor")"
}

try_top() {
  to_editor
  xdotool windowraise "$editor"
  sleep 0.3
  cell "the player stays on top" "$(stacked_above "$player" "$editor" || echo "below the editor")"
}

try_minimise() {
  local seen=''
  to_editor
  xdotool windowminimize "$player"
  wait_until 5 '! named "$editor_name" >/dev/null' || seen="the editor stays; "
  timeout 3 xdotool windowactivate "$player" || true
  wait_until 5 'editor=$(named "$editor_name")' || seen+="the editor does not come back"
  cell "minimise and restore" "${seen:-$(keyboard_returns "$editor")}"
}

# Some window managers keep Ctrl+F1 for themselves; then the menu is the way.
about_box() {
  local seen
  seen=$(through_box Escape ctrl+F1)
  if [[ $seen == "does not come" ]]; then
    timeout 3 xdotool windowactivate --sync "$player" || true
    seen=$(editor=$player through_box Escape alt+o Right Right Up Return)
    seen=${seen:-ok by its menu}
  fi
  echo "$seen"
}

try_boxes() {
  to_editor
  type_text a
  cell "Find" "$(through_box Escape ctrl+f)"
  cell "Replace" "$(through_box Escape ctrl+h)"
  cell "Print" "$(through_box Escape ctrl+p)"
  cell "message" "$(through_box Escape ctrl+n)"
  cell "bookmark's name" "$(through_box Return ctrl+m)"
  cell "list of bookmarks" "$(to_editor; key F8; sleep 0.5; keyboard_returns "$editor"; key F8; keyboard_returns "$editor")"
  cell "opening a recording" "$(through_box Escape ctrl+o)"
  cell "language" "$(through_box Escape ctrl+w)"
  cell "opening a transcript" "$(through_box Escape alt+f o)"
  cell "about box" "$(about_box)"
  cell "no demand for attention later" "$(demanding)"
  cell "the player after Escape in its own box" "$(
    timeout 3 xdotool windowactivate --sync "$player" || true
    key ctrl+o
    wait_until 3 another_window || echo "does not come"
    sleep 0.3
    key Escape
    keyboard_returns "$player")"
}

moves() {  # succeeds if the position bar moves
  local before
  before=$(position 90)
  wait_until 2 "((\$(position 90) != $before))"
}

try_function_keys() {
  local before
  window=$player
  to_editor
  moves || key F5
  cell "F5 in the text" "$(moves || echo "does not play"; key F5; wait_until 5 '! moves' || echo "does not pause")"
  before=$(settle 300 position 90)
  cell "F7 in the text" "$(key F7 F7; wait_until 2 "((\$(position 90) > $before + 20))" || echo "does not step")"
}

# Smart play pauses and plays by itself: the keyboard stays in the program in front, which also stays on
# top.
try_other_program() {
  local other seen=''
  window=$player
  to_editor
  ! moves || key F5
  click 287 $((109 + $(skin_top)))
  as_companion xev -name other -geometry 900x700+100+100 >/dev/null &
  companions+=($!)
  wait_until 5 'other=$(named other)' && timeout 3 xdotool windowactivate --sync "$other"
  wait_until 3 'keyboard_in $other' || seen="it has no keyboard; "
  wait_until 10 '! moves' || seen+="smart play does not pause; "
  wait_until 10 moves || seen+="smart play does not resume; "
  wait_until 10 '! moves' || seen+="smart play does not pause again; "
  keyboard_in "$other" || seen+="keyboard in: $(active); "
  stacked_above "$other" "$editor" || seen+="the editor is above; "
  cell "another program keeps the keyboard" "${seen%; }"
  kill "${companions[-1]}"
  click 287 $((109 + $(skin_top)))
}

try_guide() {
  rm -f "$scratch/guide"
  to_editor
  key F1
  cell "F1 in the text" "$(wait_until 3 '[[ -e $scratch/guide ]]' || echo "no guide")"
}

covers() {  # succeeds if the video covers the whole display
  state_has "$1" FULLSCREEN && [[ $(outer_box "$1") == "0 0 1280 1024" ]]
}

try_film() {
  local film_window
  window=$player
  xdotool mousemove --window "$player" 46 $((40 + $(skin_top))) click --repeat 2 --delay 60 1
  if ! wait_until 5 'film_window=$(named film.mp4)'; then
    cell "full screen" "no video window"
    return
  fi
  xdotool mousemove --window "$film_window" 100 100 click --repeat 2 --delay 60 1
  cell "full screen" "$(wait_until 5 "covers $film_window" || echo "covers $(outer_box "$film_window")")"
  cell "keyboard in full screen" "$(keyboard_returns "$film_window")"
  key Escape
  cell "Escape leaves full screen" "$(wait_until 5 "! state_has $film_window FULLSCREEN" || echo "stays"
    keyboard_returns "$film_window")"
}

set_going() {  # FILE: starts the program without touching the keyboard
  as_companion "$folder/quillmere" "$@" >>"$scratch/program.log" 2>&1 &
  program=$!
  companions+=("$program")
  wait_until 30 'player=$(named Quillmere) && editor=$(named "$editor_name")'
}

under() {  # WM
  editor_name='Text Editor - .*'
  start_server
  start_manager "$1" || { cell "start" "the window manager does not start"; return; }
  start_sound
  lay_folder
  set_line 21 2 22 4 25 0
  # A browser that leaves a trace.
  mkdir -p "$scratch/bin"
  printf '#!/bin/sh\ntouch %s/guide\n' "$scratch" | tee "$scratch/bin/xdg-open" >"$scratch/bin/x-www-browser"
  chmod +x "$scratch"/bin/*
  PATH=$scratch/bin:$PATH
  ffmpeg -v error -f lavfi -i color=c=orange:d=90:s=320x240:r=5 -f lavfi -i anoisesrc=d=90:a=0.1:r=44100 \
    -c:v mpeg4 -c:a aac "$scratch/film.mp4"
  set_going "$scratch/film.mp4" || { cell "start" "no windows"; return; }
  try_start
  try_top
  try_boxes
  try_minimise
  try_function_keys
  try_other_program
  try_film
  try_guide
  cell "still running" "$(running || echo "has ended")"
}

if [[ ${1-} == --under ]]; then
  source "$(dirname "$0")/driver.sh"
  under "$2"
  exit
fi

# ---- All of them ----------------------------------------------------------------------------------------------------

source "$(dirname "$0")/common.sh"
(($#)) || set -- "${known[@]}"
seen=$(mktemp -d)
trap 'rm -rf "$seen"' EXIT
tried=()
for manager; do
  if command -v "$manager" >/dev/null; then
    tried+=("$manager")
  else
    echo "$manager is not installed: left out." >&2
  fi
done
((${#tried[@]})) || die "no window manager to try"
# Two at a time: they wait more than they work.
printf '%s\n' "${tried[@]}" | setpriv --pdeathsig TERM xargs -P 2 -I '{}' sh -c '"$0" --under {} >"$1/{}" || echo "end|code $?" >>"$1/{}"' "$0" "$seen"

awk -F'|' -v columns="${tried[*]}" '
  !($1 in known) { known[$1]; order[++n] = $1 }
  { file = FILENAME; sub(".*/", "", file); cell[$1, file] = $2; if ($2 !~ /^ok/) bad = 1 }
  END {
    m = split(columns, name, " ")
    head = "| |"; rule = "|---|"
    for (j = 1; j <= m; j++) { head = head " " name[j] " |"; rule = rule "---|" }
    print head; print rule
    for (i = 1; i <= n; i++) {
      line = "| " order[i] " |"
      for (j = 1; j <= m; j++) line = line " " ((order[i], name[j]) in cell ? cell[order[i], name[j]] : "-") " |"
      print line
    }
    exit bad
  }' < /dev/null "${tried[@]/#/$seen/}"
