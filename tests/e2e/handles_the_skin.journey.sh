#!/usr/bin/env bash
# The skin under the mouse, the volume, the speed and the window position.
source "$(dirname "$0")/lib.sh"

volume_shown() {  # the volume in per cent, which fades out
  (($(import -window "$window" -crop "33x16+308+$((113 + $(skin_top)))" png:- | identify -format %k -) > 1))
}

begin alone
start_on_sample
hover 94 109
expect_soon "play is highlighted" 10 'shows pause2.jpg 70 84'
screenshot hover_play
hover 172 109
expect_soon "stop is highlighted" 10 'shows stop2.jpg 154 90'
expect_soon "play is no longer highlighted" 10 'shows pause.jpg 70 84'
hover 44 109
expect_soon "open is highlighted" 10 'shows Apri2.bmp 20 90'
rest_mouse
expect_soon "open is no longer highlighted" 10 'shows Apri.bmp 20 90'

xdotool mousemove --window "$window" 323 $((43 + $(skin_top))) mousedown 1
for y in 50 60 70 80; do
  before=$(glance 308 $((30 + $(skin_top))) 30 80)
  hover 323 "$y"
  expect_change "the thumb follows the mouse" "$before" 308 $((30 + $(skin_top))) 30 80
done
expect_soon "the volume is shown" 10 volume_shown
screenshot volume_dragged
xdotool mouseup 1
rest_mouse
expect_soon "the volume has faded out" 10 '! volume_shown'

key F4 F4 F3
screenshot speed

xdotool windowmove --sync "$window" 300 300
quit_program
volume=$(settings_line 2)
((volume > 20 && volume < 70)) || fail "the volume was dragged to $volume"
expect_eq "the saved position" "4500 4500" "$(settings_line 9) $(settings_line 10)"
start_program
read -r left top < <(xwininfo -id "$window" | sed -n 's/.*Absolute upper-left [XY]: *//p' | paste -sd' ')
IFS=', ' read -r border _ title _ < <(xprop -id "$window" _NET_FRAME_EXTENTS | sed 's/.*= //')
expect_eq "the player starts at its default position" "50 50" "$((left - border)) $((top - title))"
key Escape
expect_soon "Esc quits" 10 '! running'
