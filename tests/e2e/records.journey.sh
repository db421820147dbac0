#!/usr/bin/env bash
# One recording with a pause, and one that is killed; then the first is played.
source "$(dirname "$0")/lib.sh"

start_button() { click 240 294; }
stop_button() { click 360 294; }
bytes() { stat -c %s "$folder/Rec $1.wav" 2>/dev/null || echo 0; }
writes_nothing() {  # NUMBER: for one second
  held=$(bytes "$1")
  ! wait_until 1 "((\$(bytes $1) != held))"
}
grown() { (($(bytes "$1") > $2 + 20000)); }
open_recorder() {
  switch_to Quillmere
  press record
  switch_to Record
  settle 200 glance 0 0 400 300 >/dev/null  # is fully painted
}
close_recorder() { click 428 -9; }  # in the title bar
start_recording() {  # NUMBER
  start_button
  switch_to "Save recording as"
  key Return
  switch_to Record
  expect_soon "sound arrives" 10 "grown $1 44"
}
expect_whole() {  # NUMBER: expects the header to state the true length of the data
  local data
  expect_soon "the header of Rec $1" 10 "[[ \$(head -c 4 '$folder/Rec $1.wav') == RIFF ]]"
  data=$(($(bytes "$1") - 44))
  expect_eq "Rec $1 has whole blocks and one byte" 1 $((data % 8192))
  expect_eq "samples of Rec $1" $((data / 4)) "$(soxi -s "$folder/Rec $1.wav")"
  expect_eq "Rec $1 as another program reads it" 44100,2,$((data / 4)) \
    "$(ffprobe -v error -show_entries stream=sample_rate,channels,duration_ts -of csv=p=0 "$folder/Rec $1.wav")"
}

begin
use_sound_card
play_noise 120
start_program
open_recorder
screenshot idle
start_recording 01
screenshot recording
start_button
expect_soon "a pause writes nothing" 10 "writes_nothing 01"
screenshot paused
start_button
expect_soon "recording continues, long enough to be played below" 20 "grown 01 $((held + 1000000))"
stop_button
expect_whole 01

close_recorder
open_recorder
start_recording 02
expect_soon "a second of sound" 10 'grown 02 180000'
kill -KILL "$program"
wait "$program" 2>/dev/null || true
cut=$(bytes 02)
start_program
expect_soon "the repaired copy" 15 '[[ -e "$folder/Rec 02 repaired.wav" ]]'
expect_eq "samples of the repaired copy" $(((cut - 44) / 4)) "$(soxi -s "$folder/Rec 02 repaired.wav")"
expect_eq "the damaged recording" "$cut 0" "$(bytes 02) $(head -c 44 "$folder/Rec 02.wav" | tr -d '\0' | wc -c)"
quit_program

length=$(soxi -s "$folder/Rec 01.wav")
start_program "$folder/Rec 01.wav"
expect_soon "the finished recording plays" 10 "(( \$(position $((length / 44100 + 1))) > 5 ))"
quit_program
