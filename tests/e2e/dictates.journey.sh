#!/usr/bin/env bash
# Timed dictation with the real player and keyboard: a cycle of play, step back and pause, in which typing extends a
# phase; then Stop ends the mode. How long the phases last is tested in virtual time.
source "$(dirname "$0")/lib.sh"

begin
set_line 21 3 22 3 25 1
start_on_sample
expect_soon "far enough for a step back" 10 '(( $(position) > 40 ))'
press play
rest_mouse
expect_soon "paused" 10 resting
from=$(rest_position)
click 287 $((109 + $(skin_top))) # smart play starts the player
rest_mouse
expect_soon "playing" 10 playing
expect_eq "the mode is saved" 1 "$(settings_line 23)"
expect_soon "the play phase ends" 10 resting
at=$(rest_position)
((at >= from + 5 && at <= from + 16)) || fail "3 s of play and 2 back lead from $from to $at tenths"
expect_soon "the pause ends" 10 playing
expect_soon "the next pause" 10 resting
expect_stays "typing extends the pause" 5 "type_text 'words '; resting"
screenshot typing
expect_soon "the typing has ended" 10 playing
press stop
expect_soon "Stop ends the mode" 10 '[[ $(settings_line 23) == 0 ]]'
expect_stays "nothing starts again" 4 resting
expect_eq "at the start" 0 "$(rest_position)"
