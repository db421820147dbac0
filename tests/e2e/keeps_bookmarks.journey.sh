#!/usr/bin/env bash
# Bookmarks across two runs: three are added, one is deleted; the next run shows the others and jumps to them.
source "$(dirname "$0")/lib.sh"

mark() { # NAME
  switch_to Quillmere
  key ctrl+m
  switch_to 'Add bookmark'
  type_text "$1"
  [[ $1 != Жук* ]] || screenshot naming
  key Return
  expect_gone 'Add bookmark'
}

begin
setxkbmap -layout us,ru -variant altgr-intl,  # characters that this locale's single-byte code page lacks
file=$folder/Bookmarks/Interview.mp3.bm
start_on_sample
key F5
for name in 'First answer' 'Жук, «sieve»' '"Last" one'; do
  mark "$name"
  switch_to Quillmere
  key F7
  rest_position >/dev/null
done
switch_to Bookmarks
screenshot three
click 100 32 # the second row
eval "$(xdotool getwindowgeometry --shell "$window")"
before=$(glance 10 40 100 20)
click $((WIDTH - 66)) 178 # minus
expect_change "the third row has moved up" "$before" 10 40 100 20
screenshot deleted
switch_to Quillmere
key ctrl+q
expect_soon "the program ends" 10 '! running'
expect_eq "the saved visibility of editor and bookmarks" "0 0" "$(settings_line 8) $(settings_line 16)"

# A deletion drops the last line of the file; characters outside of the code page are stored as UTF-8 with a byte order
# mark.
mapfile -t lines < <(tr -d '\r' <"$file")
expect_eq "number of lines" 2 "${#lines[@]}"
expect "the byte order mark of UTF-8" [ "$(head -c3 "$file" | od -An -tx1)" = " ef bb bf" ]
[[ ${lines[0]} =~ ^.?00:00:([0-9]{2})"  First answer               00:00:"([0-9]{2})$ ]] || fail "first line: ${lines[0]}"
at=$((10#${BASH_REMATCH[1]}))
expect_eq "second line" "$(printf '00:00:%02d  Жук, «sieve»               00:00:%02d' $((at + 5)) $((at + 5)))" "${lines[1]}"

start_on_sample
switch_to Bookmarks  # open by themselves
switch_to Quillmere
key F5
expect_soon "paused" 10 resting
switch_to Bookmarks
xdotool mousemove --window "$window" 100 32 click --repeat 2 --delay 60 1
switch_to Quillmere
rest_mouse
seen=$(rest_position)
screenshot jumped
((seen >= at * 10 + 46 && seen <= at * 10 + 54)) || fail "a jump to second $((at + 5)) ends at $seen tenths"
quit_program
