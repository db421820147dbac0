#!/usr/bin/env bash
# Bookmarks from one day to the next: three are set, one is deleted, the next start finds the others and jumps to them.
source "$(dirname "$0")/lib.sh"

player() { use_window Quillmere || fail "the player is gone"; }
mark() { # NAME
  player
  key ctrl+m
  use_window 'Add bookmark' || fail "the dialog did not open"
  type_text "$1"
  [[ $1 != Жук* ]] || screenshot naming
  key Return
  expect_soon "the dialog closes" 10 '! xdotool search --onlyvisible --name "^Add bookmark$" >/dev/null 2>&1'
}

start_display
setxkbmap -layout us,ru -variant altgr-intl, # letters that no single-byte page of this place has
start_sound
folder=$(lay_folder)
file=$folder/Bookmarks/Interview.mp3.bm
start_program "$folder" "$folder/Samples/Interview.mp3"
hover 340 160
expect_soon "the sample plays" 10 '(( $(position 66) > 30 ))'
key F5
for name in 'First answer' 'Жук, «sieve»' '"Last" one'; do
  mark "$name"
  player
  key F7
  rest_position 66 >/dev/null
done
use_window Bookmarks || fail "no window of bookmarks"
screenshot three
click 100 32 # the second row
eval "$(xdotool getwindowgeometry --shell "$window")"
click $((WIDTH - 66)) 178 # minus
sleep 0.3
screenshot deleted
player
key ctrl+q
expect_soon "the program ends" 10 '! running'

# The last line is the one that a deletion costs; what is beyond the code page is in UTF-8, with its mark.
mapfile -t lines < <(tr -d '\r' <"$file")
expect_eq "lines" 2 "${#lines[@]}"
expect "the mark of UTF-8" [ "$(head -c3 "$file" | od -An -tx1)" = " ef bb bf" ]
[[ ${lines[0]} =~ ^.?00:00:0([0-9])"  First answer               00:00:0"([0-9])$ ]] || fail "first line: ${lines[0]}"
at=${BASH_REMATCH[1]}
expect_eq "second line" "00:00:0$((at + 5))  Жук, «sieve»               00:00:0$((at + 5))" "${lines[1]}"

start_program "$folder" "$folder/Samples/Interview.mp3"
use_window Bookmarks || fail "the bookmarks did not come up by themselves"
player
hover 340 160
key F5
expect_soon "paused" 10 resting
use_window Bookmarks
xdotool mousemove --window "$window" 100 32 click --repeat 2 --delay 60 1
player
hover 340 160
seen=$(rest_position 66)
screenshot jumped
((seen >= at * 10 + 46 && seen <= at * 10 + 54)) || fail "a jump to second $((at + 5)) ends at $seen tenths"
quit_program
