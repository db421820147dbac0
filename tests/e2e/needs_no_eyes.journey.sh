#!/usr/bin/env bash
# A session by screen reader alone: open, play, pause, seek, volume, type, mark, rename, save and quit, all over the
# accessibility bus.
source "$(dirname "$0")/lib.sh"

start_display
start_sound
start_accessibility
lay_folder
start_program
PYTHONPATH=$dev /usr/bin/python3 -B "$(dirname "$0")/needs_no_eyes.py" "$folder" ||
  fail "the session ended early"
expect_soon "the program ends" 10 '! running'
expect "the saved text" grep -q 'First words' "$folder/session.rtf"
expect "the renamed bookmark" grep -q '^00:00:20  Second name ' "$folder/Bookmarks/Interview.mp3.bm"
