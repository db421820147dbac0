#!/usr/bin/env bash
# Keyboard only: controlling the player from the text, the clipboard between programs, undo and redo.
source "$(dirname "$0")/lib.sh"

# LETTERS: presses each with Ctrl and releases Ctrl last, because the editor acts on the release of the letter
chord() {
  local letter
  for letter; do xdotool keydown ctrl key "$letter" keyup ctrl; done
}
bring() { xdotool windowactivate --sync "$1" 2>/dev/null; }  # WINDOW; screenshots still use $window
held() {  # prints what another program finds on the clipboard, as plain text or in this format
  timeout 3 xclip -selection clipboard -o "$@" 2>/dev/null || true
}
cross_to() {  # WINDOW: activates it and waits until the program has put the other format of its copy on the clipboard
  local seen
  # xclip keeps running: if it held the pipe of a command substitution open, that would never end.
  xclip -selection clipboard -i <<<elsewhere >/dev/null
  bring "$1"
  # The text control offers its empty selection when it loses the focus, before the timer ticks.
  wait_until 2 'seen=$(held); [[ $seen && $seen != elsewhere ]]' || true
}
text() {  # prints the whole text, as another program gets it after a focus change
  bring "$editor"
  chord a c; key Right
  cross_to "$player"
  held
  cross_to "$editor"
}
expect_text() { # WHAT TEXT
  local wanted=$2
  expect_soon "$1" 10 '[[ $(text) == "$wanted" ]]'
}
expect_copied() {  # WHAT PATTERN: waits for PATTERN in the RTF source of the whole text
  expect_soon "$1" 10 'chord a c; key End; held | grep -q '"'$2'"
}
offer() {  # FORM: offers the input on the clipboard from another process
  local form=$1
  cat >"$scratch/offer"
  as_companion xclip -quiet -selection clipboard -t "$form" -i "$scratch/offer" >>"$scratch/program.log" 2>&1 &
  owner=$!
  companions+=("$owner")
  expect_soon "another program has the clipboard" 10 'held -t $form | head -c 100 | cmp -sn 100 - "$scratch/offer"'
}

begin
start_on_sample
expect_soon "far enough for a step back" 10 '(( $(position) > 40 ))'
use_editor "Untitled 1"
editor=$window
window=$player  # keys go to the focused window; screenshots use the player

type_text "one two"
xdotool keydown F5
expect_stays "a held F5 does nothing" 1 playing
xdotool keyup F5
expect_soon "its release pauses" 10 resting

key alt+t
expect_soon "the text with its time stamp" 10 '[[ $(text) == "one two[00:00:"* ]]'
chord a; key BackSpace
type_text "plain "
chord b
type_text "bold"
chord b
key shift+Home; chord x v
type_text "!"
expect_copied "pasted text has its formats" '\\b[ \\].*bold'
expect_text "another program gets plain text" "plain bold!"
screenshot typed

chord z z
expect_text "two changes undone" ""
chord y y
expect_text "and redone" "plain bold!"

chord a
offer text/rtf <<<'{\rtf1\ansi rich {\i slanted}}'
chord v
expect_copied "formats of another program" '\\i[ \\].*slanted'
offer text/rtf <<<'{\rtf1 {\b damaged {\fonttbl'
chord v
offer text/html <<<'<b>&amp; html</b>'
chord v
expect_copied "damaged RTF and HTML are pasted" 'damaged.*& html'
head -c 50000000 /dev/zero | tr '\0' x | offer UTF8_STRING
chord v
type_text "."
expect_copied "50 MB are not pasted" 'html *\.'
offer UTF8_STRING <<<never
kill -STOP "$owner"
chord v
type_text "alive"
expect_copied "a hanging clipboard owner does not block typing" alive
kill -CONT "$owner"

press play
expect_soon "the editor has the focus again" 10 '[[ $(xdotool getactivewindow) == "$editor" ]]'
type_text "?"
expect_soon "playing again" 10 playing
bring "$player"
xdotool keydown F5
expect_soon "F5 held in the player pauses" 10 resting
expect_stays "pauses once, although the text gets the release" 1 resting
xdotool keyup F5
expect_soon "the focus returns" 10 '[[ $(xdotool getactivewindow) == "$editor" ]]'
expect_soon "the caret is where it was" 10 '[[ $(text) == *"alive?" ]]'
windows=$(xdotool search --onlyvisible --class quillmere | wc -l)
xdotool mousemove --window "$editor" 300 120 click 3
expect_soon "the edit menu" 10 '(($(xdotool search --onlyvisible --class quillmere | wc -l) > windows))'
screenshot edit_menu
key Escape
for _ in {1..60}; do xdotool key --delay 5 F5 a; done
expect "the program survives rapid key presses" running
switch_to Quillmere
key ctrl+q
answer alt+n
expect_soon "the program ends without saving the text" 10 '! running'
