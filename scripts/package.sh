#!/usr/bin/env bash
# Makes build/package/stoikal_VERSION_ARCH.deb from the optimised program, and has
# it checked by lintian.
set -euo pipefail
cd "$(dirname "$0")/.."
version=$(sed -nE 's/^project\(stoikal VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
architecture=$(dpkg --print-architecture)
# Who publishes the package says so; one made for the own school needs no address.
maintainer="${DEBFULLNAME:-The authors of Stoikal} <${DEBEMAIL:-stoikal@localhost}>"
unchecked=initial-upload-closes-no-bugs
[ -n "${DEBEMAIL:-}" ] || unchecked+=,bogus-mail-host,bogus-mail-host-in-debian-changelog
out=build/package
root=$out/root
rm -rf "$out"
mkdir -p "$root/DEBIAN" "$root/usr/share/doc/stoikal"

DESTDIR="$PWD/$root" cmake --install build/release --prefix /usr --strip >/dev/null
gzip -9n "$root/usr/share/man/man1/stoikal.1"
install -m 644 packaging/copyright "$root/usr/share/doc/stoikal/copyright"
sed "s/The authors of Stoikal <stoikal@localhost>/$maintainer/" packaging/changelog | gzip -9nc >"$root/usr/share/doc/stoikal/changelog.gz"
install -m 755 packaging/postinst packaging/postrm "$root/DEBIAN"
find "$root/usr" -type d -exec chmod 755 {} +
find "$root/usr/share" -type f -exec chmod 644 {} +

# The libraries that the program names, as packages; the rest it loads by itself.
mkdir -p "$out/debian"
printf 'Source: stoikal\n\nPackage: stoikal\nArchitecture: any\n' >"$out/debian/control"
libraries=$(cd "$out" && dpkg-shlibdeps -O root/usr/bin/stoikal 2>/dev/null | sed -n 's/^shlibs:Depends=//p')
size=$(du -sk --exclude=DEBIAN "$root" | cut -f 1)
cat >"$root/DEBIAN/control" <<TXT
Package: stoikal
Version: $version
Architecture: $architecture
Maintainer: $maintainer
Installed-Size: $size
Depends: $libraries, adduser, qt6-qpa-plugins, qt6-translations-l10n, fonts-liberation, fonts-dejavu-core
Recommends: galculator | kcalc | gnome-calculator, xdg-utils
Section: education
Priority: optional
Description: chemistry exercises for secondary schools
 A pupil opens a file of chemical equations, balances them while coloured
 discs follow each digit, and leaves with a mark out of 20. Reactions are
 studied by their table of progress, histograms and curves. A teacher writes
 the files in an editor and reads the results. All texts are in French.
TXT
(cd "$root" && find usr -type f -print0 | sort -z | xargs -0 md5sum) >"$root/DEBIAN/md5sums"
package=$out/stoikal_${version}_$architecture.deb
dpkg-deb --root-owner-group --build "$root" "$package" >/dev/null
echo "$package ($(du -k "$package" | cut -f 1) kB)"
[ "$(id -u)" -ne 0 ] || root_word=--allow-root
lintian ${root_word:-} --fail-on error --suppress-tags "$unchecked" "$package"
