#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Lets the tracker client listen to a simulated tracker that behaves badly in every way, at 1000 frames a second.
#   scripts/soak-recording.sh [MINUTES]   (30)
# Needs ./check or a release build before. Fails if a frame is lost or doubled, or if the memory of the client grows by
# more than 1 MB after the first minute.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
minutes="${1:-30}"
build="$root/build/release"
work="$(mktemp -d)"
"$build/tools/tracker-simulator/tracker-simulator" --port 0 --rate 1000 \
    --hostile torn,merged,delayed,wrong-json,unknown-codes,braces,noise,flood >"$work/simulator" &
simulator=$!
trap 'kill $simulator 2>/dev/null || true; rm -rf "$work"' EXIT
until grep -q 'listening on port' "$work/simulator"; do
    kill -0 $simulator
    sleep 0.1
done
port="$(sed -n 's/listening on port //p' "$work/simulator")"

"$build/tests/recording/recording-soak" "$port" $((minutes * 60)) | tee "$work/client"
awk '$1 == 60 { first = $(NF - 1) }
     { last = $(NF - 1) }
     END { print "memory after a minute " first " kB, at the end " last " kB"; exit first > 0 && last - first > 1024 }' \
    "$work/client"
