#!/usr/bin/env bash
# A recording from its first word to its end: pause with its step back, steps, stop, a jump near the end, the end.
source "$(dirname "$0")/lib.sh"

length=66 # seconds of the sample
near() {  # WHAT TENTHS [LATER]: the bar comes to rest there, or up to LATER behind; give or take two of its pixels
  local seen
  seen=$(rest_position $length)
  ((seen >= $2 - 5 && seen <= $2 + 5 + ${3-0})) || fail "$1: expected $2 tenths, and ${3-0} later at most, saw $seen"
}
tenths() { echo $((($(now) - $1) / 100)); }  # since then

start_display
start_sound
folder=$(lay_folder)
hide_editor "$folder"
start_program "$folder" "$folder/Samples/Interview.mp3"
hover 330 150

expect_soon "the sample plays" 10 '(( $(position $length) > 50 ))'
expect "the pause picture" playing
looked=$(now)
before=$(position $length)
key F5
expect_soon "the play picture" 10 resting
near "a pause goes two seconds back" $((before - 20)) "$(tenths "$looked")"
at=$(rest_position $length)
sleep 0.5
expect_eq "paused" "$at" "$(position $length)"
screenshot paused

press forward
near "one step forward" $((at + 50))
key F6
near "one step back" "$at"
expect "still paused" resting

press play
expect_soon "playing again" 10 playing
hover 330 150
expect_soon "the position runs" 10 '(($(position $length) > at + 5))'

press stop
expect_soon "stopped at the start" 10 '[[ $(position $length) == 0 ]]'
expect "the play picture after a stop" resting

key F5
looked=$(now)
press seek 310
expect_soon "a click on the bar" 10 '(( $(position $length) >= 607 ))'
at=$(position $length)
((at <= 617 + $(tenths "$looked"))) || fail "a click on the bar, in whole seconds, leads to $at tenths, not to 612"
expect_soon "the end of the recording" 15 'resting && [[ $(position $length) == 0 ]]'
hover 330 150
screenshot ended
quit_program

settings=$folder/Files/Quillmere.ini
expect_eq "lines of the settings" 25 "$(grep -c $'\r$' "$settings")"
expect_eq "ends of lines" 25 "$(tr -cd '\n' <"$settings" | wc -c)"
expect_eq "the language is kept" English.lng "$(settings_line "$folder" 1)"
expect_eq "volume" 80 "$(settings_line "$folder" 2)"
expect_eq "a media folder" "$PWD" "$(settings_line "$folder" 7)"
