#!/usr/bin/env bash
# Generates data/Samples/Interview.mp3 from interview.txt.
#
# The recording is in the repository, so the build never runs this script. It is here so that the text can be changed
# and the recording generated again.
#
# Needs: festival festvox-us-slt-hts flite sox ffmpeg
# Both voices derive from the CMU ARCTIC recordings, which may be used freely.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../../data/Samples/Interview.mp3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

rate=44100
loudness=-18  # LUFS, of the finished recording
worklevel=-30  # LUFS between the steps, where sox would otherwise clip
pauses=(0.15 0.45 0.60 0.35 0.65 0.50)  # seconds before each turn, repeated cyclically

# Each sentence is spoken separately: otherwise both voices rush over full stops, and a typist needs the pause.
interviewer() {
  text2wave -eval '(voice_cmu_us_slt_arctic_hts)' -o "$2" <<<"$1"
}
guest() {
  flite -voice rms --setf duration_stretch=1.04 -t "$1" -o "$2"
}

# The studio voice sounds dull and the guest's boomy; more presence for the one and less bass for the other make them
# match.
tone_interviewer=(highpass 80 equalizer 3000 0.8q +6)
tone_guest=(highpass 70 bass -3 150 equalizer 2500 0.8q +2)

loudness_of() {
  ffmpeg -nostdin -hide_banner -nostats -i "$1" -af ebur128 -f null - 2>&1 |
    awk '$1 == "I:" { value = $2 } END { print value }'
}

gain_to() {  # WANTED FILE: prints the gain in dB that brings FILE to that loudness
  awk -v want="$1" -v have="$(loudness_of "$2")" 'BEGIN { print want - have }'
}

speak() {  # SPEAKER TEXT WAV
  local -a sentences parts=()
  local -n tone=tone_$1
  local i
  # shellcheck disable=SC2001 # the replacement needs a group of the pattern
  mapfile -t sentences < <(sed 's/\([.?!]\) /\1\n/g' <<<"$2")
  for i in "${!sentences[@]}"; do
    "$1" "${sentences[i]}" "$work/raw.wav"
    # Trims silence at both ends, then adds a fixed pause after all sentences except the last.
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

# The limiter catches plosives and loud vowels; -1.5 dB leaves headroom for the encoder.
mkdir -p "$(dirname "$out")"
ffmpeg -nostdin -hide_banner -loglevel error -y -i "$work/all.wav" \
  -af "volume=$(gain_to $loudness "$work/all.wav")dB,alimiter=limit=0.84:level=false" \
  -ar $rate -ac 1 -c:a libmp3lame -q:a 5 -write_xing 1 -map_metadata -1 \
  -metadata title="The Harbour Hour" -metadata artist="Quillmere sample" \
  -id3v2_version 3 "$out"

ffprobe -hide_banner -loglevel error -show_entries format=duration,size,bit_rate -of default=nw=1 "$out"
echo "loudness=$(loudness_of "$out")"
