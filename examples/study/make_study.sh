#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the example study: one picture and six people who look at it for ten seconds.
#
#   make_study.sh GAZE_SIMULATOR [FOLDER]
#
# GAZE_SIMULATOR is the program, such as build/release/tools/gaze-simulator/gaze-simulator; FOLDER, made if missing, is
# where the files go, the folder of this script by default. The files beside this script were made by it, byte for byte.
set -eu

if [ $# -lt 1 ] || [ $# -gt 2 ]; then
    echo "usage: $0 GAZE_SIMULATOR [FOLDER]" >&2
    exit 2
fi
simulator=$1
folder=${2:-$(dirname "$0")}
mkdir -p "$folder"

"$simulator" --make-stimulus "$folder/bay.png"

# person SEED AGE EXPERTISE DOMINANT [further options]: the recording S0SEED
person() {
    seed=$1 age=$2 expertise=$3 dominant=$4
    shift 4
    "$simulator" --image "$folder/bay.png" --seed "$seed" --duration 10 --rate 250 --lid-artefact 15 --truth \
        --subject "S0$seed" --dominant "$dominant" --property "expertise=$expertise" --property "age=$age" "$@" \
        "$folder/S0$seed"
}

person 1 34 expert right --fixation-duration-mean 245 --clock-start 5012440
person 2 41 expert left --fixation-duration-mean 255 --clock-start 2270118 --eye-offset 0.5
person 3 29 expert right --fixation-duration-mean 250 --clock-start 904312 --noise 0.15
person 4 23 novice right --fixation-duration-mean 300 --clock-start 7430020
person 5 26 novice left --fixation-duration-mean 310 --clock-start 1180006 --blink-rate 20
# The poor one: glasses with reflections. Noisy, long losses, many blinks, but a readable file.
person 6 52 novice right --fixation-duration-mean 290 --clock-start 3300754 --noise 0.5 --loss-rate 24 \
    --loss-duration 700 --blink-rate 30 --eye-offset 1 --property remark=glasses
