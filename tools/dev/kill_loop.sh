#!/usr/bin/env bash
# Ends the program at random moments of its work and checks what is left:
#   tools/dev/kill_loop.sh [-m MODE] [-s SEED] [-f FIRST] [N]
# Numbered words are typed, formatted, saved and marked, in some rounds during a recording. Each of the N rounds ends the
# program once and starts it again. MODE is how it ends:
#   kill      SIGKILL; sometimes a second time while the work is being restored
#   term      SIGTERM: nothing is lost, the exit code is 0, the recording is complete
#   display   the X server ends: the same
#   full      the disk of the program folder is full for a while, then SIGKILL or SIGTERM
#   readonly  SIGKILL; the next start restores the work from a read-only program folder
# The last two mount a small file system, which needs root; the exit code is 77 if that is impossible.
# Prints one line per round; the exit code is 1 if one failed. Equal seeds choose equal moments. -f is the number of the
# first round, to repeat a failed one. If KEEP_DIR is set, the files of failed rounds are copied there.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
export PORTABLE_DIR=${PORTABLE_DIR:-$root/build/quillmere}
: "${RTF_TEXT:=$root/build/dev/tools/rtf_text/rtf_text}"
source "$(dirname "${BASH_SOURCE[0]}")/driver.sh"

most_lost=1000 # ms of work that a kill may cost
mode=kill seed=$((RANDOM * 32768 + RANDOM)) # of the moments
first=1
while getopts f:m:s: option; do
  case $option in
    f) first=$OPTARG ;;
    m) mode=$OPTARG ;;
    s) seed=$OPTARG ;;
    *) exit 2 ;;
  esac
done
shift $((OPTIND - 1))
rounds=${1:-10}
[[ $mode =~ ^(kill|term|display|full|readonly)$ ]] || die "no such mode: $mode"
[[ -x $RTF_TEXT ]] || die "build it first: $RTF_TEXT"

problems=() # of this round
problem() { problems+=("$*"); }
fail() { # ends the round
  printf '%5d FAILED, line %s: %s\n' "$round" "${BASH_LINENO[*]}" "$*"
  import -window root "$scratch/before.png"
  exit 1
}
chance() { ((RANDOM % $1 == 0)); } # one in so many

# ---- The stream of words: each tells its round and its place ----

word() { printf 'w%d%04d ' "$round" "$1"; }
stream() { # N: the first words
  local n
  for ((n = 1; n <= $1; ++n)); do word "$n"; done
}
note() { echo "$1 $(now)" >>"$scratch/$2"; } # WHAT FILE: was done by now
done_before() { awk -v until="$2" '$2 <= until { n++ } END { print n + 0 }' "$scratch/$1"; } # FILE MS
done_at() { awk -v n="$2" 'NR == n { print $2 }' "$scratch/$1"; } # FILE N: when the n-th was done

save_as() { # in the dialog that is up
  switch_to 'Save document as'
  type_text "$document"
  key Return
  use_editor "${document##*/}"
}
mark() {
  key ctrl+m
  switch_to 'Add bookmark'
  type_text "mark$((++marks))"
  key Return
  note "$marks" marks
  expect_soon "the dialog closes" 10 '! xdotool search --onlyvisible --name "^Add bookmark$" >/dev/null 2>&1'
  # The player takes the focus back when the bookmark window opens.
  window=$(xdotool search --onlyvisible --limit 1 --name "^Text Editor - ")
  expect_soon "the editor has the keyboard" 10 'click 300 150; sleep 0.3; [[ $(xdotool getwindowfocus) == "$window" ]]'
  key ctrl+End
}
record() {
  switch_to Quillmere
  press record
  switch_to Record
  settle 200 glance 0 0 400 300 >/dev/null
  click 240 294
  switch_to "Save recording as"
  key Return
  switch_to Record
  expect_soon "sound arrives" 10 '(($(stat -c %s "$folder/Rec 01.wav" 2>/dev/null || echo 0) > 20000))'
  recording_began=$(now)
  switch_to Quillmere
}

# The style changes when the letter is released while Ctrl is still held; xdotool would release Ctrl first.
switch_bold() { xdotool keydown ctrl key b keyup ctrl; }

# The typist, in a subshell of its own, until the file "stop" exists: if it were killed, its last keys might reach the
# next start of the program.
work() { # FIRST WORD
  local n=$1
  exec 2>/dev/null
  while [[ ! -e $scratch/stop ]]; do
    case $((RANDOM % 12)) in
      0)
        switch_bold
        type_text "$(word "$n")"
        note "$n" bold
        switch_bold
        ;;
      1)
        type_text "$(word "$n")"
        [[ $named != yes ]] || { key ctrl+s && note "$n" saves; }
        ;;
      *) type_text "$(word "$n")" ;;
    esac
    note "$n" typed
    ((++n))
  done
}

# ---- Checks of the files -------------------------------------------------------------------------------

whole_rtf() { # FILE: a source whose braces close
  [[ $(head -c 5 "$1") == '{\rtf' && $(tr -cd '{' <"$1" | wc -c) == "$(tr -cd '}' <"$1" | wc -c)" ]]
}
lines_match() { # FILE PATTERN: each is a whole line
  [[ ! -s $1 ]] || { [[ $(tail -c 2 "$1" | od -An -tx1) == " 0d 0a" ]] && ! tr -d '\r' <"$1" | grep -Eqv "$2"; }
}
private() { # PATH MODE
  [[ ! -e $1 || $(stat -c %a "$1") == "$2" ]] || problem "$1 is open to others: $(stat -c %a "$1")"
}

expect_whole_files() { # WHEN
  local file files=$folder/Files
  [[ $(wc -l <"$files/Quillmere.ini") == "$settings_lines" ]] || problem "$1: settings torn"
  for file in "$files"/LastFiles*.ini; do
    lines_match "$file" '^(/.*|mnuRecent[1-4])?$' || problem "$1: ${file##*/} torn"
  done
  lines_match "$files/Recordings.ini" '^[12],(8|16),[0-9]+,/' || problem "$1: list of recordings torn"
  lines_match "$files/Options.ini" '=' || problem "$1: options torn"
  for file in "$folder"/Bookmarks/*.bm; do
    lines_match "$file" '^[0-9:]+  .* +[0-9:]+$' || problem "$1: ${file##*/} torn"
  done
  diff -rq "$PORTABLE_DIR/Files/Lang" "$files/Lang" >/dev/null || problem "$1: a language file changed"
  [[ ! -e $document ]] || whole_rtf "$document" || problem "$1: document torn"
  private "$files/Safety" 700
  private "$files/Safety/Archive" 700
  for file in "$files"/Safety/[JB]* "$files"/Safety/Archive/*; do
    private "$file" 600
  done
  for file in "$files"/Safety/Archive/*.rtf; do
    [[ ! -e $file ]] || whole_rtf "$file" || problem "$1: archived version torn: ${file##*/}"
  done
  for file in "$files"/Safety/Archive/*.bm; do
    lines_match "$file" '^[0-9:]+  .* +[0-9:]+$' || problem "$1: archived bookmarks torn: ${file##*/}"
  done
}
left_over() { find "$folder" "$HOME" -name '*.quillmere-new*' -o -name '*.new'; }
whole_recording() { # FILE MS: holds at least so much
  local length
  length=$(soxi -D "$1" 2>/dev/null) || { problem "${1##*/} is no recording" && return; }
  awk -v a="$length" -v b="$2" 'BEGIN { exit !(a * 1000 >= b) }' || problem "${1##*/} holds $length s of $2 ms"
}

# ---- A round ---------------------------------------------------------------------------------------------

lay_round() {
  if [[ $mode == full || $mode == readonly ]]; then
    # A program that was killed just before may still hold it.
    ! mountpoint -q "$scratch/disk" || wait_until 10 'umount "$scratch/disk" 2>/dev/null' || fail "the disk stays busy"
    mkdir -p "$scratch/disk"
    mount -t tmpfs -o size=$(($(du -sk "$PORTABLE_DIR" | cut -f1) + 6000))k none "$scratch/disk" 2>/dev/null ||
      { echo "no small file system can be mounted here"; exit 77; }
    cp -a "$PORTABLE_DIR/." "$folder/"
    rm -rf "$folder"/Files/LastFiles*.ini "$folder/Files/Safety"
    cp "$root/data/Files/Quillmere.ini" "$folder/Files/"
  fi
  rm -rf "$folder"/Rec* "$folder"/Files/{Recordings.ini,Safety/Journal,Safety/BringingBack} "$folder"/Bookmarks/*.bm "$scratch"/{typed,bold,saves,marks,stop}
  touch "$scratch"/{typed,bold,saves,marks}
  settings_lines=$(wc -l <"$folder/Files/Quillmere.ini")
  document=$([[ $mode == full ]] && echo "$folder" || echo "$HOME")/round$round.rtf
  named=no changed=no marks=0 recording_began=0 problems=()
}

begin_work() {
  start_program "$folder/Samples/Interview.mp3"
  echo "$program" >"$scratch/pid"
  # A third of the rounds records; in half of them the document has a file.
  if ((round % 3 == 0)) && [[ $mode != full && $mode != readonly ]]; then record; fi
  use_editor 'Untitled 1'
  type_text "$(word 1)"
  note 1 typed
  if chance 2; then
    named=yes
    key ctrl+s
    save_as
  fi
  if ((round % 2 == 1)); then
    switch_to Quillmere
    mark
  fi
}

await_end() { # SECONDS: leaves the code in $ended
  wait_until "$1" '! running' || { problem "hangs after $mode" && kill -KILL "$program"; }
  ended=0
  wait "$program" 2>/dev/null || ended=$?
  forget "$program"
}
forget() { # PID: has ended; the system may give its number to another process
  local pid kept=()
  for pid in "${companions[@]}"; do
    [[ $pid == "$1" ]] || kept+=("$pid")
  done
  companions=("${kept[@]}")
}
expect_code() { [[ $ended == "$1" ]] || problem "exit code $ended instead of $1"; }

end_by() { # KIND: kill, term or display; the moment is in $ended_at
  [[ ! ${KEEP_DIR-} ]] || import -window root "$scratch/before.png"
  case $1 in
    kill)
      ended_at=$(now)
      kill -KILL "$program"
      wait "$program" 2>/dev/null || true
      ;;
    term)
      sleep 0.3 # until the X server has delivered the last key
      ended_at=$(now)
      kill -TERM "$program"
      ;;
    display)
      sleep 0.3
      ended_at=$(now)
      kill -KILL "${companions[0]}"
      ;;
  esac
  [[ $1 == kill ]] || { await_end 10 && expect_code 0; }
}

fill_disk() { dd if=/dev/zero of="$folder/filler" bs=1k 2>/dev/null || true; }

# Works until a random moment and ends the program.
work_and_end() {
  local worker moment=$((RANDOM % 3000 + 200)) how=$mode
  work 2 &
  worker=$!
  companions+=("$worker")
  if [[ $mode == full ]]; then
    sleep 0.7
    fill_disk
    sleep "$((moment / 1000)).$(printf %03d $((moment % 1000)))"
    if chance 2; then # with free space the journal has to recover
      rm -f "$folder/filler"
      sleep 3
      how="kill"
    else
      how="term"
    fi
    running || problem "died of a full disk"
  else
    [[ $mode != readonly ]] || how="kill"
    sleep "$((moment / 1000)).$(printf %03d $((moment % 1000)))"
  fi
  if [[ $how == kill ]]; then
    end_by kill
    forget "$program"
    stop "$worker"
  else
    stop "$worker"
    end_by "$how"
  fi
  full_at_end=$([[ -e $folder/filler ]] && echo yes || echo no)
  rm -f "$folder/filler"
  how_ended=$how
}
stop() { # PID: of the typist
  touch "$scratch/stop"
  wait "$1" || true
  forget "$1"
}

new_display() {
  stop_companions
  start_display -r
  start_sound
}


# Another program writes the document while the journal certainly holds unsaved words.
change_elsewhere() {
  local saved
  saved=$(tail -n 1 "$scratch/saves" | cut -d' ' -f1)
  [[ $named == yes && $mode != full && $mode != readonly ]] || return 0
  (($(done_before typed $((ended_at - most_lost))) > ${saved:-1})) || return 0
  printf '{\\rtf1 elsewhere %d}' "$round" >"$document"
  changed=yes
}
expect_archived() {
  [[ $changed == no ]] || grep -qs "elsewhere $round" "$folder"/Files/Safety/Archive/round"$round".rtf* ||
    problem "the version of another program is lost"
}

# Starts the program again, saves what it restores and exits.
start_again() {
  local before journaled=no
  ! grep -aqs "w$round" "$folder/Files/Safety/Journal" || journaled=yes
  [[ $mode != display ]] || new_display
  change_elsewhere
  before=$(document_sum)
  if [[ $mode == kill ]] && chance 4; then # a second time, while it restores the work
    launch_only
    sleep "0.$((RANDOM % 9 + 1))"
    kill -KILL "$program" 2>/dev/null || true
    wait "$program" 2>/dev/null || true
    forget "$program"
  fi
  [[ $mode != readonly ]] || mount -o remount,ro "$folder"
  start_program
  echo "$program" >"$scratch/pid"
  if ((recording_began)) && [[ $how_ended == kill && $mode != readonly ]]; then
    wait_until 15 '[[ -e "$folder/Rec 01 repaired.wav" ]]' || problem "no repaired recording"
  fi
  use_editor
  [[ $(document_sum) == "$before" ]] || problem "the start has touched the document"
  save_restored
  quit_or_answer
  await_end 20
  expect_code 0
  [[ $mode != readonly ]] || mount -o remount,rw "$folder"
}
document_sum() { cksum "$document" 2>/dev/null || true; }
# A killed program may have saved everything before. In an empty editor, which counts as changed, Ctrl+S would open a
# dialog.
save_restored() {
  expect_soon "the editor has the keyboard" 10 '[[ $(xdotool getwindowfocus) == "$window" ]]'
  # A key that comes before the windows of the start have settled goes to another one: press it again.
  if [[ $(xdotool getwindowname "$window") == *" - ${document##*/}" ]]; then
    expect_soon "the document is saved" 10 'key ctrl+s; wait_until 2 document_changed'
  elif [[ ! -e $document && $journaled == yes ]]; then
    expect_soon "the dialog opens" 10 'key ctrl+s; wait_until 3 asks_for_name'
    save_as
  fi
}
document_changed() { [[ $(document_sum) != "$before" ]]; }
asks_for_name() { xdotool search --onlyvisible --name "^Save document as$" >/dev/null 2>&1; }
quit_or_answer() {
  local try
  for try in 1 2 3; do
    find_player 20 || fail "the player cannot be activated"
    key ctrl+q
    # While the program ends, its last window may be taken for a box.
    ! wait_until 5 '! running || box' || ! wait_until 3 '! running' || return 0
    ! box || { problem "the exit asks" && key alt+n && return 0; }
    [[ ! ${KEEP_DIR-} ]] || import -window root "$scratch/quit$try.png"
  done
}
launch_only() {
  as_companion "$folder/quillmere" >>"$scratch/program.log" 2>&1 &
  program=$!
  companions+=("$program")
}

# Compares the restored text with what was typed. Sets $missing (words) and $lost (ms since the first of them).
compare_text() {
  local text kept typed
  text=$("$RTF_TEXT" "$document" 2>/dev/null | tr -d '\n' || true)
  kept=$(grep -o 'w[0-9]* ' <<<"$text" | wc -l || true)
  typed=$(done_before typed "$ended_at")
  # The last word may be incomplete, or not noted yet.
  [[ "$(stream $((typed + 2)))" == "$text"* ]] || problem "no prefix of the stream: ...${text: -40}"
  missing=$((typed > kept ? typed - kept : 0)) lost=0
  ((missing == 0)) || lost=$((ended_at - $(done_at typed $((kept + 1)))))
  if [[ $how_ended == kill ]]; then
    ((lost <= most_lost)) || problem "$lost ms of typing lost"
  elif [[ $full_at_end == no ]]; then
    ((missing == 0)) || problem "$missing words lost"
  fi
}
compare_formats() {
  (($(done_before bold $((ended_at - most_lost))) == 0)) || grep -q '\\b[ \]' "$document" || problem "a format is lost"
}
compare_marks() {
  local due kept
  due=$(done_before marks $((ended_at - most_lost)))
  kept=$(find "$folder/Bookmarks" -name '*.bm' -exec cat {} + | wc -l)
  ((kept >= due)) || problem "$kept of $due marks"
}
compare_recording() {
  ((recording_began)) || return 0
  local file="Rec 01.wav"
  [[ $how_ended != kill ]] || file="Rec 01 repaired.wav"
  whole_recording "$folder/$file" $((ended_at - recording_began - most_lost))
}

show_round() {
  local verdict=whole
  ((${#problems[@]} == 0)) || verdict="FAILED: $(printf '%s; ' "${problems[@]}")"
  printf '%5d %-8s %-8s %5d %5d %5d %4s %7d %7d %8d  %s\n' "$round" "$how_ended" "$named" "$(wc -l <"$scratch/typed")" \
    "$(wc -l <"$scratch/saves")" "$marks" "$( ((recording_began)) && echo yes || echo no)" "$missing" "$lost" \
    "$(find "$folder/Files/Safety" -path '*/Archive/*' -type f | wc -l)" "$verdict"
}

# Runs in a subshell: a failure ends only this round.
run_round() {
  echo 0 >"$scratch/lost"
  RANDOM=$(((seed + round * 7919) % 32768))
  for _ in {1..8}; do : $RANDOM; done # the first numbers of similar seeds are similar
  lay_round
  begin_work
  work_and_end
  expect_whole_files "at the end"
  [[ $how_ended == kill ]] || compare_recording
  start_again
  expect_whole_files "after the start"
  [[ ! $(left_over) ]] || problem "left over: $(left_over | head -3)"
  [[ ! -e $folder/Files/Safety/Journal || $mode == readonly ]] || problem "a journal is left"
  compare_text
  [[ $full_at_end == yes ]] || compare_formats
  expect_archived
  [[ $mode == readonly ]] || compare_marks
  [[ $how_ended != kill ]] || compare_recording
  echo "$lost" >"$scratch/lost"
  show_round
  ((${#problems[@]} == 0))
}

leave_disk() {
  local code=$?
  set +e
  trap - ERR
  ! mountpoint -q "$scratch/disk" || umount -l "$scratch/disk"
  (exit "$code") # for leave
  leave
}
trap leave_disk EXIT

keep_traces() { # of a failed round
  [[ ${KEEP_DIR-} ]] || return 0
  mkdir -p "$KEEP_DIR/$mode.$round"
  cp -a "$folder"/{Files,Bookmarks} "$HOME" "$scratch"/{typed,saves,marks,before.png} "$KEEP_DIR/$mode.$round/" || true
}

failed=0 worst=0 total=0 folder=$scratch/disk
start_display -r # on a busy machine, a key would repeat before xdotool releases it
start_sound
use_sound_card
[[ $mode == full || $mode == readonly ]] || lay_folder
echo "mode $mode, seed $seed"
printf '%5s %-8s %-8s %5s %5s %5s %4s %7s %7s %8s\n' round end named words saves marks rec missing "lost ms" archive
for ((round = first; round < first + rounds; ++round)); do
  code=0
  run_round &
  wait $! || code=$?
  ((code != 77)) || exit 77
  if ((code)); then
    ((++failed))
    keep_traces
    kill -KILL "$(<"$scratch/pid")" 2>/dev/null || true
  fi
  [[ $mode != display ]] || new_display
  lost=$(<"$scratch/lost")
  worst=$((lost > worst ? lost : worst)) total=$((total + lost))
done
echo "$rounds rounds, $failed failed; lost at most $worst ms, $((total / rounds)) ms on average"
((failed == 0))
