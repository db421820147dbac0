#!/usr/bin/env bash
# Keys from anywhere: another program keeps the keyboard while its user plays, steps, and types and copies the time.
source "$(dirname "$0")/lib.sh"

in_front() { [[ $(xdotool getactivewindow) == "$other" ]]; }
typed() {  # what has arrived in the other program
  awk '/^Key/ { press = /^KeyPress/ } /XLookupString/ && press { print }' "$scratch/keys.log" |
    sed -n 's/.*bytes: ([0-9a-f]*) "\(.*\)"$/\1/p' | tr -d '\n'
}
anywhere() {  # KEY: with the logo key, in whatever window
  xdotool keydown super key "$1" keyup super
}
option() { grep -q "^$1"$'\r' "$folder/Files/Options.ini" 2>/dev/null; }

begin
start_on_sample
use_editor
key alt+r Up Up Return
switch_to "Keys and pedals"
key Tab
xdotool keydown ctrl keydown alt key j keyup alt keyup ctrl
expect_soon "another key was chosen by pressing it" 10 'option KeyPlayPause=Ctrl+Alt+J'
key shift+Tab
key alt+k
expect_soon "keys are switched on" 10 'option KeysFromAnywhere=1'
screenshot keys_and_pedals
key Escape
expect_gone "Keys and pedals"

as_companion xev -geometry 200x200+900+700 -event keyboard >"$scratch/keys.log" 2>&1 &
companions+=($!)
switch_to "Event Tester"
other=$window
window=$player
expect_soon "still playing" 10 playing
xdotool keydown ctrl keydown alt key j keyup alt keyup ctrl
expect_soon "the key pauses" 10 resting
expect "the other program keeps the keyboard" in_front
paused=$(rest_position)
anywhere F7
expect_soon "a step forward" 10 '(( $(position) > paused + 35 ))'
xdotool keydown super keydown F6
expect_soon "a held key steps back to the beginning" 10 '(( $(position) < 10 ))'
xdotool keyup F6 keyup super
anywhere F9
expect_soon "the time is typed into the other program" 10 '[[ $(typed) == "[00:00:0"[0-9]"] " ]]'
setxkbmap ru
anywhere F8
expect_soon "the time is copied" 10 '[[ $(xclip -selection clipboard -o 2>/dev/null) == "[00:00:0"[0-9]"] " ]]'
setxkbmap us altgr-intl
xdotool keydown ctrl keydown alt key j keyup alt keyup ctrl
expect_soon "the key plays" 10 playing
expect "the other program still has the keyboard" in_front
expect_eq "the keys themselves did not arrive" 11 "$(typed | wc -m)"
quit_program
