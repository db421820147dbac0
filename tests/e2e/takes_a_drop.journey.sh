#!/usr/bin/env bash
# Files dragged from another program onto the player: the first one plays, a web address does nothing.
source "$(dirname "$0")/lib.sh"

source= # the program dragged from; it has to answer the player even when the button is up
drag_onto_player() { # ADDRESS...
  [[ ! $source ]] || kill "$source"
  as_companion "$DRAG_SOURCE" "Drag source" "$@" >>"$scratch/program.log" 2>&1 &
  source=$!
  companions+=("$source")
  local player=$window x y
  use_window "Drag source" || fail "the drag source did not appear"
  xdotool mousemove --window "$window" 100 50 mousedown 1
  eval "$(xdotool getwindowgeometry --shell "$player")"
  # A drag begins, enters and drops by moves that the programs have time to answer.
  for x in 110 120 130; do
    xdotool mousemove --window "$window" "$x" 50
    sleep 0.1
  done
  for y in 175 170 165 160; do
    xdotool mousemove --window "$player" 20 "$y"
    sleep 0.15
  done
  xdotool mouseup 1
  sleep 0.3
  window=$player
}

start_display
start_sound
folder=$(lay_folder)
hide_editor "$folder"
cp "$folder/Samples/Interview.mp3" "$scratch/dropped one.mp3"
start_program "$folder"

drag_onto_player https://example.org/talk.mp3
playing && fail "a web address must not play"

drag_onto_player "$scratch/dropped one.mp3" "$folder/Samples/Interview.mp3"
expect_soon "the dropped file plays" 10 '(($(position 66) > 5)) && pactl list short sink-inputs | grep -q .'
screenshot dropped
[[ ! -e $folder/Files/LastFiles.ini ]] || fail "a drop must not enter the recent list"

drag_onto_player "$folder/Samples"
expect "a folder leaves the file playing" running
quit_program
