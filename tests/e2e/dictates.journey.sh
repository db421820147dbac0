#!/usr/bin/env bash
# Timed dictation: three cycles of play, step back and pause, in which typing extends a pause and a play phase; then
# Stop ends the mode.
source "$(dirname "$0")/lib.sh"

changed() {  # NOT_BEFORE: the change seen just now happened between this time and now
  not_before=$1 not_after=$(now)
}
# A change on the screen is noticed a little later, on a busy machine much later. So each change is kept as the interval
# in which it happened, and the phase must fit between two such intervals.
phase() {  # CONDITION LEAST MOST: waits until it holds, LEAST to MOST ms after the last change
  local looked last_before=$not_before last_after=$not_after
  not_before=$not_after
  expect_soon "the phase ends" $(($3 / 1000 + 5)) 'looked=$(now); '"$1"' || { not_before=$looked; false; }'
  changed "$not_before"
  ((not_after - last_before >= $2 && not_before - last_after <= $3)) ||
    fail "$1 came $((not_before - last_after)) to $((not_after - last_before)) ms after the last change, not $2 to $3"
}
type_while() {  # CONDITION: types for five seconds and expects it to hold all the time
  expect_stays "typing extends the phase" 5 "type_text 'words '; $1"
  changed "$(now)"
}

begin
set_line 21 3 22 3 25 1
start_on_sample
expect_soon "far enough for a step back" 10 '(( $(position) > 40 ))'
press play
rest_mouse
expect_soon "paused" 10 resting
from=$(rest_position)
began=$(now)
click 287 $((109 + $(skin_top))) # smart play starts the player
rest_mouse
expect_soon "playing" 10 playing
changed "$began"
expect_eq "the mode is saved" 1 "$(settings_line 23)"

phase resting 2800 3400
at=$(rest_position)
((at >= from + 5 && at <= from + 16)) || fail "3 s of play and 2 back lead from $from to $at tenths"
phase playing 2800 3400
phase resting 2800 3400
type_while resting
screenshot typing
phase playing 0 3200  # the typing timer of 1.3 s, and at most as much again
type_while playing
phase resting 0 3200
phase playing 2800 3400
phase resting 2800 3400
screenshot paused

press stop
expect_soon "Stop ends the mode" 10 '[[ $(settings_line 23) == 0 ]]'
expect_stays "nothing starts again" 4 resting
expect_eq "at the start" 0 "$(rest_position)"
