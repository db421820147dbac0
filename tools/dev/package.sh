#!/usr/bin/env bash
# shellcheck disable=SC2154
# Packages the release that ./run has built: build/package/quillmere-VERSION-ARCH.tar.gz, the portable folder, and
# build/package/quillmere_VERSION_ARCH.deb, which installs it under /opt/quillmere.
set -euo pipefail
source "$(dirname "$0")/common.sh"

release=$root/build/release
out=$root/build/package
from=$root/packaging
version=$(sed -n 's/^project(quillmere VERSION \([0-9.]*\) .*/\1/p' "$root/CMakeLists.txt")
arch=$(dpkg --print-architecture)
date=$(git -C "$root" log -1 --format=%cs 2>/dev/null || date +%F)

# The folder as it is shipped, not build/quillmere: somebody may have worked in that one.
lay_portable() {  # FOLDER
  local module
  mkdir -p "$1/Modules"
  cp -r "$root/data/." "$1/"
  cp "$root"/build/quillmere/Files/Lang/*.qm "$1/Files/Lang/"
  "$release/tools/render_art/render_art" "$root/art" "$1/Files"
  install -s -m 755 "$root/build/quillmere/quillmere" "$1/quillmere"
  for module in "$root"/build/quillmere/Modules/*.so; do
    install -s -m 644 "$module" "$1/Modules/"
  done
  # Not what this user's mask says, but readable by all.
  chmod -R u=rwX,go=rX "$1"
}

# The libraries that the programs link, each with the package that holds it.
library_packages() {  # FOLDER
  local name path package
  for path in "$1/quillmere" "$1"/Modules/*.so; do
    objdump -p "$path" | sed -n 's/^ *NEEDED *//p'
  done | sort -u | while read -r name; do
    path=$(ldconfig -p | sed -n "s/^[[:space:]]*${name//./\\.} (.*=> //p" | head -n 1)
    package=$(dpkg-query -S "$path" 2>/dev/null || dpkg-query -S "/usr$path" 2>/dev/null ||
      dpkg-query -S "$(readlink -f "$path")") || die "no package holds $name"
    echo "$name ${package%%:*}"
  done
}

# The packages that the programs depend on, with the oldest version of each that has all their symbols.
dependencies() {  # FOLDER
  local work=$out/debian-work
  mkdir -p "$work/debian"
  printf 'Source: quillmere\n\nPackage: quillmere\nArchitecture: %s\n' "$arch" >"$work/debian/control"
  (cd "$work" && dpkg-shlibdeps -O "$1/quillmere" "$1"/Modules/*.so) | sed -n 's/^shlibs:Depends=//p'
}

# A text of the packages, with version and date filled in.
filled() {  # FILE
  sed "s/@VERSION@/$version/; s/@DATE@/$date/" "$from/$1"
}

make_tarball() {
  local name=quillmere-$version-$arch folder
  folder=$out/$name
  lay_portable "$folder"
  library_packages "$folder" >"$folder/libraries.txt"
  install -m 755 "$from/run" "$folder/run"
  tar -C "$out" --owner=0 --group=0 --sort=name -czf "$out/$name.tar.gz" "$name"
}

make_deb() {
  local tree=$out/root side icons=$out/icons shared=$out/root/usr/share
  lay_portable "$tree/opt/quillmere"
  install -m 755 "$from/start" "$tree/opt/quillmere/start"
  # Each user's copy is renewed when this changes.
  (cd "$tree/opt/quillmere" && find . -type f -print0 | sort -z | xargs -0 sha256sum | sha256sum | cut -c1-16) \
    >"$out/version"
  mv "$out/version" "$tree/opt/quillmere/version"
  mkdir -p "$tree/usr/bin" "$shared"/{applications,metainfo,man/man1,doc/quillmere,icons/hicolor/scalable/apps}
  ln -s /opt/quillmere/start "$tree/usr/bin/quillmere"
  cp "$from"/*.desktop "$shared/applications/"
  filled quillmere.metainfo.xml >"$shared/metainfo/quillmere.metainfo.xml"
  filled quillmere.1 | gzip -9n >"$shared/man/man1/quillmere.1.gz"
  cp "$from/copyright" "$shared/doc/quillmere/"
  mkdir -p "$tree/usr/lib/udev/rules.d"
  cp "$root/data/Files/70-quillmere-pedals.rules" "$tree/usr/lib/udev/rules.d/"
  cp "$root/art/quillmere.svg" "$shared/icons/hicolor/scalable/apps/"
  mkdir -p "$icons"
  cp "$from/icons.txt" "$icons/manifest.txt"
  sed -i "s,\.\./art,$root/art," "$icons/manifest.txt"
  "$release/tools/render_art/render_art" "$icons" "$icons"
  for side in 16 24 32 48 64 128 256 512; do
    mkdir -p "$shared/icons/hicolor/${side}x$side/apps"
    [[ -f $icons/$side.png ]] || cp "$icons/$((side / 2))@2x.png" "$icons/$side.png"
    cp "$icons/$side.png" "$shared/icons/hicolor/${side}x$side/apps/quillmere.png"
  done
  chmod -R u=rwX,go=rX "$tree"
  desktop-file-validate "$shared"/applications/*.desktop
  appstreamcli validate --no-net "$shared/metainfo/quillmere.metainfo.xml" >"$out/appstream.log" ||
    { cat "$out/appstream.log" >&2; die "the description for software centres is not in order"; }
  export PACKAGE_VERSION=$version PACKAGE_ROOT=$tree PACKAGE_OUT=$out
  PACKAGE_DEPENDS=$(dependencies "$tree/opt/quillmere") timeout 300 cpack --config "$from/cpack.cmake" >"$out/cpack.log" ||
    { tail -n 20 "$out/cpack.log" >&2; die "CPack failed"; }
}

require_packages packages.run packages.package
rm -rf "$out"
mkdir -p "$out"
make_tarball
make_deb
ls -sh "$out"/*.tar.gz "$out"/*.deb
