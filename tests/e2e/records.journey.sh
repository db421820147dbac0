#!/usr/bin/env bash
# A recording with a pause, one stopped in a pause, one whose window is closed, one that is killed; the first is played.
source "$(dirname "$0")/lib.sh"

start_button() { click 240 294; }
stop_button() { click 360 294; }
bytes() { stat -c %s "$folder/Rec $1.wav" 2>/dev/null || echo 0; }
grown() { (($(bytes "$1") > $2 + 20000)); }
open_recorder() {
  use_window Quillmere
  press record
  use_window Record || fail "the recorder did not open"
  sleep 0.3
}
close_recorder() { click 428 -9; }  # on the frame
start_recording() {  # NUMBER
  start_button
  use_window "Save recording as" || fail "the file dialog did not open"
  key Return
  use_window Record
  expect_soon "sound arrives" 10 "grown $1 44"
}
expect_whole() {  # NUMBER: the header tells the length of what stands behind it
  local data
  data=$(($(bytes "$1") - 44))
  expect_eq "whole blocks and one byte of Rec $1" 1 $((data % 8192))
  expect_eq "samples of Rec $1" $((data / 4)) "$(soxi -s "$folder/Rec $1.wav")"
  expect_eq "what another program finds in Rec $1" 44100,2,$((data / 4)) \
    "$(ffprobe -v error -show_entries stream=sample_rate,channels,duration_ts -of csv=p=0 "$folder/Rec $1.wav")"
}

start_display
start_sound
use_sound_card
play_noise 120
folder=$(lay_folder)
start_program "$folder"
open_recorder
screenshot idle
start_recording 01
screenshot recording
start_button
expect_soon "a pause writes nothing" 10 'held=$(bytes 01); sleep 0.5; [[ $held == $(bytes 01) ]]'
screenshot paused
start_button
expect_soon "it goes on, for long enough to be played below" 20 "grown 01 $((held + 1000000))"
stop_button
expect_soon "the header" 10 '[[ $(head -c 4 "$folder/Rec 01.wav") == RIFF ]]'
expect_whole 01

close_recorder
open_recorder
start_recording 02
start_button
sleep 0.3
stop_button
expect_soon "the header after a stop in a pause" 10 '[[ $(head -c 4 "$folder/Rec 02.wav") == RIFF ]]'
expect_whole 02
close_recorder
open_recorder
start_recording 03
close_recorder
expect_soon "the header after the window was closed" 10 '[[ $(head -c 4 "$folder/Rec 03.wav") == RIFF ]]'
expect_whole 03

open_recorder
start_recording 04
expect_soon "a second of sound" 10 'grown 04 180000'
kill -KILL "$program"
wait "$program" 2>/dev/null || true
cut=$(bytes 04)
use_sound_card
start_program "$folder"
expect_soon "the repaired copy" 15 '[[ -e "$folder/Rec 04 repaired.wav" ]]'
expect_soon "a box tells of it" 10 box
screenshot repaired
key Return
expect_eq "samples of the repaired copy" $(((cut - 44) / 4)) "$(soxi -s "$folder/Rec 04 repaired.wav")"
expect_eq "the damaged recording" "$cut 0" "$(bytes 04) $(head -c 44 "$folder/Rec 04.wav" | tr -d '\0' | wc -c)"
quit_program

length=$(soxi -s "$folder/Rec 01.wav")
start_program "$folder" "$folder/Rec 01.wav"
hover 330 150
expect_soon "the finished recording plays" 10 "(( \$(position $((length / 44100 + 1))) > 5 ))"
quit_program
