#!/usr/bin/env bash
# Regenerates the pictures of docs/ from the program last built by ./run: the player in its states at single and double
# size, its menus in two languages, the recorder in its states, the about box, the quiet line, a recogniser at work, keys
# and pedals, following the sound, the waveform and the earlier versions in two languages.
export PORTABLE_DIR=${PORTABLE_DIR:-$(dirname "$0")/../../build/quillmere}
source "$(dirname "$0")/driver.sh"
docs=$root/docs
ffmpeg -v error -f lavfi -i testsrc2=size=640x360:rate=25 -f lavfi -i sine=440 -t 20 -c:v libx264 -c:a aac -pix_fmt yuv420p \
  "$scratch/Harbour film.mp4"

picture() {  # NAME: takes a picture of the player window
  import -window "$window" "$scratch/$1.png"
}

in_states() { # SCALE
  local scale=$1
  export QT_SCALE_FACTOR=$scale
  at() { xdotool mousemove --window "$window" $(($1 * scale)) $((($2 + 19) * scale)); }
  lay_folder
  start_program
  at 340 165
  sleep 0.3
  picture rest
  quit_program
  start_program "$folder/Samples/Interview.mp3"
  sleep 4
  at 340 165
  sleep 0.3
  picture playing
  at 94 110
  sleep 0.3
  picture hover
  at 323 44
  xdotool mousedown 1
  at 323 60
  sleep 0.1
  at 323 80
  sleep 0.2
  picture volume
  xdotool mouseup 1
  quit_program
  start_program "$scratch/Harbour film.mp4"
  sleep 3
  at 340 165
  sleep 0.2
  picture video
  quit_program
  (cd "$scratch" && convert \( rest.png playing.png hover.png +append \) \( volume.png video.png +append \) \
    -bordercolor '#8a94a3' -background white -append "$docs/player-${scale}x.png")
  [[ $scale != 2 ]] || cp "$scratch/playing.png" "$docs/player.png"
  unset QT_SCALE_FACTOR
}

menus() {  # LANGUAGE X...: takes pictures of the menus opened at these positions of the menu bar
  local language=$1 x shown=()
  shift
  lay_folder
  set_line 1 "$language.lng"
  mkdir -p /tmp/Interviews
  cp "$folder/Samples/Interview.mp3" "/tmp/Interviews/Harbour pilot.mp3"
  start_program "/tmp/Interviews/Harbour pilot.mp3"
  sleep 1
  for x; do
    click "$x" 10
    sleep 0.4
    import -window root "$scratch/menu-$x.png"
    mogrify -trim +repage "$scratch/menu-$x.png"
    shown+=("$scratch/menu-$x.png")
    key Escape
    sleep 0.3
  done
  quit_program
  montage "${shown[@]}" -tile 2x -geometry +12+12 -gravity northwest -background '#8a94a3' "$docs/menus-${language,,}.png"
}

recorder() { # LANGUAGE: idle, recording and paused
  local language=$1 entry
  entry() { sed -n "$(($1 + 1)){s/\r\$//;s/^\xEF\xBB\xBF//;s/^...//;p;q}" "$folder/Files/Lang/$language.lng"; }
  rm -rf /tmp/Quillmere
  lay_folder
  mv "$folder" /tmp/Quillmere  # the picture shows this path
  folder=/tmp/Quillmere
  set_line 1 "$language.lng"
  start_program
  press record
  use_window "$(entry 104)"
  sleep 0.4
  picture idle
  click 240 294
  use_window "$(entry 105)"
  key Return
  use_window "$(entry 104)"
  sleep 4
  # The lamp and the caption blink twice a second.
  until picture recording && [[ $(convert "$scratch/recording.png" -format '%[fx:p{39,84}.g<0.5]' info:) == 1 ]]; do
    sleep 0.1
  done
  click 240 294
  sleep 0.5
  picture paused
  click 360 294
  quit_program
  convert "$scratch/"{idle,recording,paused}.png -bordercolor '#8a94a3' -border 8 +append "$docs/recorder-${language,,}.png"
  rm -rf "$folder"
}

# A typed transcript beside the player with its recording.
transcript() { # LANGUAGE PICTURE TITLE (SPEAKER WORDS)...
  local language=$1 picture=$2 title=$3
  shift 3
  at_button() { sleep 0.8 && click "$1" 37 && sleep 0.3; }  # after letters without a key, the window manager needs time
  lay_folder
  set_line 1 "$language.lng"
  start_program "$folder/Samples/Interview.mp3"
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window"
  at_button 357  # centred, bold, two sizes larger
  at_button 207
  at_button 417
  at_button 417
  xdotool mousemove 900 700
  type_text "$title"
  key Return
  at_button 327
  at_button 447
  at_button 447
  while (($#)); do
    at_button 207
    key Return
    at_button 207
    type_text "$1: "
    at_button 207
    at_button 235
    type_text "$2"
    at_button 235
    at_button 207
    shift 2
  done
  xdotool mousemove 900 700
  sleep 0.3
  import -window root -crop 724x582+48+48 +repage "$scratch/$picture.png"
  convert "$scratch/$picture.png" -fill '#8a94a3' -draw 'color 500,100 floodfill' "$docs/$picture.png"
  kill -KILL "$program"
}

# Both forms of the find window, over a text that it has searched.
find_windows() { # LANGUAGE
  local shown=() shortcut
  lay_folder
  set_line 1 "$1.lng"
  start_program
  for shortcut in ctrl+f ctrl+h; do
    wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
    xdotool windowactivate --sync "$window"
    key ctrl+Home "$shortcut"
    wait_until 10 'window=$(xdotool search --onlyvisible --name "\.\.\.$")'
    xdotool windowactivate --sync "$window"
    type_text 'harbour'
    xdotool mousemove 900 700
    sleep 0.3
    import -window "$window" "$scratch/$1-$shortcut.png"
    shown+=("$scratch/$1-$shortcut.png")
    key Escape
    sleep 0.3
  done
  kill -KILL "$program"
  convert "${shown[@]}" -bordercolor '#8a94a3' -border 6 +append "$scratch/find-$1.png"
}

# The bookmarks beside the player; below, the input dialog for two purposes.
bookmarks() {  # LANGUAGE X Y DIALOG NAME NAME NAME: X, Y is the command for the play time in the options menu
  local language=$1 x=$2 y=$3 dialog=$4 time=4
  shift 4
  lay_folder
  set_line 1 "$language.lng" 8 1
  for name; do
    printf '00:00:%02d  %s%15s00:00:%02d\r\n' $time "$name" '' $time
    time=$((time + 17))
  done | sed '1s/^/\xEF\xBB\xBF/' >"$folder/Bookmarks/Interview.mp3.bm"
  start_program "$folder/Samples/Interview.mp3"
  sleep 2
  xdotool mousemove 560 100 click 1
  use_window Quillmere
  xdotool mousemove 900 700
  sleep 0.3
  import -window root -crop 728x214+49+49 +repage "$scratch/list.png"
  key ctrl+m
  use_window "$dialog"
  type_text "${1%% *}"
  sleep 0.2
  import -frame -window "$window" "$scratch/name.png"
  key Tab Tab Return
  use_window Quillmere
  click "$x" 10
  sleep 0.3
  click "$x" "$y"
  sleep 0.5
  import -frame -window "$(xdotool getactivewindow)" "$scratch/seconds.png"
  kill -KILL "$program"
  mogrify -fill '#8a94a3' -draw 'color 351,100 floodfill' "$scratch/list.png"
  convert -background '#8a94a3' \( "$scratch/list.png" -gravity south -splice 0x12 \) \
    \( "$scratch/name.png" \( "$scratch/seconds.png" -gravity west -splice 12x0 \) +append \) -gravity center -append \
    -bordercolor '#8a94a3' -border 12 "$docs/bookmarks-${language,,}.png"
}

about() {  # LANGUAGE SCALE PICTURE: with the list of libraries visible
  lay_folder
  set_line 1 "$1.lng" 8 1
  QT_SCALE_FACTOR=$2 start_program
  key ctrl+F1
  wait_until 10 '[[ $(xdotool getactivewindow getwindowname) == *... ]]'
  window=$(xdotool getactivewindow)
  sleep 10.5  # the list scrolls in from below
  import -frame -window "$window" "$docs/$3.png"
  kill -KILL "$program"
}

# The window of earlier versions.
versions() { # LANGUAGE X NAME WORDS...: X is the place of the last menu
  local language=$1 x=$2 name=$3 archive version
  shift 3
  lay_folder
  set_line 1 "$language.lng"
  archive=$folder/Files/Safety/Archive
  install -d -m 700 "$folder/Files/Safety" "$archive"
  version() { (umask 077 && iconv -f UTF-8 -t UTF-16LE <<<"$2" | od -An -v -tu2 -w2 |
    awk 'BEGIN { printf "{\\rtf1\\ansi\\uc0 " } $1 == 10 { printf "\\par " } $1 != 10 { printf "\\u%d ", $1 } END { print "}" }' >"$archive/$1.rtf"); }
  version "$name.rtf $(date -d "-1 days" +%F) 16.21.07 [replaced]" "$(printf '%s\n' "$@")"
  version "$name.rtf $(date -d "-1 days" +%F) 11.40.52 [exit]" "$1"
  version "$name 2.rtf $(date -d "-6 days" +%F) 09.15.33 [overwritten]" "$2"
  version "$name 3.rtf $(date -d "-13 days" +%F) 17.02.48 [structure]" "$1"
  start_program
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window" mousemove 900 900
  sleep 1
  click "$x" 10
  key Down Return
  wait_until 10 '[[ $(xdotool getactivewindow) != "$window" ]]'
  sleep 1
  import -frame -window "$(xdotool getactivewindow)" "$docs/versions-${language,,}.png"
  kill -KILL "$program"
}

# What a killed program had not saved is brought back, which the quiet line tells.
quiet_line() { # WORDS
  lay_folder
  start_program
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window"
  type_text "$1"
  sleep 2
  kill -KILL "$program"
  wait_until 5 '! running'
  start_program
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window" mousemove 900 900
  wait_until 10 'xdotool search --onlyvisible --name ": .* 1$"'
  sleep 0.5
  import -window root -crop 732x640+48+48 +repage "$scratch/line.png"
  kill -KILL "$program"
  convert "$scratch/line.png" -fill '#8a94a3' -draw 'color 700,100 floodfill' "$docs/quiet-line.png"
}

# The window of a recogniser at work.
draft() {
  local player
  lay_folder
  start_program "$folder/Samples/Interview.mp3"
  player=$window
  wait_until 10 '(($(position) > 10))'
  press stop
  use_window 'Text Editor - .*'
  key alt+r
  key m
  use_window 'Make a draft'
  key Return
  sleep 15
  import -frame -window "$window" "$docs/make-draft.png"
  kill -KILL "$program"
}

# The window in which keys from anywhere and pedals are set up.
hands() {  # LANGUAGE MENU_KEY
  local title
  lay_folder
  set_line 1 "$1.lng"
  printf 'KeysFromAnywhere=1\r\nPedals=1\r\nDesktopPanels=1\r\n' >"$folder/Files/Options.ini"
  start_program "$folder/Samples/Interview.mp3"
  use_window '.* - .* 1'
  xdotool key "$2" Up Up Return
  title=$(sed -n 's/^Keys and pedals\t//p' "$folder/Files/Lang/$1.words" 2>/dev/null || true)
  use_window "${title:-Keys and pedals}"
  sleep 0.5
  import -frame -window "$window" "$scratch/hands-$1.png"
  quit_program
}

# The menu of a misspelled word, and what the check before delivery finds.
delivery() {  # LANGUAGE MENU_KEY COMMAND_KEYS...
  local title
  lay_folder
  set_line 1 "$1.lng"
  printf 'CheckSpelling=1\r\nSpellingLanguage=en_US\r\n' >"$folder/Files/Options.ini"
  cat >"$scratch/Harbour.txt" <<'END'
[00:00:05] Anna Miller: When did you beginn as a pilot?
[00:00:09] Thomas Reed: In the spring of  1987 (my first ship was the [unclear 00:00:12].
[00:00:21] Ana Miller: “And what did your familly say?
[00:00:18] Thomas Reed: Nothing at all, they had known it ???
END
  start_program --document "$scratch/Harbour.txt"
  use_window '.* - Harbour.txt'
  sleep 3
  xdotool key ctrl+Home ctrl+Right ctrl+Right ctrl+Right ctrl+Right ctrl+Right ctrl+Right ctrl+Right ctrl+Right \
    ctrl+Right ctrl+Right ctrl+Right ctrl+Right ctrl+Right Menu
  sleep 1
  import -window root -crop 734x510+48+290 +repage "$scratch/spelling-$1.png"
  xdotool key Escape
  sleep 0.5
  xdotool key "$2"
  sleep 0.5
  xdotool key "${@:3}"
  title=$(sed -n 's/^Check before delivery\t//p' "$folder/Files/Lang/$1.words" 2>/dev/null || true)
  use_window "${title:-Check before delivery}"
  sleep 1
  import -frame -window "$window" "$scratch/delivery-$1.png"
  quit_program
}

# The word that is heard is marked. The sample's text is opened as a draft; each sentence begins where a silence ends.
following() {
  lay_folder
  ffmpeg -nostdin -i "$folder/Samples/Interview.mp3" -af silencedetect=noise=-55dB:d=0.12 -f null - 2>&1 |
    sed -n 's/.*silence_end: \([0-9.]*\).*/\1/p' >"$scratch/starts"
  sed 's/^INTERVIEWER/Interviewer/; s/^GUEST/Guest/; s/\([.?!]\) /\1\n/g' "$root/tools/sample/interview.txt" |
    awk 'function time(s) { return sprintf("00:%02d:%06.3f", s / 60, s % 60) }
      BEGIN { print "WEBVTT" }
      NR == FNR { start[NR] = $1; next }
      { printf "\n%s --> %s\n%s\n", time(start[FNR]), time(start[FNR + 1] - 0.35), $0 }' "$scratch/starts" - \
      >"$scratch/Interview.vtt"
  start_program "$folder/Samples/Interview.mp3"
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window" mousemove 900 900
  sleep 0.5
  key alt+r
  sleep 0.5
  key d
  wait_until 10 '[[ $(xdotool getactivewindow) != "$window" ]]'
  type_text "$scratch/Interview.vtt"
  key Return
  sleep 2
  key ctrl+shift+f ctrl+Home Down Down Down Down Down Down alt+Return
  sleep 4
  import -window root -crop 734x566+48+48 +repage "$scratch/follow.png"
  kill -KILL "$program"
  convert "$scratch/follow.png" -fill '#8a94a3' -draw 'color 500,100 floodfill' "$docs/follow.png"
}

# The waveform with a bookmark, on the white and on the dark page.
waveform() {
  local dark shown=()
  for dark in 0 1; do
    lay_folder
    printf '00:00:04  Who he is%15s00:00:04\r\n00:00:08  First question%15s00:00:08\r\n' '' '' \
      >"$folder/Bookmarks/Interview.mp3.bm"
    printf 'SoundWindow=750 9750 11100 2900\r\nSoundWindowShown=1\r\nDarkPage=%d\r\n' $dark >"$folder/Files/Options.ini"
    start_program "$folder/Samples/Interview.mp3"
    xdotool mousemove 900 900
    sleep 7
    import -frame -window "$(xdotool search --onlyvisible --name '^Sound$')" "$scratch/sound-$dark.png"
    shown+=("$scratch/sound-$dark.png")
    kill -KILL "$program"
  done
  convert "${shown[@]}" -bordercolor '#8a94a3' -border 6 -append "$docs/sound.png"
}

start_display
start_sound
waveform
[[ ${1-} != sound ]] || exit 0
hands English alt+r
hands Russian alt+Cyrillic_er
convert "$scratch/hands-English.png" "$scratch/hands-Russian.png" +append "$docs/keys-and-pedals.png"
[[ ${1-} != hands ]] || exit 0
delivery English alt+r v v Return
delivery Russian alt+Cyrillic_er Cyrillic_de
convert "$scratch/spelling-English.png" "$scratch/spelling-Russian.png" +append "$docs/spelling.png"
convert "$scratch/delivery-English.png" "$scratch/delivery-Russian.png" +append "$docs/check-before-delivery.png"
[[ ${1-} != delivery ]] || exit 0
draft
[[ ${1-} != draft ]] || exit 0
quiet_line 'Interviewer: Thomas, what does a harbour pilot do?'
versions English 155 'Harbour pilot' 'Interviewer: Thomas, what does a harbour pilot do?' \
  'Reed: I meet the ship out at sea and bring her in.'
versions Russian 250 'Лоцман' 'Ведущий: Томас, чем занимается лоцман?' \
  'Рид: Встречаю судно в море и веду его в порт.'
[[ ${1-} != safety ]] || exit 0
following
[[ ${1-} != follow ]] || exit 0
about English 1 about
about Russian 2 about-russian
[[ ${1-} != about ]] || exit 0
find_windows English
find_windows Russian
convert "$scratch/find-English.png" "$scratch/find-Russian.png" -append "$docs/find.png"
[[ ${1-} != find ]] || exit 0
bookmarks English 180 122 'Add bookmark' 'First question' 'The night off Skagen' 'Why he stayed'
bookmarks Russian 225 122 'Добавить закладку' 'Первый вопрос' 'Ночь у Скагена' 'Почему он остался'
[[ ${1-} != bookmarks ]] || exit 0
transcript English editor 'The Harbour Hour' \
  Interviewer 'Thomas, what does a harbour pilot do?' \
  Reed 'I meet the ship out at sea and bring her in.'
transcript Russian editor-russian 'Портовый час' \
  Ведущий 'Томас, чем занимается лоцман?' \
  Рид 'Встречаю судно в море и веду его в порт.'
[[ ${1-} != editor ]] || exit 0
use_sound_card
play_noise 120
recorder English
recorder Russian
in_states 1
in_states 2
menus Russian 20 95 180 225
menus Hungarian 20 70 120 175
