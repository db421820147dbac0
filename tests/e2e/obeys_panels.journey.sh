#!/usr/bin/env bash
# The desktop's media keys and panels drive the real program on a private session bus, which may hang or be missing.
source "$(dirname "$0")/lib.sh"

panel() { playerctl -p quillmere "$@"; }

call() {  # INTERFACE.METHOD [ARGUMENTS]
  dbus-send --print-reply --dest=org.mpris.MediaPlayer2.quillmere /org/mpris/MediaPlayer2 "$@" >"$scratch/reply" 2>&1
}

told() { grep -q "$1" "$scratch/told"; }

shows_status() { [[ $(panel status 2>/dev/null) == "$1" ]]; }

begin
start_bus
printf 'DesktopPanels=1\r\n' >>"$folder/Files/Options.ini"
as_companion dbus-monitor --profile "path='/org/mpris/MediaPlayer2',type='signal'" >"$scratch/told" 2>&1 &
companions+=($!)
start_on_sample
expect_soon "panels find the player" 10 'shows_status Playing'
expect_eq "title" Interview.mp3 "$(panel metadata xesam:title)"
expect_eq "length" 65880 "$(($(panel metadata mpris:length) / 1000))"
expect_eq "file" "file://$folder/Samples/Interview.mp3" "$(panel metadata xesam:url)"

# Pause takes the button's road: with the step back, of which panels are told.
expect_soon "far enough for a step back" 10 '(( $(position) > 40 ))'
before=$(position)
panel pause
expect_soon "paused" 5 resting
expect_soon "panels know" 5 'shows_status Paused'
at=$(rest_position)
((at < before - 15)) || fail "no step back: from $before to $at tenths"
expect_soon "panels are told of the step" 5 'told Seeked && told PropertiesChanged'
panel pause
expect_stays "a second pause changes nothing" 1 resting
panel play-pause
expect_soon "playing" 5 playing
panel position 30
expect_soon "position" 5 '(( $(position) >= 295 ))'
panel position 10-
expect_soon "10 s back" 5 '(( $(position) < 260 ))'
panel pause
before=$(rest_position)
panel next
expect_soon "a step forward" 5 '(( $(position) > before + 20 ))'
panel previous
expect_soon "and back" 5 '(( $(position) < before + 10 ))'
panel volume 0.25
expect_soon "volume" 5 '[[ $(panel volume) == 0.25* ]]'
properties=org.freedesktop.DBus.Properties
expect "speed" call $properties.Set string:org.mpris.MediaPlayer2.Player string:Rate variant:double:1.5
expect_soon "panels know the speed" 5 'call $properties.Get string:org.mpris.MediaPlayer2.Player string:Rate && grep -q "double 1.5" "$scratch/reply"'

cp "$folder/Samples/Interview.mp3" "$scratch/Zweite Aufnahme ü%.mp3"
panel open "file://$scratch/Zweite%20Aufnahme%20%C3%BC%25.mp3"
expect_soon "another recording" 10 '[[ $(panel metadata xesam:title) == "Zweite Aufnahme ü%.mp3" ]]'
expect_soon "it plays" 5 'shows_status Playing'
call org.mpris.MediaPlayer2.Player.OpenUri string:http://localhost/a.mp3 && fail "an address is opened"
call org.mpris.MediaPlayer2.Player.Seek string:far && fail "a text is an offset"
call $properties.Set string:org.mpris.MediaPlayer2.Player string:Rate variant:string:fast && fail "a text is a speed"
panel stop
expect_soon "stopped" 5 'shows_status Stopped'

# Panels may bring the player to the front, and end the program with its question.
use_editor
type_text unsaved
as_companion xev -name other >/dev/null &
companions+=($!)
expect_soon "another program in front" 5 '[[ $(xdotool getwindowname "$(xdotool getactivewindow)") == other ]]'
call org.mpris.MediaPlayer2.Raise
expect_soon "the player in front" 5 '[[ $(xdotool getactivewindow) == "$player" ]]'
call org.mpris.MediaPlayer2.Quit
expect_soon "the question about the text" 10 box
call org.mpris.MediaPlayer2.Quit && fail "a second question"
key Escape
expect_soon "still there" 5 'shows_status Stopped'
window=$player
call org.mpris.MediaPlayer2.Quit
answer alt+n
expect_soon "the end" 10 '! running'
expect_eq "nobody has the name" "" "$(playerctl -l 2>/dev/null)"

# A bus that hangs when the panels are switched on, and none. (At the start, Qt itself waits for the bus, for the sake of
# screen readers.)
rm "$folder/Files/Options.ini"
start_on_sample
kill -STOP "$bus"
use_editor
key alt+r Up Up Return # the last but one of the menu "Transcript"
expect_soon "the window that switches panels on" 10 'use_window "Keys and pedals"'
key alt+m
expect_soon "they are on" 5 'grep -sq DesktopPanels=1 "$folder/Files/Options.ini"'
key Escape
window=$player
press play
expect_soon "the player obeys" 3 resting
quit_program
kill -CONT "$bus"
DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere start_on_sample
quit_program
