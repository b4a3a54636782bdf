#!/usr/bin/env bash
# Renders the pictures of data/pictures from their vector sources.
# Needs rsvg-convert (package librsvg2-bin), convert (package imagemagick)
# and the font Liberation Sans (package fonts-liberation).
set -euo pipefail
export LC_ALL=C

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
cd "$here/../data/pictures"

missing() {
  echo "render_pictures.sh: missing package: $1" >&2
  exit 1
}

command -v rsvg-convert >/dev/null || missing librsvg2-bin

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# The first convert that can really write JPEG.
convert=""
for candidate in convert /usr/bin/convert magick; do
  command -v "$candidate" >/dev/null || continue
  "$candidate" xc:white "jpg:$work/probe.jpg" >/dev/null 2>&1 || continue
  if [ "$(od -An -tx1 -N2 "$work/probe.jpg" | tr -d ' ')" = ffd8 ]; then
    convert="$candidate"
    break
  fi
done
[ -n "$convert" ] || missing imagemagick

if command -v fc-match >/dev/null; then
  case "$(fc-match -f '%{family}' 'Liberation Sans')" in
    "Liberation Sans"*) ;;
    *) missing fonts-liberation ;;
  esac
fi

# png SOURCE RESULT WIDTH HEIGHT
png() {
  rsvg-convert --width "$3" --height "$4" --format png --output "$work/out.png" "$1"
  # -strip and the excluded chunks keep dates out: the same source gives the same file.
  "$convert" "$work/out.png" -strip -define png:exclude-chunks=date,time "PNG32:$2"
  echo "$2 ${3}x${4}"
}

# background WIDTH HEIGHT: the source is laid out anew at that size, not stretched.
background() {
  local result="logo${1}x${2}.jpg"
  sed "s/width=\"1280\" height=\"768\"/width=\"$1\" height=\"$2\"/" background.svg > "$work/background.svg"
  rsvg-convert --format png --output "$work/background.png" "$work/background.svg"
  "$convert" "$work/background.png" -background white -flatten -strip \
    -sampling-factor 4:4:4 -quality 92 "$result"
  echo "$result ${1}x${2}"
}

background 800 600
background 1024 768
background 1280 768

png splash.svg splash.png 960 600
png about.svg about.png 320 320
png arrow.svg arrow.png 96 32

# The small icons have sources of their own, drawn on whole pixels.
for size in 16 24 32; do
  png "icon_$size.svg" "icon_$size.png" "$size" "$size"
done
for size in 48 64 128 256; do
  png icon.svg "icon_$size.png" "$size" "$size"
done

for name in start pause reset bell close wait copy hide tip back forward home find zoom_in zoom_out print; do
  png "$name.svg" "$name.png" 48 48
done
