#!/usr/bin/env bash
# A video in its box, in its own window and in full screen, while Qt recreates windows and the engine dies.
source "$(dirname "$0")/lib.sh"

coloured() {  # WINDOW AREA: succeeds if most of the area has strong colours, which the program itself does not use
  local seen
  seen=$(import -window "$1" -crop "$2" +repage -depth 8 rgb:- | od -An -v -tu1 -w3 |
    awk '{ most = least = $1; for (i = 2; i <= 3; i++) { if ($i > most) most = $i; if ($i < least) least = $i } }
      most - least > 90 { n++ } END { print int(100 * n / NR) }')
  ((seen > 50))
}
in_box() { coloured "$player" "33x24+30+$((28 + $(skin_top)))"; }
in_window() { coloured "$window" "200x140+20+20"; }
double_click() { # X Y
  xdotool mousemove --window "$window" "$1" "$2" click --repeat 2 --delay 60 1
}
filling() { xprop -id "$window" _NET_WM_STATE | grep -q FULLSCREEN; }

begin
film=$scratch/film.mp4
ffmpeg -v error -f lavfi -i color=c=orange:d=90:s=320x240:r=15 -f lavfi -i anoisesrc=d=90:a=0.1:r=44100 \
  -c:v mpeg4 -c:a aac "$film"
start_program "$film"
player=$window
expect_soon "the video in its box" 10 in_box

key alt+o Up Up Up Return  # no longer on top: Qt recreates the native window at the next show
key ctrl+F1
expect_soon "the about box replaces the player" 10 '! xwininfo -id "$player" 2>/dev/null | grep -q IsViewable'
key Escape
switch_to Quillmere  # reappears
player=$window
expect_soon "the video is visible again" 10 in_box

reached=$(position 90)
xdotool windowclose "$(xwininfo -id "$player" -tree | awk '/"mpv"/ { print $1; exit }')"
expect_soon "a new engine continues at the same position" 10 'in_box && (($(position 90) > reached))'
screenshot box

double_click 46 $((40 + $(skin_top)))
switch_to film.mp4  # the separate video window
expect_soon "the video in its window" 10 in_window
screenshot window
double_click 100 100
expect_soon "full screen" 10 'filling && in_window'
key F5 F7
type_text unseen
expect_soon "the focus stays" 5 '[[ $(xdotool getactivewindow) == "$window" ]]'
expect "full screen stays" filling
key Escape
expect_soon "Esc leaves full screen" 10 '! filling && in_window'
quit_program  # without a question about unsaved text
