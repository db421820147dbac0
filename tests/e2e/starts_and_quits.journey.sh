#!/usr/bin/env bash
# The first minute: unpack the folder, start it on the sample, hear it, leave.
source "$(dirname "$0")/lib.sh"

begin alone
start_program "$folder/Samples/Interview.mp3"
expect_soon "the sample is heard" 10 'pactl list short sink-inputs | grep -q .'
screenshot playing
quit_program

start_program
quit_program
