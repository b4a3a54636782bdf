#!/usr/bin/env bash
# Installs the package in a bare Debian 12 of its own, starts the program there as
# two users, takes it away again and looks at what is left. Needs root.
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

echo "== A start as two users"
for user in anna bruno; do
  # The program runs until it is told to go: still there after five seconds is well.
  code=0
  inside su "$user" -c 'cd; QT_QPA_PLATFORM=offscreen timeout 5 stoikal' || code=$?
  [ "$code" -eq 124 ] || { echo "FAIL  $user: the program ended with $code"; exit 1; }
  inside test -f "/home/$user/Documents/Tovik_MARLEN/Stoikal/Serie.Equ" || { echo "FAIL  $user: no exercises"; exit 1; }
  inside test "$(inside stat -c %U "/home/$user/Documents/Tovik_MARLEN/Stoikal")" = "$user"
done

echo "== Taken away"
inside apt-get purge -y -qq stoikal >/dev/null
inside rm -rf /home/anna/Documents /home/bruno/Documents /home/anna/.local /home/bruno/.local /home/anna/.cache /home/bruno/.cache
listing >"$root/tmp/after"
if ! diff "$root/tmp/before" "$root/tmp/after"; then
  echo "FAIL  files are left behind"
  exit 1
fi
echo "OK    installed, run by two users, and gone without a trace"
