# shellcheck shell=bash disable=SC2016,SC2154
# A bare Debian 12 in the folder $room, to try in it what has to work on a fresh machine. Sourcing it starts nothing.

# Runs the calling script again in namespaces of its own: mounts and stray processes disappear with it. Sets $where, the
# script's first argument or a folder for temporary files, and $room in it.
begin_room() {  # ARGUMENTS of the script
  ((EUID == 0)) || die "only root can change into another root folder"
  command -v debootstrap >/dev/null || die "install first: debootstrap"
  [[ ${IN_BARE_DEBIAN-} ]] || IN_BARE_DEBIAN=yes exec unshare --mount --pid --fork --kill-child "$0" "$@"
  where=${1:-${TMPDIR:-/tmp}/cleanroom}
  where=$(mkdir -p "$where" && cd "$where" && pwd)
  room=$where/room
}

# The minimal system is cached as $where/base.tar for the next time.
lay_bare_debian() {
  local mirror path
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
}

in_room() {  # COMMAND...: as root, with the environment of a fresh login
  chroot "$room" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
    ${http_proxy+http_proxy="$http_proxy"} ${https_proxy+https_proxy="$https_proxy"} "$@" </dev/null
}
