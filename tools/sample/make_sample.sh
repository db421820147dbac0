#!/usr/bin/env bash
# Makes data/Samples/Interview.mp3 from interview.txt.
#
# The recording is kept in the repository, so the build never runs this; it is
# here so that the text can be changed and the recording made anew.
#
# Needs: festival festvox-us-slt-hts flite sox ffmpeg
# Both voices derive from the CMU ARCTIC recordings, which may be used freely.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../../data/Samples/Interview.mp3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

rate=44100
loudness=-18                            # LUFS, of the finished recording
worklevel=-30                           # LUFS between the steps; sox would clip
pauses=(0.15 0.45 0.60 0.35 0.65 0.50)  # before each turn, over and over

# Sentences are spoken one by one: left to themselves both voices rush over a
# full stop, and whoever types along needs the breath.
interviewer() {
  text2wave -eval '(voice_cmu_us_slt_arctic_hts)' -o "$2" <<<"$1"
}
guest() {
  flite -voice rms --setf duration_stretch=1.04 -t "$1" -o "$2"
}

# The studio voice is synthesised dull and the guest's boomy; a little presence
# for the one and less bass for the other brings them into the same room.
tone_interviewer=(highpass 80 equalizer 3000 0.8q +6)
tone_guest=(highpass 70 bass -3 150 equalizer 2500 0.8q +2)

loudness_of() {
  ffmpeg -nostdin -hide_banner -nostats -i "$1" -af ebur128 -f null - 2>&1 |
    awk '$1 == "I:" { value = $2 } END { print value }'
}

gain_to() {  # WANTED FILE: the dB that bring FILE to that loudness
  awk -v want="$1" -v have="$(loudness_of "$2")" 'BEGIN { print want - have }'
}

speak() {  # SPEAKER TEXT WAV
  local -a sentences parts=()
  local -n tone=tone_$1
  local i
  # shellcheck disable=SC2001 # a group of the pattern stays
  mapfile -t sentences < <(sed 's/\([.?!]\) /\1\n/g' <<<"$2")
  for i in "${!sentences[@]}"; do
    "$1" "${sentences[i]}" "$work/raw.wav"
    # Silence off both ends, then a fixed breath after all but the last.
    sox "$work/raw.wav" -r $rate -c 1 -b 32 -e float "$work/trimmed.wav" \
      silence 1 0.01 0.15% reverse silence 1 0.01 0.15% reverse
    sox "$work/trimmed.wav" "$work/part$i.wav" gain -9 "${tone[@]}" fade 0.02 -0 0.02 \
      pad 0 "$( ((i < ${#sentences[@]} - 1)) && echo 0.32 || echo 0)"
    parts+=("$work/part$i.wav")
  done
  sox "${parts[@]}" "$3"
}

turns=()
while IFS=: read -r speaker text; do
  n=${#turns[@]}
  name=$(printf '%s/turn%02d' "$work" "$n")
  speak "${speaker,,}" "${text# }" "$name.raw.wav"
  sox "$name.raw.wav" "$name.wav" gain "$(gain_to $worklevel "$name.raw.wav")" \
    pad "${pauses[n % ${#pauses[@]}]}" 0
  turns+=("$name.wav")
done <"$here/interview.txt"

sox "${turns[@]}" "$work/all.wav" pad 0 0.5

# The limiter catches plosives and loud vowels; -1.5 dB leaves the encoder room.
mkdir -p "$(dirname "$out")"
ffmpeg -nostdin -hide_banner -loglevel error -y -i "$work/all.wav" \
  -af "volume=$(gain_to $loudness "$work/all.wav")dB,alimiter=limit=0.84:level=false" \
  -ar $rate -ac 1 -c:a libmp3lame -q:a 5 -write_xing 1 -map_metadata -1 \
  -metadata title="The Harbour Hour" -metadata artist="Quillmere sample" \
  -id3v2_version 3 "$out"

ffprobe -hide_banner -loglevel error -show_entries format=duration,size,bit_rate -of default=nw=1 "$out"
echo "loudness=$(loudness_of "$out")"
