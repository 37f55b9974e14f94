#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Renders the drawings in data/ to the pictures that the programs hold; run it after a change of a drawing.
# Needs the Debian packages imagemagick, librsvg2-bin and fonts-dejavu-core.
set -euo pipefail
data="$(cd "$(dirname "${BASH_SOURCE[0]}")/../data" && pwd)"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

rsvg-convert --width 640 --height 400 --output "$data/splash.png" "$data/splash.svg"
for size in 16 32 48 256; do
    rsvg-convert --width $size --height $size --output "$work/$(printf %03d $size).png" "$data/icons/vistrum.svg"
done
convert "$work"/*.png "$data/icons/vistrum.ico"
for drawing in "$data"/icons/buttons/*.svg; do
    rsvg-convert --width 64 --height 64 --output "${drawing%.svg}.png" "$drawing"
done
