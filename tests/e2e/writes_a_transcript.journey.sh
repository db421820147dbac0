#!/usr/bin/env bash
# A transcript from its first word to the next day: type, format, cancel the exit, save, open again.
source "$(dirname "$0")/lib.sh"

words() { "$RTF_TEXT" "$HOME/interview.rtf"; }
quit_keys() {
  switch_to Quillmere
  key ctrl+q
  expect_soon "a message box appears" 10 box
}

start_display
lay_folder
start_program
use_editor 'Untitled 1'
type_text 'Interview'
key Return
type_text 'How did it begin? Quietly.'
key ctrl+Home shift+End
click 207 37 # bold
click 387 37  # align right
click 357 37  # centre
click 417 37  # one size larger
screenshot formatted

place=$(xdotool getwindowgeometry "$window")
switch_to Quillmere
xdotool windowminimize "$window"
expect_soon "the editor is minimised too" 10 '! xdotool search --onlyvisible --name "^Text Editor" >/dev/null'
xdotool windowmap "$window"
use_editor 'Untitled 1'
expect_soon "the editor reappears at its position" 10 '[[ $(xdotool getwindowgeometry "$window") == "$place" ]]'

quit_keys
screenshot asked
key Escape
expect_soon "the message box is closed" 10 '! box'
expect "a cancelled exit keeps the program running" running
quit_keys
key alt+y
switch_to 'Save document as'
screenshot saving
type_text "$HOME/interview"
key Return
expect_soon "the program ends when the text is saved" 10 '! running'
expect_eq "the text" $'Interview\nHow did it begin? Quietly.' "$(words)"
expect "bold" grep -q '\\b[ \\]' "$HOME/interview.rtf"
expect "centred" grep -q '\\qc' "$HOME/interview.rtf"
expect "13 points" grep -q '\\fs26' "$HOME/interview.rtf"

start_program
use_editor 'Untitled 1'
key alt+f Down Down Down Down  # past Open, Save and Save as to the recent document
screenshot recent
key Return
use_editor interview.rtf
key ctrl+End
type_text ' Then loud.'
screenshot opened
key ctrl+s
expect_soon "the text is saved to its file" 10 '[[ $(words) == *"Quietly. Then loud."* ]]'
click 24 37  # a new document, without a question because everything is saved
use_editor 'Untitled 2'
quit_program
