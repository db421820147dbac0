#!/usr/bin/env bash
# Generates data/Samples/Interview.mp3 from interview.txt, and words.tsv: when each word is spoken, in ms.
#
# The recording is in the repository, so the build never runs this script. It is here so that the text can be changed
# and the recording generated again.
#
# Needs: festival festvox-us-slt-hts flite flite1-dev gcc sox ffmpeg
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
# The words of a sentence, each behind the time at which the voice begins it, in seconds.
words_of_interviewer() {
  festival -b "(begin (voice_cmu_us_slt_arctic_hts) (set! said (utt.synth (Utterance Text \"$1\")))
    (mapcar (lambda (word) (format t \"%f %s\\n\" (item.feat word \"word_start\") (item.name word)))
      (utt.relation.items said 'Word)))"
}
words_of_guest() {
  "$work/flite_words" "$1"
}

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
    sox "$work/raw.wav" "$work/front.wav" silence 1 0.01 0.15%
    sox "$work/raw.wav" -r $rate -c 1 -b 32 -e float "$work/trimmed.wav" \
      silence 1 0.01 0.15% reverse silence 1 0.01 0.15% reverse
    sox "$work/trimmed.wav" "$work/part$i.wav" gain -9 "${tone[@]}" fade 0.02 -0 0.02 \
      pad 0 "$( ((i < ${#sentences[@]} - 1)) && echo 0.32 || echo 0)"
    parts+=("$work/part$i.wav")
    write_words "$1" "${sentences[i]}"
    at=$(awk -v at="$at" -v length_="$(soxi -D "$work/part$i.wav")" 'BEGIN { print at + length_ }')
  done
  sox "${parts[@]}" "$3"
}

# The voices speak a word with a hyphen as two.
write_words() {  # SPEAKER SENTENCE: which begins at $at, behind the silence that was cut from raw.wav
  local cut
  cut=$(awk -v raw="$(soxi -D "$work/raw.wav")" -v front="$(soxi -D "$work/front.wav")" 'BEGIN { print raw - front }')
  "words_of_$1" "$2" | awk -v at="$at" -v cut="$cut" -v voice="$1" -v text="$2" '
    { start[NR] = $1 }
    END {
      count = split(text, words, " ")
      for (i = next_ = 1; i <= count; i++) {
        printf "%d\t%s\n", (at + start[next_] - cut) * 1000 + 0.5, words[i]
        next_ += voice == "interviewer" ? split(words[i], halves, "-") : 1
      }
    }' >>"$work/words.tsv"
}

gcc -o "$work/flite_words" "$here/flite_words.c" -lflite_cmu_us_rms -lflite_usenglish -lflite_cmulex -lflite -lm
at=0  # seconds of what has been spoken
turns=()
while IFS=: read -r speaker text; do
  n=${#turns[@]}
  name=$(printf '%s/turn%02d' "$work" "$n")
  at=$(awk -v at="$at" -v pause="${pauses[n % ${#pauses[@]}]}" 'BEGIN { print at + pause }')
  speak "${speaker,,}" "${text# }" "$name.raw.wav"
  sox "$name.raw.wav" "$name.wav" gain "$(gain_to $worklevel "$name.raw.wav")" \
    pad "${pauses[n % ${#pauses[@]}]}" 0
  turns+=("$name.wav")
done <"$here/interview.txt"

sox "${turns[@]}" "$work/all.wav" pad 0 0.5

words=$here/words.tsv
(($# == 0)) || words=$(dirname "$out")/words.tsv
cp "$work/words.tsv" "$words"
# The limiter catches plosives and loud vowels; -1.5 dB leaves headroom for the encoder.
mkdir -p "$(dirname "$out")"
ffmpeg -nostdin -hide_banner -loglevel error -y -i "$work/all.wav" \
  -af "volume=$(gain_to $loudness "$work/all.wav")dB,alimiter=limit=0.84:level=false" \
  -ar $rate -ac 1 -c:a libmp3lame -q:a 5 -write_xing 1 -map_metadata -1 \
  -metadata title="The Harbour Hour" -metadata artist="Quillmere sample" \
  -id3v2_version 3 "$out"

ffprobe -hide_banner -loglevel error -show_entries format=duration,size,bit_rate -of default=nw=1 "$out"
echo "loudness=$(loudness_of "$out")"
