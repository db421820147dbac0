#!/usr/bin/env bash
# Writes what screen readers are told of each window, as one text file per language; with --check it compares instead.
export PORTABLE_DIR=${PORTABLE_DIR-$(cd "$(dirname "$0")/../.." && pwd)/build/release/portable}
source "$(dirname "$0")/driver.sh"

usage() {
  cat <<'END'
Usage: tools/dev/accessible_tree.sh [FOLDER]           writes FOLDER/English.txt and FOLDER/Russian.txt
                                                       (default: tests/data/accessible)
       tools/dev/accessible_tree.sh --check LANGUAGE   compares with tests/data/accessible/LANGUAGE.txt

PORTABLE_DIR names the portable folder (default: that of the release build).
END
}

kept=$root/tests/data/accessible

tree() {  # HEADING TITLE: the tree of the window with this title
  echo "== $1"
  /usr/bin/python3 -B "$dev/accessible.py" "$2" |
    sed -E "s|$folder|FOLDER|g; s|'Qt [^']*, [^']*'|'LIBRARIES'|; s|[0-9]+\.[0-9]+\.[0-9]+[^' ]*|VERSION|g; s|(scroll bar.* value).*|\1|"
  echo
}

entry() {  # N: the text of the language file, without its mnemonic
  sed -n "$(($1 + 1)){s/\r\$//;s/^...//;s/&//;p;q}" "$folder/Files/Lang/$language.lng"
}

word() {  # ENGLISH: its translation, without its mnemonic
  local line
  line=$(grep "^$1"$'\t' "$folder/Files/Lang/$language.words" 2>/dev/null) || line=$'\t'$1
  line=${line#*$'\t'}
  echo "${line/&/}"
}

choose() {  # WINDOW ITEM...: operates menu items or buttons of the window, one after the other
  /usr/bin/python3 -B - "$@" <<'END'
import os, re, sys
sys.path.insert(0, os.environ["dev"])
from accessible import find, press
for name in sys.argv[2:]:
    press(find("menu item|push button", re.escape(name), window=sys.argv[1]))
END
}

# The guide appears in a window of the program only if there is no browser: this start finds no other program.
alone() {
  local name=$folder/quillmere
  mv "$name" "$name.real"
  printf '#!/bin/sh\nunset BROWSER\nPATH=%s exec "$0.real" "$@"\n' "$scratch" >"$name"
  chmod +x "$name"
}

video_and_guide() {
  local player=Quillmere video
  video=$(word 'Video in a window of its own')
  lay_folder
  alone
  set_line 1 "$language.lng"
  start_program "$scratch/film.mp4"
  wait_until 10 'tree Player $player | grep -q "$video"' || fail "the film does not play"
  choose $player "$video"
  tree Video film.mp4
  key Escape
  choose $player '?' "$(entry 16)"
  tree Guide "Quillmere: .*"
  key Escape
  xdotool windowactivate --sync "$window"  # links minimise the player
  quit_program
}

windows() {  # LANGUAGE
  language=$1
  local player=Quillmere editor
  lay_folder
  set_line 1 "$language.lng"
  start_program "$folder/Samples/Interview.mp3"
  wait_until 10 '(($(position) > 10))' || fail "the sample does not play"
  choose $player "$(entry 9)"
  editor="$(entry 96) - .*"
  tree Player $player
  tree Editor "$editor"
  choose $player "$(entry 6)" "$(entry 93)"
  tree Question "$(entry 93)"
  choose "$(entry 93)" "$(entry 20)"
  # The bookmark arrives once the question has closed.
  wait_until 10 'tree Bookmarks "$(entry 120)" | grep -q "list item"' || fail "no bookmark"
  tree Bookmarks "$(entry 120)"
  choose "$editor" "$(entry 47)" "$(entry 59)"
  tree Replace "$(entry 59).*"
  choose "$(entry 59).*" "$(entry 21)"
  choose "$editor" "$(word 'T&ranscript')" "$(word '&Earlier versions...')"
  tree "Earlier versions" "$(word 'Earlier versions')"
  choose "$(word 'Earlier versions')" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word '&Speakers...')"
  tree Speakers "$(word Speakers)"
  choose "$(word Speakers)" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word 'Abbre&viations...')"
  tree Abbreviations "$(word Abbreviations)"
  choose "$(word Abbreviations)" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word 'Figures...')"
  tree Figures "$(word Figures)" | sed -E "s/[0-9]+:[0-9]+/TIME/"
  choose "$(word Figures)" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word 'Sound...')"
  wait_until 10 'tree Sound "$(word Sound)" | grep -q slider' || fail "no waveform"
  tree Sound "$(word Sound)"
  choose "$editor" "$(word 'T&ranscript')" "$(word '&What happened')"
  tree "What happened" "$(word 'What happened')"
  choose "$(word 'What happened')" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word '&Make a draft...')"
  tree "Make a draft" "$(word 'Make a draft')"
  choose "$(word 'Make a draft')" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word 'Check before deli&very...')"
  wait_until 10 "tree '' '$(word 'Check before delivery')' | grep -q '$(word 'Nothing was found.')'" || fail "no check"
  tree "Check before delivery" "$(word 'Check before delivery')"
  choose "$(word 'Check before delivery')" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word 'Keys and pedals...')"
  tree "Keys and pedals" "$(word 'Keys and pedals')"
  choose "$(word 'Keys and pedals')" "$(word Close)"
  choose "$editor" "$(word 'T&ranscript')" "$(word '&Keys')"
  tree Keys "$(word Keys)"
  choose "$(word Keys)" "$(word Close)"
  choose $player "$(entry 104)"
  tree Recorder "$(entry 104)"
  key alt+F4
  choose $player '?' "$(entry 19)"
  tree About "$(entry 19)"
  key Escape
  quit_program
  video_and_guide
}

export dev
case ${1-} in
  --help | -h) usage; exit ;;
  --check) [[ -f $kept/${2-}.txt ]] || { usage >&2; exit 2; } ;;
  -*) usage >&2; exit 2 ;;
esac

start_display
start_sound
start_accessibility
ffmpeg -v error -f lavfi -i color=d=90:s=320x240:r=5 -f lavfi -i anullsrc=d=90 -c:v mpeg4 -c:a aac "$scratch/film.mp4"
if [[ ${1-} == --check ]]; then
  windows "$2" >"$scratch/seen.txt"
  diff -u "$kept/$2.txt" "$scratch/seen.txt"
else
  for language in English Russian; do
    windows "$language" >"$scratch/$language.txt"
    mkdir -p "${1-$kept}"
    cp "$scratch/$language.txt" "${1-$kept}/"
  done
fi
