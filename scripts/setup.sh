#!/usr/bin/env bash
# Installs the packages that are missing; with the word bench, fuzz, valgrind or
# package also those that only that command needs. Asks for sudo only when not root.
set -euo pipefail

build=(g++ cmake ninja-build ccache pkg-config git qt6-base-dev qt6-base-dev-tools libgtest-dev libbenchmark-dev
  libmspack-dev python3 fp-utils)
run=(libqt6gui6 libqt6network6 qt6-translations-l10n qt6-qpa-plugins fonts-liberation fonts-dejavu-core)
check=(clang-format clang-tidy xvfb openbox xdotool imagemagick x11-utils locales gcovr strace
  dbus at-spi2-core python3-pyatspi e2fsprogs mount)
packages=("${build[@]}" "${run[@]}" "${check[@]}")
[ "${1:-}" = bench ] && packages+=(nodejs npm)
[ "${1:-}" = fuzz ] && packages+=(clang libclang-rt-14-dev)
[ "${1:-}" = valgrind ] && packages+=(valgrind)
[ "${1:-}" = package ] && packages+=(dpkg-dev lintian debootstrap)

missing=()
for package in "${packages[@]}"; do
  state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
  [ "$state" = installed ] || missing+=("$package")
done
if [ "${#missing[@]}" -eq 0 ]; then
  exit 0
fi

root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Ces paquets manquent, et sudo aussi : ${missing[*]}" >&2; exit 1; }
  root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
