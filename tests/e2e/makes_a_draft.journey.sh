#!/usr/bin/env bash
# A recogniser makes a draft of the sample; two doubtful words are heard and corrected; the transcript is exported as
# subtitles, which the player's engine shows. Then a text that was typed without times gets them.
source "$(dirname "$0")/lib.sh"

said=$root/tools/sample/interview.txt
transcript() {  # MNEMONIC: a command of the editor's last menu
  use_editor
  key alt+r
  key "$1"
}
# The document as the editor saves it, without its moments.
saved_text() { "$RTF_TEXT" "$1" 2>/dev/null; }
save_as() {  # FILE
  use_editor
  key ctrl+s
  [[ -e $1 ]] || {
    expect_soon "the dialog" 10 box
    key ctrl+a
    type_text "$1"
    key Return
  }
  expect_soon "saved: $1" 10 '[[ -s '"$1"' ]]'
}
export_to() {  # FILE
  transcript x
  expect_soon "the dialog" 10 box
  key ctrl+a
  type_text "$1"
  key Return
  expect_soon "exported: $1" 10 '[[ -s '"$1"' ]]'
}
run_recogniser() {  # TITLE: in its window, until it is done
  switch_to "$1"
  screenshot "${1// /_}"
  key Return
  expect_soon "the recogniser runs" 30 'pgrep -f "pocketsphinx_continuous -infile $folder" >/dev/null'
  screenshot "${1// /_}_at_work"
  expect_soon "the recogniser is done" 400 '! pgrep -f "pocketsphinx_continuous -infile $folder" >/dev/null'
  switch_to "$1"
  screenshot "${1// /_}_done"
  key Escape
}
correct() {  # WORD: replaces the next doubtful word, as it is heard
  use_editor
  key alt+Down
  expect_soon "the doubtful word is heard" 10 playing_in_player
  type_text "$1"
  key F5
}
playing_in_player() { local window=$player; playing; }

begin
start_program "$folder/Samples/Interview.mp3"
player=$window
expect_soon "the sample plays" 10 '(( $(position) > 5 ))'
press stop

transcript m
run_recogniser "Make a draft"
save_as "$scratch/draft.rtf"
saved_text "$scratch/draft.rtf" >"$scratch/draft.txt"
python3 "$dev/draft_quality.py" words "$said" "$scratch/draft.txt" || fail "the draft: $(<"$scratch/draft.txt")"

key ctrl+Home
correct Harbour
correct Hour
save_as "$scratch/draft.rtf"
expect_soon "both words are corrected" 10 'saved_text "$scratch/draft.rtf" | grep -q Harbour.*Hour'
export_to "$scratch/sample.srt"
expect "the corrected words are in the subtitles" grep -q Hour "$scratch/sample.srt"
seen=$(python3 -B "$(dirname "$0")/shown_subtitle.py" "$folder/Samples/Interview.mp3" "$scratch/sample.srt" 3)
[[ ${seen,,} == *"with me"* ]] || fail "the engine shows: $seen"
quit_program

ffmpeg -nostdin -v error -t 10.6 -i "$folder/Samples/Interview.mp3" "$scratch/head.wav"
head -1 "$said" | tr -d '\n' >"$scratch/typed.txt"
start_program "$scratch/head.wav"
player=$window
press stop
use_editor
type_text "$(<"$scratch/typed.txt")"
transcript i
run_recogniser "Time this transcript"
export_to "$scratch/timed.json"
python3 "$dev/draft_quality.py" times "$root/tools/sample/words.tsv" "$scratch/timed.json" || fail "$(<"$scratch/timed.json")"
save_as "$scratch/timed.rtf"
expect_eq "the text" "$(<"$scratch/typed.txt")" "$(saved_text "$scratch/timed.rtf")"
quit_program
