#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Whether two builds give the same bytes.
#
#   scripts/compare-builds.sh OLD NEW [FOLDER...]
#
# OLD and NEW are build folders, or vistrum-batch programs. Over the recordings of the folders (the example study if none
# is named) both run every detector with its tables, every method of clusters, every density, every drawing mode and
# the saccade clusters. What differs is named; the exit code is 1 if anything does. KEEP=DIR keeps the files of both.
set -eu
root="$(cd "$(dirname "$0")/.." && pwd)"

program_of() {
    if [ -d "$1" ]; then
        find "$1" -name vistrum-batch -type f -perm -u+x | head -n 1
    else
        echo "$1"
    fi
}

[ $# -ge 2 ] || { sed -n '2,8s/^# \{0,1\}//p' "$0" >&2; exit 2; }
old="$(realpath "$(program_of "$1")")"
new="$(realpath "$(program_of "$2")")"
shift 2
[ -x "$old" ] && [ -x "$new" ] || { echo "compare-builds.sh: no vistrum-batch there" >&2; exit 2; }
[ $# -gt 0 ] || set -- "$root/examples/study"
work="${KEEP:-$(mktemp -d)}"
mkdir -p "$work"
[ -n "${KEEP:-}" ] || trap 'rm -rf "$work"' EXIT
differences=0
runs=0

# run PROGRAM FOLDER ARGUMENTS...: the files that it writes, its exit code and what it says in FOLDER.
run() {
    local program="$1" folder="$2" status=0
    shift 2
    mkdir -p "$folder"
    (cd "$folder" && "$program" "$@" >stdout 2>stderr) || status=$?
    echo "$status" >"$folder/status"
}

# compare NAME ARGUMENTS...
compare() {
    local name="$1"
    shift
    runs=$((runs + 1))
    run "$old" "$work/old/$name" "$@"
    run "$new" "$work/new/$name" "$@"
    if ! diff --recursive --brief "$work/old/$name" "$work/new/$name"; then
        echo "differs: $name: $*"
        differences=$((differences + 1))
    fi
    [ -n "${KEEP:-}" ] || rm -rf "$work/old" "$work/new"
}

modes() { # of one kind of data: KIND LAST-MODE, over the recordings in $recordings
    local kind="$1" mode
    for mode in $(seq 1 "$2"); do
        compare "$label-$kind-$mode" --quiet --calculate "$all" --set Visualization/Gazepoint/VisualizationMode=0 \
            --set Visualization/Fixation/VisualizationMode=0 --set "Visualization/$kind/VisualizationMode=$mode" \
            --image picture.png --image picture.svg "${recordings[@]}"
    done
}

all=fixations,clusters,cumulative-clusters
tables=fixations,clusters,events,cumulative-clusters
for folder in "$@"; do
    folder="$(realpath "$folder")"
    label="$(basename "$folder")"
    mapfile -t recordings < <(find "$folder" -maxdepth 1 -name '*.data' | sort)
    for detector in standard gaussian velocity; do
        for eyes in all dominant mean; do
            compare "$label-$detector-$eyes" --quiet --detector "$detector" --calculate "$all" --export "$tables" \
                --eyes "$eyes" --set Visualization/EyeMode=0 "${recordings[@]}"
        done
    done
    for unit in pixel-per-ms degree-per-s percentile; do
        compare "$label-velocity-$unit" --quiet --detector velocity --velocity-unit "$unit" --calculate fixations \
            --export fixations --background "$root/examples/study/bay.png" "${recordings[@]}"
    done
    for method in 0 1 2; do
        compare "$label-clusters-$method" --quiet --calculate "$all" --export clusters,cumulative-clusters \
            --set "Calculation/Cluster/CalculationType=$method" "${recordings[@]}"
    done
    for kind in gaze fixations clusters saccades; do
        compare "$label-density-$kind" --quiet --calculate "$all" --density density.tiff --density-kind "$kind" \
            "${recordings[@]}"
    done
    compare "$label-narrowed" --quiet --time 500:2500 --calculate "$all" --export "$tables" "${recordings[@]}"
    compare "$label-saccade-clusters" --quiet --calculate fixations,saccade-clusters --saccade-cluster mode=lines \
        --saccade-cluster minimum-angle-quantity=1 --image picture.png "${recordings[@]}"
    compare "$label-picture" --quiet --calculate fixations --background "$root/examples/study/bay.png" \
        --image picture.jpg --image picture.tiff "${recordings[@]}"
    modes Gazepoint 3
    modes Fixation 6
    modes Fixationcluster 8
    modes Saccade 7
done
echo "$runs runs, $differences differ"
[ "$differences" = 0 ]
