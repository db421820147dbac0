#!/usr/bin/env bash
# Out of the program and back: the guide, a web page, the sound settings, the about box, and a start without a network
# while the update check is on.
source "$(dirname "$0")/lib.sh"

# Programs that log what they are asked to open, in place of the desktop's own.
mkdir "$scratch/bin"
for program in xdg-open x-www-browser pavucontrol mate-volume-control cinnamon-settings; do
  printf '#!/bin/sh\necho "%s ${QT_QPA_PLATFORM-none} $*" >>"%s/opened"\n' "$program" "$scratch" >"$scratch/bin/$program"
  chmod +x "$scratch/bin/$program"
done
: >"$scratch/opened"
export PATH=$scratch/bin:$PATH
export BROWSER=xdg-open  # the system has a program for web pages

# PROGRAM TARGET: expects this to be the last thing opened, in the environment that the program was started with
opens() {
  expect_soon "$2 is opened" 10 "[[ \$(tail -n1 '$scratch/opened') == '$1 none $2' ]]"
}
minimised() { xprop -id "$player" WM_STATE | grep -q Iconic; }
back() {  # returns to the player, which was minimised for what was opened
  expect_soon "the player is minimised" 10 minimised
  xdotool windowmap "$player"
  switch_to Quillmere
}
alone() {  # TITLE: waits until only this window is visible
  expect_soon "only $1 is visible" 10 "[[ \$(titles) == '$1' ]]"
}
titles() { xdotool search --onlyvisible --class quillmere 2>/dev/null | xargs -rn1 xdotool getwindowname | sort | paste -sd,; }

begin alone
unset QT_QPA_PLATFORM
set_line 1 Italiano.lng 24 1
start_program
player=$window

key F1
opens xdg-open "file://$folder/Files/Help-it.html"
expect "the guide exists" test -s "$folder/Files/Help-it.html"
back
key F9
opens pavucontrol ""
minimised && fail "the sound settings leave the player where it is"

key ctrl+F1
alone "Informazioni sul programma..."
switch_to "Informazioni sul programma..."
screenshot about
click 170 252 # the address
opens xdg-open https://www.brackenloft.example
expect_eq "the about box stays open" "Informazioni sul programma..." "$(titles)"
xdotool keydown Escape
alone Quillmere
expect_stays "the held Escape does not reach the player, where it would end the program" 2 running
xdotool keyup Escape
quit_program

rm "$scratch/bin/pavucontrol"
XDG_CURRENT_DESKTOP=MATE start_program
player=$window
if ! type -P pwvucontrol pavucontrol pavucontrol-qt >/dev/null; then
  key F9
  opens mate-volume-control ""  # the desktop's own, not the one before it in the list
fi
rm "$scratch/bin/"{mate-volume-control,cinnamon-settings}
if ! type -P pwvucontrol pavucontrol{,-qt} {gnome-control-center,cinnamon-settings,mate-volume-control} systemsettings{,5} kcmshell{6,5} >/dev/null; then
  key F9
  expect_soon "the message about missing sound settings" 10 '[[ $(titles) == Quillmere,Quillmere ]]'
  screenshot no_sound_settings
fi
quit_program
