#!/usr/bin/env bash
# A recording from its first word to its end: pause with its step back, steps, stop, a jump near the end, the end.
source "$(dirname "$0")/lib.sh"

length=66 # seconds of the sample
near() {  # WHAT EXPECTED TENTHS: the position is there, give or take a pixel of the bar and a tick of the display
  local seen
  seen=$(position $length)
  ((seen >= $2 - 6 && seen <= $2 + 6)) || fail "$1: expected $2 tenths, saw $seen"
}

start_display
start_sound
folder=$(lay_folder)
hide_editor "$folder"
start_program "$folder" "$folder/Samples/Interview.mp3"
hover 330 150

expect_soon "the sample plays" 10 '(( $(position $length) > 50 ))'
expect "the pause picture" playing
before=$(position $length)
key F5
sleep 0.3
expect "the play picture" resting
near "a pause goes two seconds back" $((before - 18)) # the key came a little later
at=$(position $length)
sleep 0.5
expect_eq "paused" "$at" "$(position $length)"
screenshot paused

press forward
sleep 0.3
near "one step forward" $((at + 50))
key F6
sleep 0.3
near "one step back" "$at"
expect "still paused" resting

press play
sleep 1.2
expect "playing again" playing
hover 330 150
(($(position $length) > at + 5)) || fail "the position does not run"

press stop
expect_soon "stopped at the start" 1 '[[ $(position $length) == 0 ]]'
expect "the play picture after a stop" resting

key F5
press seek 310
near "a click on the bar, in whole seconds" 612
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
