#!/usr/bin/env bash
# shellcheck disable=SC2016,SC2154
# Tries the packages that ./run --package made on a bare Debian 12: the portable folder names the packages that it lacks
# and runs; the Debian package installs, runs for a user, is upgraded with the settings kept, and is removed.
#
#   tools/dev/package_trial.sh [FOLDER]    as root; FOLDER is cleanroom in the temporary folder if not given
#
# FOLDER holds the logs and a picture of each run afterwards.
set -euo pipefail
source "$(dirname "$0")/common.sh"
source "$dev/bare_debian.sh"
begin_room "$@"
out=$root/build/package
deb=$(echo "$out"/quillmere_*.deb)
tarball=$(echo "$out"/quillmere-*.tar.gz)
[[ -f $deb && -f $tarball ]] || die "run ./run --package first"

step() {
  echo "- $*"
}

expect() {  # WHAT COMMAND...
  "${@:2}" || die "$1: failed: ${*:2}"
}

as_user() {  # COMMAND...: as a user of the room who is not root
  in_room setpriv --reuid typist --regid typist --clear-groups env HOME=/home/typist LC_ALL=C.UTF-8 "$@"
}

# Starts the command on a display in the room and closes it by Ctrl+Q; PICTURE, of the screen before that, is written
# to $where.
drive() {  # PICTURE COMMAND...
  as_user bash -c '
    set -euo pipefail
    export PORTABLE_DIR=/nowhere root=/trial dev=/trial/tools/dev
    source /trial/tools/dev/common.sh
    trap stop_companions EXIT
    start_display
    picture=$1
    shift
    launch "$@" >/tmp/program.log 2>&1 || { cat /tmp/program.log; die "no window appeared"; }
    sleep 3
    import -window root "/tmp/$picture"
    close_program || die "code $? at the exit"
  ' - "$@" || die "driving $2 failed"
  cp "$room/tmp/$1" "$where/"
}

# What is installed, less the caches and logs of the package manager: name, kind, size.
files_of_room() {
  in_room find / -xdev \( -path /proc -o -path /tmp -o -path /var/cache -o -path /var/log -o -path /var/lib/apt \
    -o -path /var/lib/dpkg -o -path /home -o -path /trial \) -prune -o -printf '%p %y %s\n' | sort
}

hash_of_program() {
  in_room bash -c 'find /opt/quillmere -printf "%p %y %m %s %T@\n" | sort | sha256sum'
}

lay_bare_debian
in_room useradd --create-home typist
mkdir -p "$room/trial/tools"
cp -r "$dev" "$room/trial/tools/dev"
cp "$tarball" "$deb" "$room/trial/"
chmod -R a+rX "$room/trial"

step "the portable folder on a system without its libraries"
in_room tar -C /home/typist -xf "/trial/$(basename "$tarball")" --no-same-owner
in_room chown -R typist: /home/typist
folder=/home/typist/$(basename "$tarball" .tar.gz)
if as_user "$folder/run" >"$where/missing.log" 2>&1; then
  die "it ran without its libraries"
fi
sed -n '$p' "$where/missing.log"
packages=$(sed -n 's/^On Debian: apt-get install //p' "$where/missing.log")
[[ $packages ]] || die "it did not name its packages"
in_room apt-get update -q >"$where/apt.log" 2>&1
# shellcheck disable=SC2046,SC2086
in_room env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $packages \
  $(sed 's/ *#.*//; /^$/d' "$dev/packages.display") xkb-data x11-xkb-utils x11-utils >>"$where/apt.log" 2>&1 ||
  die "the packages it named could not be installed, see $where/apt.log"
step "and with them"
drive portable.png "$folder/run" "$folder/Samples/Interview.mp3"
expect "the recent recording" grep -q Interview "$room$folder/Files/LastFiles.ini"
step "moved elsewhere"
in_room mv "$folder" "/home/typist/a folder, moved"
drive moved.png "/home/typist/a folder, moved/run"

step "the Debian package"
files_of_room >"$where/before.txt"
in_room env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "/trial/$(basename "$deb")" \
  >"$where/install.log" 2>&1 || die "it could not be installed, see $where/install.log"
installed=$(hash_of_program)
mine=/home/typist/.local/share/quillmere
drive installed.png quillmere /opt/quillmere/Samples/Interview.mp3
expect "the user's settings" test -f "$room$mine/Files/Quillmere.ini"
expect "the recent recording" grep -q Interview "$room$mine/Files/LastFiles.ini"
[[ $(stat -c %a "$room$mine") == 700 ]] || die "the user's folder is open to others"
printf '{\\rtf1 A transcript from elsewhere}' >"$room/home/typist/letter.rtf"
drive document.png quillmere --document /home/typist/letter.rtf
expect "the recent document" grep -q letter.rtf "$room$mine/Files/LastFilesEditor.ini"
[[ $(hash_of_program) == "$installed" ]] || die "the installed program was written"

step "upgraded"
cp "$room$mine/Files/Quillmere.ini" "$where/settings-before.ini"
in_room bash -c 'set -e; cd /tmp; dpkg-deb -R "$1" newer
  sed -i "s/^Version: .*/&.1/" newer/DEBIAN/control
  echo newer >newer/opt/quillmere/version; echo "A newer file" >newer/opt/quillmere/Files/newer.txt
  rm newer/opt/quillmere/Samples/Interview.mp3
  (cd newer; find opt usr -type f -exec md5sum {} + >DEBIAN/md5sums)
  dpkg-deb -b newer newer.deb >/dev/null; dpkg -i newer.deb' - "/trial/$(basename "$deb")" >"$where/upgrade.log" 2>&1 ||
  die "the upgrade failed, see $where/upgrade.log"
drive upgraded.png quillmere
expect "the settings" cmp "$room$mine/Files/Quillmere.ini" "$where/settings-before.ini"
expect "what the newer version brought" test -L "$room$mine/Files/newer.txt"
expect "the file that it no longer has" test ! -L "$room$mine/Samples/Interview.mp3"
expect "the recent document" grep -q letter.rtf "$room$mine/Files/LastFilesEditor.ini"

step "removed"
in_room dpkg --purge quillmere >"$where/removal.log" 2>&1
files_of_room >"$where/after.txt"
traces=$(comm -13 "$where/before.txt" "$where/after.txt" | grep -i quillmere || true)
[[ ! $traces ]] || die "left behind: $traces"
expect "the user's data" test -f "$room$mine/Files/Quillmere.ini"
echo "All held. Pictures and logs: $where"
