#!/usr/bin/env bash
# A recording from beginning to end: pause with its step back, steps, stop, a jump near the end, the end.
source "$(dirname "$0")/lib.sh"

# WHAT TENTHS [LATER]: expects the bar to rest at TENTHS or up to LATER after it, with a tolerance of two pixels
near() {
  local seen
  seen=$(rest_position)
  ((seen >= $2 - 5 && seen <= $2 + 5 + ${3-0})) || fail "$1: expected $2 tenths, and ${3-0} later at most, saw $seen"
}
tenths() { echo $((($(now) - $1) / 100)); }  # since the time $1

begin alone
start_on_sample
expect_soon "the sample is heard" 10 'pactl list short sink-inputs | grep -q .'
expect_soon "far enough for a step back" 10 '(( $(position) > 50 ))'
expect "the pause picture" playing
looked=$(now)
before=$(position)
key F5
expect_soon "the play picture" 10 resting
near "a pause goes two seconds back" $((before - 20)) "$(tenths "$looked")"
at=$(rest_position)
expect_stays "paused" 1 '(( $(position) == at ))'
screenshot paused

press forward
near "one step forward" $((at + 50))
key F6
near "one step back" "$at"
expect "still paused" resting

press play
expect_soon "playing again" 10 playing
rest_mouse
expect_soon "the position advances" 10 '(($(position) > at + 5))'

press stop
expect_soon "stopped at the start" 10 '[[ $(position) == 0 ]]'
expect "the play picture after a stop" resting

key F5
looked=$(now)
press seek 310
expect_soon "a click on the bar" 10 '(( $(position) >= 607 ))'
at=$(position)
((at <= 617 + $(tenths "$looked"))) || fail "a click on the bar, in whole seconds, leads to $at tenths, not to 612"
expect_soon "the end of the recording" 15 'resting && [[ $(position) == 0 ]]'
rest_mouse
screenshot ended
quit_program

settings=$folder/Files/Quillmere.ini
expect_eq "lines of the settings" "25 25" "$(grep -c $'\r$' "$settings") $(tr -cd '\n' <"$settings" | wc -c)"
expect_eq "language, volume and media folder" "English.lng 80 $PWD" "$(settings_line 1) $(settings_line 2) $(settings_line 7)"
