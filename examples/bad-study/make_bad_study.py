#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the files of the bad study into a folder (default: this one), the same bytes at every call.

Each is a recording of a gaze that rests and jumps by turns, spoiled in one way; README.md tells which.
"""

import gzip
import math
import sys
from pathlib import Path

PLACES = ((320, 240), (960, 250), (640, 512), (300, 800), (1000, 780))
STEP_MS = 4


def gaze(index):
    """Place of the gaze at a sample, px: a fifth of a second at each place, with a little drift."""
    place = PLACES[index // 50 % len(PLACES)]
    return place[0] + 2 * math.sin(index / 7), place[1] + 2 * math.cos(index / 9)


def samples(count):
    for index in range(count):
        yield index, 1000 + STEP_MS * index, *gaze(index)


def table(names, rows, separator=","):
    return "\n".join([separator.join(names), *(separator.join(str(field) for field in row) for row in rows)]) + "\n"


def number(value, decimal="."):
    return f"{value:.2f}".replace(".", decimal)


NAMES = ("time_ms", "left_x", "left_y", "right_x", "right_y")


def rows(count):
    return [[time, number(x), number(y), number(x + 3), number(y)] for _, time, x, y in samples(count)]


def decimal_commas():
    spoiled = [[str(field).replace(".", ",") for field in row] for row in rows(250)]
    return table(NAMES, spoiled, ";")


def letters_among_digits():
    spoiled = rows(250)
    for index in (40, 41, 42):  # lines 42 to 44 were typed by hand, with the letter E for 3 in x
        for column in (1, 3):
            spoiled[index][column] = spoiled[index][column].replace("3", "E")
    return table(NAMES, spoiled)


def odd_times():
    spoiled = rows(250)
    spoiled[100][0] = spoiled[99][0]  # line 102 has the time of line 101
    spoiled[150][0] = spoiled[148][0]  # line 152 runs back
    for row in spoiled[200:]:  # from line 202 on two seconds are missing
        row[0] += 2000
    return table(NAMES, spoiled)


def microseconds_called_ms():
    return table(NAMES, [[row[0] * 1000, *row[1:]] for row in rows(250)])


def two_subjects():
    return table(("subject", *NAMES), [[name, *row] for name in ("Ann", "Bea") for row in rows(125)])


def columns_change():
    spoiled = rows(250)
    for index in range(120, 130):  # lines 122 to 131 lack the right eye
        spoiled[index] = spoiled[index][:3]
    return table(NAMES, spoiled)


def other_screen():
    spoiled = [[time, number(x * 2), number(y * 2), number(x * 2 + 3), number(y * 2)] for _, time, x, y in samples(250)]
    return table(NAMES, spoiled)


def no_times():
    return "".join(f"{number(x)},{number(y)}\n" for _, _, x, y in samples(250))


def words_read():
    words = "the quick brown fox jumps over the lazy dog".split()
    return table(("word", "dwell_ms", "fixations"), [[word, 180 + 10 * i, 1 + i % 2] for i, word in enumerate(words)])


def normalised():
    return table(("time_s", "gaze_x", "gaze_y", "confidence"),
                 [[f"{time / 1000:.3f}", f"{x / 1280:.5f}", f"{y / 1024:.5f}", "0.95" if index % 10 else "0.20"]
                  for index, time, x, y in samples(250)])


DATA_HEAD = ("StaticBinocular\n"
             "time\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\tright_h\tright_valid\n")


def data_line(time, x, y, separator="\t"):
    return separator.join((str(time), number(x), number(y), "3.50", "3.50", "1",
                           number(x + 3), number(y), "3.50", "3.50", "1")) + "\n"


def data(change=lambda index, time, line: line):
    return DATA_HEAD + "".join(change(index, time, data_line(time, x, y)) for index, time, x, y in samples(250))


def data_with_commas(index, _, line):
    return line.replace(".", ",") if index >= 200 else line  # from line 203 on: eight fields each


def data_with_decimal_times(_, time, line):
    return line.replace(str(time), f"{time}.5", 1)


def data_with_lost_lines(index, _, line):
    if index == 10:  # line 13
        return line.replace("\t1\n", "\n")
    if index == 20:  # line 23
        return " " + line
    return line


def data_in_microseconds(_, time, line):
    return line.replace(str(time), str(time * 1000), 1)


def data_with_semicolons(_, __, line):
    return line.replace("\t", ";")


FILES = {
    "01-decimal-commas.csv": decimal_commas,
    "02-letters-among-digits.csv": letters_among_digits,
    "03-odd-times.csv": odd_times,
    "04-microseconds-called-ms.csv": microseconds_called_ms,
    "05-two-subjects.csv": two_subjects,
    "06-columns-change.csv": columns_change,
    "07-other-screen.csv": other_screen,
    "08-no-times.csv": no_times,
    "09-words-read.csv": words_read,
    "10-cut-short.csv.gz": None,
    "11-normalised.csv": normalised,
    "12-decimal-commas.data": lambda: data(data_with_commas),
    "13-decimal-times.data": lambda: data(data_with_decimal_times),
    "14-lost-lines.data": lambda: data(data_with_lost_lines),
    "15-microseconds.data": lambda: data(data_in_microseconds),
    "16-semicolons.data": lambda: data(data_with_semicolons),
}


def contents(name):
    if name.endswith(".gz"):  # stored, not packed, so that every version of the library writes these bytes
        whole = gzip.compress(table(NAMES, rows(250)).encode(), compresslevel=0, mtime=0)
        return whole[:4000]
    return FILES[name]().encode()


def main():
    folder = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parent)
    for name in FILES:
        (folder / name).write_bytes(contents(name))
        if name.endswith(".data"):
            (folder / name).with_suffix(".set").write_text(f"[subject]\nsubjectID={name[:2]}\n", encoding="utf-8")


if __name__ == "__main__":
    main()
