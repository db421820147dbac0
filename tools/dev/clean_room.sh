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

((EUID == 0)) || die "only root can change into another root folder"
command -v debootstrap >/dev/null || die "install first: debootstrap"
# In its own namespaces: mounts and stray processes disappear with it.
if [[ ! ${IN_CLEAN_ROOM-} ]]; then
  IN_CLEAN_ROOM=yes exec unshare --mount --pid --fork --kill-child "$0" "$@"
fi

where=${1:-${TMPDIR:-/tmp}/cleanroom}
where=$(mkdir -p "$where" && cd "$where" && pwd)
room=$where/room

if [[ ! -f $where/base.tar ]]; then
  echo "Fetching a bare Debian 12; log: $where/base.log"
  # The same mirror as this machine.
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Release: bookworm' | sed -n 1p)
  [[ $mirror ]] || die "this machine's apt knows no mirror for bookworm"
  rm -rf "$where/base"
  debootstrap --variant=minbase bookworm "$where/base" "$mirror" >"$where/base.log" 2>&1 ||
    die "debootstrap failed, see $where/base.log"
  tar -C "$where/base" -cf "$where/base.tar.part" . && mv "$where/base.tar.part" "$where/base.tar"
  rm -rf "$where/base"
fi

rm -rf "$room"
mkdir -p "$room"
tar -C "$room" -xf "$where/base.tar"

# Apt set up as on this machine: sources, keys, proxy, host names.
rm -f "$room"/etc/apt/sources.list
for path in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources} /etc/apt/{keyrings,trusted.gpg,trusted.gpg.d} \
  /usr/share/keyrings /etc/resolv.conf /etc/hosts; do
  [[ ! -e $path ]] || cp -rL --parents "$path" "$room"
done
apt-config dump Acquire >"$room/etc/apt/apt.conf.d/90machine"
# Prevents services from starting.
printf '#!/bin/sh\nexit 101\n' >"$room/usr/sbin/policy-rc.d"
chmod +x "$room/usr/sbin/policy-rc.d"

mount -t proc proc "$room/proc"
mount --bind /dev/pts "$room/dev/pts"

git clone -q --no-hardlinks "$root" "$room/root/quillmere"
echo "Trial of $(git -C "$room/root/quillmere" log -1 --format='%h %s')"

trial() {  # LOG COMMAND...
  local log=$where/$1 start=${EPOCHREALTIME/[.,]/} code=0
  shift
  # shellcheck disable=SC2154
  chroot "$room" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    ${http_proxy+http_proxy="$http_proxy"} ${https_proxy+https_proxy="$https_proxy"} \
    bash -c 'cd /root/quillmere && exec "$@"' - "$@" </dev/null >"$log" 2>&1 || code=$?
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
