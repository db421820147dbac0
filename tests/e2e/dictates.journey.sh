#!/usr/bin/env bash
# The player dictates: three cycles of play, step back and pause, of which typing holds a pause and a play; then the stop
# that ends it all.
source "$(dirname "$0")/lib.sh"

length=66
changed() { # NOT_BEFORE: the change that was seen just now came between the two
  not_before=$1 not_after=$(now)
}
# What is seen on the screen is known a little later, on a busy machine much later: each change is kept as the stretch of
# time that it happened in, and the phase has to fit between two of them.
phase() { # CONDITION LEAST MOST: until it holds, between so many ms from the last change on
  local looked last_before=$not_before last_after=$not_after
  not_before=$not_after
  expect_soon "the phase ends" $(($3 / 1000 + 5)) 'looked=$(now); '"$1"' || { not_before=$looked; false; }'
  changed "$not_before"
  ((not_after - last_before >= $2 && not_before - last_after <= $3)) ||
    fail "$1 came $((not_before - last_after)) to $((not_after - last_before)) ms after the last change, not $2 to $3"
}
type_for() { # SECONDS CONDITION: types, and it holds all the time
  local end=$(($(now) + $1 * 1000))
  while (($(now) < end)); do
    type_text "words "
    expect "typing holds the phase" "$2"
    sleep 0.3
  done
}

start_display
start_sound
folder=$(lay_folder)
sed -i '21s/.*/3\r/; 22s/.*/3\r/; 25s/.*/1\r/' "$folder/Files/Quillmere.ini"
start_program "$folder" "$folder/Samples/Interview.mp3"
player=$window
use_window 'Text Editor - Untitled 1' || fail "the editor did not appear"
window=$player
hover 330 150
expect_soon "the sample plays" 10 '(( $(position $length) > 40 ))'
press play
hover 330 150
expect_soon "paused" 10 resting
from=$(rest_position $length)
began=$(now)
click 287 $((109 + $(skin_top))) # smart play starts the player
hover 330 150
expect_soon "playing" 10 playing
changed "$began"
expect_eq "the mode is kept" 1 "$(settings_line "$folder" 23)"

phase resting 2800 3400
at=$(rest_position $length)
((at >= from + 5 && at <= from + 16)) || fail "3 s of play and 2 back lead from $from to $at tenths"
phase playing 2800 3400
phase resting 2800 3400
type_for 5 resting
screenshot typing
changed "$(now)"
phase playing 0 3200 # its watch of 1.3 s, and at most as much again
type_for 5 playing
changed "$(now)"
phase resting 0 3200
phase playing 2800 3400
phase resting 2800 3400
screenshot paused

press stop
expect_soon "the stop ends the mode" 10 '[[ $(settings_line "$folder" 23) == 0 ]]'
sleep 4
expect "and nothing starts again" resting
expect_eq "at the start" 0 "$(rest_position $length)"
use_window 'Text Editor - Untitled 1'
key ctrl+q
answer alt+n
expect_soon "the program ends" 10 '! running'
