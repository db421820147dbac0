#!/usr/bin/env bash
# Hands on the keys: the player worked from the text, the clipboard between programs, undo and redo.
source "$(dirname "$0")/lib.sh"

start_display
start_sound
folder=$(lay_folder)
start_program "$folder" "$folder/Samples/Interview.mp3"
player=$window
expect_soon "the sample plays" 10 '(( $(position 66) > 40 ))'
use_window "Text Editor - Untitled 1" || fail "the editor did not appear"
editor=$window
window=$player # keys go where the focus is; the eyes stay on the player
hover 330 150 # after an open the play button keeps its picture until the mouse was elsewhere

chord() { # LETTERS: each with Ctrl, which is the last to be released: the editor acts on the release of the letter
  local letter
  for letter; do xdotool keydown ctrl key "$letter" keyup ctrl; done
}
held() { # what another program finds on the clipboard
  timeout 3 xclip -selection clipboard -o 2>/dev/null || true
}
text() { # the whole text, as another program gets it after a focus change
  xdotool windowactivate --sync "$editor" 2>/dev/null
  chord a c; key Right
  xdotool windowactivate --sync "$player" 2>/dev/null
  sleep 0.45
  held
  xdotool windowactivate --sync "$editor" 2>/dev/null
  sleep 0.3
}
expect_text() { # WHAT TEXT
  local wanted=$2
  expect_soon "$1" 10 '[[ $(text) == "$wanted" ]]'
}
offer() { # FORM: the input, by a program that stays in the background
  cat >"$scratch/offer"
  as_companion xclip -quiet -selection clipboard -t "$1" -i "$scratch/offer" >>"$scratch/program.log" 2>&1 &
  owner=$!
  companions+=("$owner")
  sleep 0.3
}

type_text "one two"
xdotool keydown F5
sleep 1
expect "a held F5 has done nothing yet" playing
xdotool keyup F5
expect_soon "its release pauses" 10 resting
at=$(rest_position 66)
key F7
expect_soon "F7 steps forward" 10 '(( $(position 66) >= at + 45 ))'
key F6
expect_soon "F6 steps back" 10 '(( $(position 66) <= at + 5 ))'
before=$(rest_position 66)
xdotool keydown F4
sleep 2.5
xdotool keyup F4
key F5
sleep 1
key F5
window=$player screenshot faster
(($(position 66) > before + 25 - 20)) || fail "a held F4 does not sweep the speed: $before, $(position 66)"
xdotool keydown F3 sleep 2.5 keyup F3

key alt+t
expect_soon "the text with its time stamp" 10 '[[ $(text) == "one two[00:00:"* ]]'
chord a; key BackSpace
type_text "plain "
chord b
type_text "bold"
chord b
key shift+Home; chord x v
type_text "!"
chord a c
expect_soon "formats come back from a cut" 10 'held | grep -q "\\\\b[ \\\\].*bold"'
expect_text "another program gets plain text" "plain bold!"
screenshot typed

chord z z
expect_text "two changes undone" ""
chord y y
expect_text "and redone" "plain bold!"

chord a
offer text/rtf <<<'{\rtf1\ansi rich {\i slanted}}'
chord v
chord a c
expect_soon "formats of another program" 10 'held | grep -q "\\\\i[ \\\\].*slanted"'
key End
offer text/rtf <<<'{\rtf1 {\b damaged {\fonttbl'
chord v
offer text/html <<<'<b>&amp; html</b>'
chord v
chord a c
expect_soon "a damaged source and HTML go in" 10 'held | grep -q "damaged.*& html"'
key End
head -c 50000000 /dev/zero | tr '\0' x | offer UTF8_STRING
chord v
type_text "."
expect_soon "50 MB leave the text alone" 10 'chord a c; key End; held | grep -q "html *\."'
offer UTF8_STRING <<<never
kill -STOP "$owner"
chord v
type_text "alive"
expect_soon "an owner that hangs does not stop the typing" 10 'chord a c; key End; held | grep -q alive'
kill -CONT "$owner"

press play
expect_soon "the editor has the keyboard back" 10 '[[ $(xdotool getactivewindow) == "$editor" ]]'
type_text "?"
expect_soon "playing again" 10 playing
xdotool windowactivate --sync "$player" 2>/dev/null
xdotool keydown F5 sleep 1 keyup F5
expect_soon "F5 held in the player pauses once, though the text gets its release" 10 resting
expect_soon "and gives the keyboard back" 10 '[[ $(xdotool getactivewindow) == "$editor" ]]'
expect_soon "the caret is where it was" 10 '[[ $(text) == *"alive?" ]]'
xdotool mousemove --window "$editor" 300 120 click 3
sleep 0.3
screenshot edit_menu
key Escape
for _ in {1..60}; do xdotool key --delay 5 F5 a; done
expect "alive under hammered keys" running
use_window Quillmere
key ctrl+q
answer alt+n
expect_soon "the program ends, its text unsaved" 10 '! running'
