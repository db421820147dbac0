#!/usr/bin/env bash
# Ended by SIGTERM or with its display, and killed while the disk is full or read-only: nothing is lost.
set -euo pipefail
for mode in term display full readonly; do
  code=0
  "$(dirname "$0")/../../tools/dev/kill_loop.sh" -m "$mode" 3 || code=$?
  ((code == 0 || code == 77)) || exit "$code" # 77: file systems cannot be mounted here
done
