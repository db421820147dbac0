#!/usr/bin/env bash
# Words know their moments: the first paragraph is typed while it is heard; a click with Ctrl plays its words again, and
# the document is saved with them.
source "$(dirname "$0")/lib.sh"

# The words as the sample speaks them, each with its time in ms: the ends of silences, and within a sentence the
# times that the voice reports.
words="Good 170 morning, 340 and 990 welcome 1150 to 1600 The 1730 Harbour 1810 Hour. 2210 With 2810 me 2980 today 3150
  is 3520 Thomas 3690 Reed, 4160 who 4660 has 4860 been 5070 a 5260 pilot 5310 here 5840 for 6060 twenty-six 6280
  years. 7070 Thomas, 7920 what 8590 does 8750 a 8990 harbour 9040 pilot 9410 do? 9770"
rate=1000  # samples a second, enough to tell places of speech apart

sound() {  # FILE: its samples as numbers, one a line
  ffmpeg -nostdin -v error -t 12 -i "$1" -ac 1 -ar $rate -f s16le - | od -An -v -td2 -w2
}
recorded() { stat -c %s "$scratch/heard.raw"; }  # bytes
# BYTES: which ms of the sample was heard at this place of the recording, by the first sound behind it; in a second line
# where that sound begins
heard_at() {
  dd if="$scratch/heard.raw" of="$scratch/part.raw" iflag=skip_bytes,count_bytes skip="$1" count=24000 status=none
  ffmpeg -nostdin -v error -f s16le -ar 8000 -ac 1 -i "$scratch/part.raw" -y "$scratch/part.wav"
  awk -v rate=$rate -v length_=$((rate * 2 / 5)) '
    NR == FNR { source[n++] = $1; next }
    sounds || $1 > 40 || $1 < -40 { if (sounds < length_) { part[sounds++] = $1; energy += $1 * $1 } }
    !sounds { silent++ }
    END {
      for (at = 0; at + length_ < n; at++) {
        product = there = 0
        for (i = 0; i < length_; i++) { product += source[at + i] * part[i]; there += source[at + i] ^ 2 }
        likeness = product / sqrt(energy * there + 1)
        if (likeness > best) { best = likeness; place = at }
      }
      if (best < 0.8) place = -100 * rate
      print int((place - silent) * 1000 / rate)
      print int(place * 1000 / rate)
    }' "$scratch/source.txt" <(sound "$scratch/part.wav")
}
# NUMBER: the middle of this word of the text, in the editor's window
middle_of() {
  local n letters=0 before=$scratch/before.png after=$scratch/after.png
  key ctrl+Home
  for ((n = 0; n < 2 * $1 - 2; n += 2)); do ((letters += ${#pairs[n]} + 1)); done
  xdotool key --delay 2 --repeat $letters Right
  import -window "$window" "$before"
  xdotool key --delay 2 --repeat ${#pairs[n]} shift+Right
  import -window "$window" "$after"
  key Home
  compare -metric AE "$before" "$after" null: >/dev/null 2>&1 || true
  convert "$before" "$after" -compose difference -composite -threshold 5% -format '%@' info: |
    awk -F'[x+]' '{ print int($3 + $1 / 2), int($4 + $2 / 2) }'
}
expect_word() {  # NUMBER: a click with Ctrl on this word is heard within 0.5 s of where it was heard when it was typed
  local place from spoken seen
  spoken=$(heard_at "${typed[$1]}" | head -1)
  place=$(middle_of "$1")
  from=$(recorded)
  # shellcheck disable=SC2086
  xdotool mousemove --window "$window" $place keydown ctrl click 1 keyup ctrl
  expect_soon "the word is heard" 10 '(($(recorded) > from + 8000 * 2 * 3)) && ! is_silent'
  key F5
  seen=$(heard_at "$from" | tail -1)
  echo "word $1: spoken at ${pairs[2 * $1 - 1]} ms, typed while $spoken ms was heard; heard again from $seen ms"
  ((spoken >= 0 && seen >= spoken - 500 && seen <= spoken + 500)) || fail "word $1 is heard from $seen ms, not $spoken"
  expect_soon "silence" 10 is_silent
}
is_silent() {
  [[ $(tail -c 4800 "$scratch/heard.raw" | od -An -v -td2 -w2 | awk '$1 > 2 || $1 < -2' | wc -l) == 0 ]]
}

begin
sound "$PORTABLE_DIR/Samples/Interview.mp3" >"$scratch/source.txt"
as_companion parec --device=quill.monitor --raw --format=s16le --channels=1 --rate=8000 --latency-msec=20 \
  >"$scratch/heard.raw" &
companions+=($!)
start_on_sample
press stop
expect_soon "stopped at the start" 10 '[[ $(position) == 0 ]]'
use_editor "Untitled 1"
expect_soon silence 10 is_silent

key F5
expect_soon "the sample is heard" 10 '! is_silent'
typed=()  # bytes of the recording, for each word
began=$(now)  # in the first word: each is typed a moment after it has begun, as a typist does
read -ra pairs <<<"${words//$'\n'/ }"
for ((i = 0; i < ${#pairs[@]}; i += 2)); do
  wait_until 10 '(($(now) - began >= pairs[i + 1]))'
  typed[i / 2 + 1]=$(recorded)
  xdotool type --delay 3 "${pairs[i]} "
done
key F5
expect_soon silence 10 is_silent
screenshot typed
for n in 2 7 14 20 25; do expect_word "$n"; done

key ctrl+s
expect_soon "the dialog" 10 box
key ctrl+a
type_text "$scratch/words.rtf"
key Return
expect_soon "the document is saved with its moments" 10 'grep -q quillmoments "$scratch/words.rtf" 2>/dev/null'
quit_program
