#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2154
# Proves that the checkout needs nothing but Debian 12: installs a minimal Debian in a folder, clones the committed
# state into it, and runs ./run and ./test there.
#
#   tools/dev/clean_room.sh [FOLDER]    as root; FOLDER defaults to cleanroom in the temporary folder
#
# The minimal Debian is cached as FOLDER/base.tar. The logs and the program's picture are saved beside it; the
# installation itself is kept too.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source "$dev/bare_debian.sh"

begin_room "$@"
lay_bare_debian

git clone -q --no-hardlinks "$root" "$room/root/quillmere"
echo "Trial of $(git -C "$room/root/quillmere" log -1 --format='%h %s')"

trial() {  # LOG COMMAND...
  local log=$where/$1 start=${EPOCHREALTIME/[.,]/} code=0
  shift
  in_room bash -c 'cd /root/quillmere && exec "$@"' - "$@" >"$log" 2>&1 || code=$?
  local ms=$(((${EPOCHREALTIME/[.,]/} - start) / 1000))
  printf '%5d.%02d s  exit %d  %-20s %s\n' $((ms / 1000)) $((ms % 1000 / 10)) $code "$*" "$log"
  ((code == 0)) || { tail -n 40 "$log"; die "$* failed"; }
}

trial run.log ./run
cp "$room/root/quillmere/build/quillmere.png" "$where/"
trial run-warm.log ./run --build-only
trial test.log ./test
tail -n 7 "$where/test.log"
trial test-warm.log ./test
stray=$(git -C "$room/root/quillmere" status --porcelain)
[[ ! $stray ]] || die "the checkout is no longer clean: $stray"
