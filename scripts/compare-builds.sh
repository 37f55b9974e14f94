#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Whether two builds give the same bytes.
#
#   scripts/compare-builds.sh OLD NEW [FOLDER...]
#
# OLD and NEW are build folders, or vistrum-batch programs. Over the recordings of the folders (the example study if none
# is named) both run every detector, every method of clusters, every density, every drawing mode of samples, events and
# areas, every table, every chart, the chord diagram and the saccade clusters: as many of each as OLD knows. What differs
# is named; the exit code is 1 if anything does. KEEP=DIR keeps the files of both.
set -eu
root="$(cd "$(dirname "$0")/.." && pwd)"

program_of() {
    if [ -d "$1" ]; then
        find "$1" -name vistrum-batch -type f -perm -u+x | head -n 1
    else
        echo "$1"
    fi
}

[ $# -ge 2 ] || { sed -n '2,9s/^# \{0,1\}//p' "$0" >&2; exit 2; }
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
    # The one file that names the build.
    find "$folder" -name dataset_description.json -exec sed -i 's/"Version": "[^"]*"/"Version": ""/' {} +
}

# compare NAME ARGUMENTS...
compare() {
    local name="$1"
    shift
    runs=$((runs + 1))
    run "$old" "$work/old/$name" "$@"
    run "$new" "$work/new/$name" "$@"
    if [ "$(cat "$work/old/$name/status")" = 2 ]; then
        echo "not compared, since the old program refuses it: $name: $*"
        differences=$((differences + 1))
    elif ! diff --recursive --brief "$work/old/$name" "$work/new/$name"; then
        echo "differs: $name: $*"
        differences=$((differences + 1))
    fi
    [ -n "${KEEP:-}" ] || rm -rf "$work/old" "$work/new"
}

# words OPTION: what the help of OLD says that the option may be, parted by commas; nothing where OLD has no such option.
words() {
    "$old" --help | awk -v option="$1" '
        /^  -/ { inside = $1 == option }
        inside { text = text " " $0 }
        END { print text }' | sed -E 's/^.*[a-z,]* of ([a-z]+,)/\1/; s/, as .*//; s/ \(.*//; s/ //g'
}

# last_mode KEY: the highest number that OLD takes for a key.
last_mode() {
    "$old" --keys | sed -n "s|^$1=.* from 0 to \([0-9]*\))\$|\1|p"
}

none=(--set Visualization/Gazepoint/VisualizationMode=0 --set Visualization/Fixation/VisualizationMode=0)

modes() { # of one kind of data, over the recordings in $recordings
    local kind="$1" last mode
    last="$(last_mode "Visualization/$kind/VisualizationMode")"
    [ -n "$last" ] || { echo "compare-builds.sh: $old does not say how many modes $kind has" >&2; exit 2; }
    for mode in $(seq 1 "$last"); do
        compare "$label-$kind-$mode" --quiet --calculate "$all" "${none[@]}" \
            --set "Visualization/$kind/VisualizationMode=$mode" --image picture.png --image picture.svg \
            "${recordings[@]}"
    done
}

area_picture() { # MODE: the arguments that draw only areas
    echo --quiet --calculate fixations,clusters --generate-aois grid "${none[@]}" \
        --set "Visualization/AOI/DrawMode=$1" --image picture.svg
}

charts() { # all kinds, as pictures and as numbers
    local kind arguments=()
    for kind in $(words --chart | tr , ' '); do
        arguments+=(--chart "$kind=$kind.svg" --chart "$kind=$kind.csv")
    done
    [ ${#arguments[@]} = 0 ] || compare "$label-charts" --quiet --calculate "$all" --generate-aois grid \
        "${arguments[@]}" "${recordings[@]}"
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
    for kind in Gazepoint Fixation Fixationcluster Saccade; do
        modes "$kind"
    done
    last_area_mode="$(last_mode Visualization/AOI/DrawMode)" # builds before its range was told have seven
    for mode in $(seq 1 "${last_area_mode:-7}"); do
        # shellcheck disable=SC2046 # words, not one text
        compare "$label-areas-$mode" $(area_picture "$mode") "${recordings[@]}"
    done
    compare "$label-tables" --quiet --calculate "$(words --calculate)" --generate-aois grid \
        --export "$(words --export)" "${recordings[@]}"
    charts
    for files in 'diagram.svg areas.aoi' 'diagram.html areas.csv' 'diagram.png areas.json'; do
        compare "$label-${files/ /-}" --quiet --calculate "$all" --generate-aois grid --diagram "${files% *}" \
            --aois-out "${files#* }" "${recordings[@]}"
    done
done
echo "$runs runs, $differences differ or are refused"
[ "$differences" = 0 ]
