#!/usr/bin/env bash
# Makes the pictures of docs/ anew from the program as it was built last by ./run: the player in its states at once and
# twice the size, and its menus in two languages.
export PORTABLE_DIR=${PORTABLE_DIR:-$(dirname "$0")/../../build/quillmere}
source "$(dirname "$0")/../../tests/e2e/lib.sh"
docs=$root/docs
ffmpeg -v error -f lavfi -i testsrc2=size=640x360:rate=25 -f lavfi -i sine=440 -t 20 -c:v libx264 -c:a aac -pix_fmt yuv420p \
  "$scratch/Harbour film.mp4"

picture() { # NAME: the player's window
  import -window "$window" "$scratch/$1.png"
}

in_states() { # SCALE
  local scale=$1
  export QT_SCALE_FACTOR=$scale
  at() { xdotool mousemove --window "$window" $(($1 * scale)) $((($2 + 19) * scale)); }
  folder=$(lay_folder)
  start_program "$folder"
  at 340 165
  sleep 0.3
  picture rest
  quit_program
  start_program "$folder" "$folder/Samples/Interview.mp3"
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
  start_program "$folder" "$scratch/Harbour film.mp4"
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

menus() { # LANGUAGE X...: the menus opened at these places of the menu bar
  local language=$1 x shown=()
  shift
  folder=$(lay_folder)
  sed -i "1s/.*/$language.lng\r/" "$folder/Files/Quillmere.ini"
  mkdir -p /tmp/Interviews
  cp "$folder/Samples/Interview.mp3" "/tmp/Interviews/Harbour pilot.mp3"
  start_program "$folder" "/tmp/Interviews/Harbour pilot.mp3"
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

# A transcript as somebody types it, beside the player that plays its recording.
transcript() { # LANGUAGE PICTURE TITLE (SPEAKER WORDS)...
  local language=$1 picture=$2 title=$3
  shift 3
  at_button() { click "$1" 37 && sleep 0.15; }
  folder=$(lay_folder)
  sed -i "1s/.*/$language.lng\r/" "$folder/Files/Quillmere.ini"
  start_program "$folder" "$folder/Samples/Interview.mp3"
  wait_until 10 'window=$(xdotool search --onlyvisible --name " - .*1$")'
  xdotool windowactivate --sync "$window"
  at_button 357 # in the middle, bold, two sizes larger
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

start_display
start_sound
transcript English editor 'The Harbour Hour' \
  Interviewer 'Thomas, what does a harbour pilot do?' \
  Reed 'I meet the ship out at sea and bring her in.'
transcript Russian editor-russian 'Портовый час' \
  Ведущий 'Томас, чем занимается лоцман?' \
  Рид 'Встречаю судно в море и веду его в порт.'
[[ ${1-} != editor ]] || exit 0
in_states 1
in_states 2
menus Russian 20 95 180 225
menus Hungarian 20 70 120 175
