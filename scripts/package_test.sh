#!/usr/bin/env bash
# Installs the package in a bare Debian 12 of its own, starts the program there as
# two users in their homes and then together in the shared folders, takes it away again
# and looks at what is left. Needs root.
set -euo pipefail
cd "$(dirname "$0")/.."
[ "$(id -u)" -eq 0 ] || { echo "package_test.sh: il faut être root (debootstrap, chroot)." >&2; exit 2; }
command -v debootstrap >/dev/null || apt-get install -y -qq debootstrap >/dev/null
package=$(ls build/package/stoikal_*.deb)
root=${1:-$(mktemp -d /tmp/stoikal-bare-XXXXXX)}
mirror=$(sed -nE 's/^(URIs:|deb) *(http[^ ]+debian) *.*/\2/p' /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null | head -n 1 || true)

inside() { chroot "$root" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@"; }
listing() { inside find / -xdev \( -path /proc -o -path /sys -o -path /tmp -o -path /var/lib/dpkg -o -path /var/lib/apt -o -path /var/log -o -path /var/cache \) -prune -o -print | sort; }
leave() { umount "$root/proc" 2>/dev/null || true; }
trap leave EXIT

echo "== A bare system"
[ -x "$root/bin/sh" ] || debootstrap --variant=minbase bookworm "$root" ${mirror:+"$mirror"} >/dev/null
# Its users must be let in.
chmod 755 "$root"
mount -t proc proc "$root/proc" 2>/dev/null || true
for user in anna bruno; do inside useradd -m "$user" 2>/dev/null || true; done
inside apt-get update -qq

echo "== Its libraries, then the package"
cp "$package" "$root/tmp/stoikal.deb"
depends=$(dpkg-deb -f "$package" Depends | sed -E 's/ \([^)]*\)//g; s/,//g')
# shellcheck disable=SC2086
inside apt-get install -y -qq --no-install-recommends $depends >/dev/null
listing >"$root/tmp/before"
inside apt-get install -y -qq --no-install-recommends /tmp/stoikal.deb >/dev/null

fail() { echo "FAIL  $*"; exit 1; }
# The program runs until it is told to go: still there after five seconds is well.
start_as() {
  local code=0
  inside su "$1" -c 'cd; QT_QPA_PLATFORM=offscreen timeout 5 stoikal' || code=$?
  [ "$code" -eq 124 ] || fail "$1: the program ended with $code"
}
settings=/var/lib/Tovik_MARLEN/Stoikal
documents=/srv/documents/Tovik_MARLEN/Stoikal

echo "== The shared folders"
for folder in "$settings" "$documents"; do
  [ "$(inside stat -c '%a %U %G' "$folder")" = "3770 root stoikal" ] || fail "$folder: $(inside stat -c '%a %U %G' "$folder")"
done
[ "$(inside stat -c '%a %U' "$documents/Serie.Equ")" = "644 root" ] || fail "the shipped exercises are not the superuser's"

echo "== A start as two users, each at home"
for user in anna bruno; do
  start_as "$user"
  inside test -f "/home/$user/Documents/Tovik_MARLEN/Stoikal/Serie.Equ" || { echo "FAIL  $user: no exercises"; exit 1; }
  inside test "$(inside stat -c %U "/home/$user/Documents/Tovik_MARLEN/Stoikal")" = "$user"
done

echo "== A start as two users of the group"
for user in anna bruno; do
  inside adduser --quiet "$user" stoikal
  start_as "$user"
  [ "$(inside stat -c '%a %U' "$settings/ConfEQU_$user.ini")" = "600 $user" ] || fail "$user: settings that others may read"
done
[ "$(inside stat -c '%a %U %G' "$documents/Resultat.txt")" = "664 anna stoikal" ] || fail "the results: $(inside stat -c '%a %U %G' "$documents/Resultat.txt")"
inside su bruno -c "echo ligne >>$documents/Resultat.txt" || fail "the second user cannot write into the results"
for file in "$settings/ConfEQU_anna.ini" "$documents/Resultat.txt" "$documents/Serie.Equ"; do
  inside su bruno -c "rm -f $file 2>/dev/null || mv -f $file $file.pris 2>/dev/null" && fail "bruno takes $file away"
done
inside su bruno -c "cat $settings/ConfEQU_anna.ini >/dev/null 2>&1" && fail "bruno reads anna's settings"

echo "== Installed again, then taken away"
inside apt-get install -y -qq --reinstall /tmp/stoikal.deb >/dev/null
inside apt-get purge -y -qq stoikal >/dev/null
inside test -f "$documents/Resultat.txt" || fail "the results of the users are gone"
inside test -f "$settings/ConfEQU_anna.ini" || fail "the settings of the users are gone"
inside test ! -e "$documents/Serie.Equ" || fail "a shipped exercise is left behind"
inside rm -rf /srv/documents /var/lib/Tovik_MARLEN
inside rm -rf /home/anna/Documents /home/bruno/Documents /home/anna/.local /home/bruno/.local /home/anna/.cache /home/bruno/.cache
listing >"$root/tmp/after"
if ! diff "$root/tmp/before" "$root/tmp/after"; then
  echo "FAIL  files are left behind"
  exit 1
fi
echo "OK    installed, run by two users, and gone without a trace"
