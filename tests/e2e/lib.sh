# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# Expectations of the journeys, and the steps that they begin with.
source "$(dirname "${BASH_SOURCE[0]}")/../../tools/dev/driver.sh"

expect() {  # WHAT COMMAND...
  local what=$1
  shift
  "$@" || fail "$what: expected this to succeed: $*"
}

expect_eq() {  # WHAT EXPECTED SEEN
  [[ $2 == "$3" ]] || fail "$1: expected '$2', saw '$3'"
}

expect_stays() {  # WHAT SECONDS COMMAND: expects COMMAND to succeed all the time
  ! wait_until "$2" "! { $3; }" || fail "$1: not for $2 s: $3"
}

expect_change() {  # WHAT BEFORE X Y WIDTH HEIGHT: waits until the area looks different from the glance BEFORE
  expect_soon "$1" 10 "[[ \$(glance ${*:3}) != '$2' ]]"
}

expect_gone() {  # TITLE
  expect_soon "the window closes: $1" 10 '! xdotool search --onlyvisible --name "^'"$1"'$" >/dev/null 2>&1'
}

# [alone]: starts a display and a sound server, creates a program folder; alone: without the editor, so that the player
# keeps the focus
begin() {
  start_display
  start_sound
  lay_folder
  [[ ${1-} != alone ]] || set_line 8 1
}

# First step of most journeys: the sample plays, and the mouse is beside the buttons.
start_on_sample() {
  start_program "$folder/Samples/Interview.mp3"
  player=$window
  expect_soon "the sample plays" 10 '(( $(position) > 20 ))'
  rest_mouse
}
