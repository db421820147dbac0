#!/usr/bin/env bash
# Regenerates the pictures in the guides data/Files/Help-*.html, each in its language, from the program last built by
# ./run.
export PORTABLE_DIR=${PORTABLE_DIR:-$(dirname "$0")/../../build/quillmere}
source "$(dirname "$0")/driver.sh"

declare -A language=([en]=English [it]=Italiano [ru]=Russian [pl]=Polish)
declare -A words=(
  [en]="Interview with the harbour pilot|Question|How long have you been guiding ships into this harbour?|Answer|Twenty-two years this autumn. My father did it before me, and he had no radar.|What has changed the most?"
  [it]="Intervista al pilota del porto|Domanda|Da quanto tempo guida le navi in questo porto?|Risposta|Ventidue anni quest'autunno. Mio padre lo faceva prima di me, e non aveva il radar.|Che cosa è cambiato di più?"
  [ru]="Беседа с лоцманом порта|Вопрос|Давно ли вы проводите суда в эту гавань?|Ответ|Этой осенью будет двадцать два года. До меня это делал отец, и радара у него не было.|Что изменилось сильнее всего?"
  [pl]="Rozmowa z pilotem portowym|Pytanie|Od jak dawna wprowadza pan statki do tego portu?|Odpowiedź|Tej jesieni minie dwadzieścia dwa lata. Przede mną robił to ojciec, a nie miał radaru.|Co zmieniło się najbardziej?"
)
declare -A marks=(
  [en]="First question|About his father|The storm" [it]="Prima domanda|Del padre|La burrasca"
  [ru]="Первый вопрос|Об отце|Шторм" [pl]="Pierwsze pytanie|O ojcu|Sztorm"
)

transcript() {  # CODE: prints the text as RTF
  local title question asked answer told next
  IFS='|' read -r title question asked answer told next <<<"${words[$1]}"
  printf '{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs32\\b %s\\b0\\fs24\\par\\par [00:00:04] \\b %s:\\b0  %s\\par [00:00:11] \\b %s:\\b0  %s\\par [00:00:19] \\b %s:\\b0  %s\\par}' \
    "$title" "$question" "$asked" "$answer" "$told" "$question" "$next" |
    perl -CSD -pe 's/([^\x00-\x7f])/"\\u" . ord($1) . "?"/ge'
}

together() {  # NAME WINDOW...: takes a picture of the area that these windows cover, with their frames
  local name=$1 left=9999 top=9999 right=0 bottom=0 x y width height west east north south
  shift
  for window; do
    read -r x y width height < <(xwininfo -id "$window" |
      sed -n 's/^ *\(Absolute upper-left [XY]\|Width\|Height\): *//p' | paste -sd' ')
    IFS=', ' read -r west east north south < <(xprop -id "$window" _NET_FRAME_EXTENTS | sed 's/.*= //')
    ((left = x - west < left ? x - west : left, top = y - north < top ? y - north : top))
    ((right = x + width + east > right ? x + width + east : right))
    ((bottom = y + height + south > bottom ? y + height + south : bottom))
  done
  ((width = right - left, height = bottom - top))
  import -window root -crop "${width}x$height+$left+$top" +repage "$scratch/raw.png"
  # The empty display beside and between the windows is black.
  local fill=() place
  for place in "$((width - 1)),0" "0,$((height - 1))" "$((width / 2)),$((height - 1))" "$((x - west - left - 4)),$((height / 2))"; do
    [[ $(convert "$scratch/raw.png" -format "%[pixel:p{$place}]" info: 2>/dev/null) != *"(0,0,0)"* ]] ||
      fill+=(-draw "color $place floodfill")
  done
  convert "$scratch/raw.png" -fill '#eef4f5' "${fill[@]}" -strip -colors 200 "png8:$scratch/$name.png"
  rm "$scratch/raw.png"
}

other_window() {  # finds the newest window other than player and editor
  wait_until 5 'xdotool search --onlyvisible --class quillmere | grep -vxE "$player|$editor" | grep -q .' || return 1
  window=$(xdotool search --onlyvisible --class quillmere | grep -vxE "$player|$editor" | tail -n1)
}

pictures() { # CODE
  local code=$1 time=4 mark editor player
  # A readable path, because the recorder shows it.
  rm -rf /tmp/Quillmere
  lay_folder
  mv "$folder" /tmp/Quillmere
  folder=/tmp/Quillmere
  set_line 1 "${language[$code]}.lng"
  cp "$folder/Samples/Interview.mp3" "$scratch/Harbour pilot.mp3"
  transcript "$code" >"$scratch/Harbour pilot.rtf"
  printf '%s\r\n' "$scratch/Harbour pilot.rtf" >"$folder/Files/LastFilesEditor.ini"
  # Bookmarks open with the recording.
  IFS='|' read -ra mark <<<"${marks[$code]}"
  for name in "${mark[@]}"; do
    printf '00:00:%02d  %s               00:00:%02d\r\n' "$time" "$name" "$time"
    ((time += 9))
  done | { [[ $code == en ]] || printf '\xef\xbb\xbf'; cat; } >"$folder/Bookmarks/Harbour pilot.mp3.bm"
  start_program "$scratch/Harbour pilot.mp3"
  player=$window
  wait_until 5 'xdotool search --onlyvisible --class quillmere | grep -vxq "$player"'
  hover 340 165
  sleep 2
  editor=$(xdotool search --onlyvisible --class quillmere | while read -r each; do
    eval "$(xdotool getwindowgeometry --shell "$each")"
    # shellcheck disable=SC2153 # xdotool's
    if ((WIDTH > 600)); then echo "$each"; fi
  done | head -n1)
  window=$editor
  xdotool windowsize --sync "$editor" 720 380
  xdotool windowactivate --sync "$editor"
  click 20 10
  sleep 0.4
  key Up Up Return
  sleep 0.8
  key ctrl+End
  window=$player
  hover 340 165
  sleep 0.3
  if other_window; then
    together bookmarks "$player" "$window"
    xdotool windowactivate --sync "$editor"
    key F8
    sleep 0.4
  fi
  together editor "$editor"
  window=$player
  together player "$window"
  together both "$player" "$editor"
  window=$player
  xdotool windowactivate --sync "$player"
  press_pen
  sleep 1.5
  hover 340 165
  sleep 0.3
  together smart "$window"
  key F12
  sleep 0.3
  click 245 $((108 + $(skin_top)))
  sleep 0.5
  if other_window; then
    sleep 0.5
    together recorder "$window"
    xdotool windowclose "$window"
    sleep 0.3
  fi
  kill "$program" 2>/dev/null
  wait "$program" 2>/dev/null || true
}

press_pen() { click 287 $((109 + $(skin_top))); }

embed() {  # CODE: puts the new pictures into the guide; one that could not be taken stays unchanged
  PICTURES=$scratch perl -MMIME::Base64 -i -pe '
    s{(<img data-picture="([a-z]+)" src=")[^"]*"([^>]*?)( width="\d+" height="\d+")?>}{
      my ($head, $name, $rest, $size) = ($1, $2, $3, $4 // "");
      my $file = "$ENV{PICTURES}/$name.png";
      if (open my $in, "<:raw", $file) {
        local $/;
        my $bytes = <$in>;
        my ($width, $height) = unpack "NN", substr($bytes, 16, 8);
        qq($head) . "data:image/png;base64," . encode_base64($bytes, "") . qq("$rest width="$width" height="$height">)
      } else { $& }
    }ge' "$root/data/Files/Help-$1.html"
}

start_display
start_sound
for code in "${@:-en it ru pl}"; do
  for each in $code; do
    rm -f "$scratch"/*.png
    pictures "$each"
    embed "$each"
    rm -rf /tmp/Quillmere
  done
done
