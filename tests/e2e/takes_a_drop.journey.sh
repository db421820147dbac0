#!/usr/bin/env bash
# Drags files from another program onto the player: the first file plays, a web address is ignored.
source "$(dirname "$0")/lib.sh"

source=  # the drag source; it must stay alive after the drop to answer the player
told() { grep -q "^$1" "$scratch/drag.log"; }
drag_onto_player() { # ADDRESS...
  [[ ! $source ]] || kill "$source"
  as_companion "$DRAG_SOURCE" "Drag source" "$@" >"$scratch/drag.log" 2>&1 &
  source=$!
  companions+=("$source")
  local x=110 y=160
  switch_to "Drag source"
  xdotool mousemove --window "$window" 100 50 mousedown 1
  expect_soon "the drag begins" 10 'xdotool mousemove --window $window $((x++)) 50; told drag'
  window=$player
  # A player that refuses the drag never answers.
  wait_until 2 'xdotool mousemove --window $player 20 $((y = 330 - y)); told answer' || true
  xdotool mouseup 1
  expect_soon "the drag ends" 10 'told end'
}

begin alone
cp "$folder/Samples/Interview.mp3" "$scratch/dropped one.mp3"
start_program
player=$window

drag_onto_player https://example.org/talk.mp3
expect_stays "a web address does not play" 1 '! playing'

drag_onto_player "$scratch/dropped one.mp3" "$folder/Samples/Interview.mp3"
expect_soon "the dropped file plays" 10 '(($(position) > 5)) && pactl list short sink-inputs | grep -q .'
screenshot dropped
[[ ! -e $folder/Files/LastFiles.ini ]] || fail "a drop must not enter the recent list"

drag_onto_player "$folder/Samples"
expect "a folder leaves the file playing" running
quit_program
