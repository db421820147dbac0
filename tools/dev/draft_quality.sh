#!/usr/bin/env bash
# How well the recogniser that comes with Debian serves the sample: the word error rate of its draft, and how far the
# times of the typed interview are from the moments of the synthetic voices.
#
# Usage: tools/dev/draft_quality.sh [BUILD]   (default: build/dev)
set -euo pipefail
source "$(dirname "$0")/common.sh"
require_packages packages.run packages.test

build=${1:-$root/build/dev}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
ffmpeg -nostdin -v error -i "$root/data/Samples/Interview.mp3" -ac 1 -ar 16000 -c:a pcm_s16le "$work/sample.wav"
pocketsphinx_continuous -infile "$work/sample.wav" -time yes >"$work/heard.txt" 2>/dev/null
"$build/tools/time_words/time_words" "$root/tools/sample/interview.txt" "$work/heard.txt" >"$work/timed.tsv"
code=0
python3 "$dev/draft_quality.py" words "$root/tools/sample/interview.txt" "$work/heard.txt" || code=1
python3 "$dev/draft_quality.py" times "$root/tools/sample/words.tsv" "$work/timed.tsv" || code=1
exit $code
