# SPDX-License-Identifier: GPL-3.0-or-later
"""The rules of BIDS 1.11 for eye tracking, as far as a data set can be checked without its purpose.

    bids_rules.py FOLDER

Complains, a line each, and fails where there is anything to complain about. `complaints` does the same for tests.
"""

import gzip
import json
import pathlib
import re
import sys

ENTITIES = ("sub", "ses", "task", "acq", "run", "recording")  # in the order in which a name has them
SUFFIXES = {"physio": {".tsv.gz", ".json"}, "physioevents": {".tsv.gz", ".json"}, "events": {".tsv", ".json"}}
NAME = re.compile(r"(?P<entities>[a-z]+-[0-9a-zA-Z]+(?:_[a-z]+-[0-9a-zA-Z]+)*)_(?P<suffix>[a-z]+)(?P<end>\.[a-z.]+)")
TOP = {"dataset_description.json", "participants.tsv", "participants.json", "README.md"}
EYES = {"left", "right", "cyclopean"}
SYSTEMS = {"gaze-on-screen", "gaze-in-world", "gaze-in-head", "eye-in-head"}


def read_json(path):
    try:
        return json.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError) as error:
        return error


def check_dataset(folder):
    description = read_json(folder / "dataset_description.json")
    if not isinstance(description, dict):
        yield f"dataset_description.json: {description}"
        return
    for key in ("Name", "BIDSVersion", "DatasetType"):
        if not isinstance(description.get(key), str):
            yield f"dataset_description.json: no text {key}"
    if description.get("DatasetType") == "derivative":
        generators = description.get("GeneratedBy")
        if not isinstance(generators, list) or not generators or not all("Name" in each for each in generators):
            yield "dataset_description.json: a derivative names in GeneratedBy what made it"
    if not any((folder / name).is_file() for name in ("README", "README.md", "README.txt", "README.rst")):
        yield "no README"


def check_participants(folder):
    path = folder / "participants.tsv"
    if not path.is_file():
        return
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]
    if rows[0][0] != "participant_id":
        yield "participants.tsv: the first column is not participant_id"
    if len(set(rows[0])) != len(rows[0]):
        yield "participants.tsv: two columns have one name"
    if any(len(row) != len(rows[0]) or "" in row for row in rows):
        yield "participants.tsv: rows of other lengths, or empty fields"
    subjects = sorted(path.name for path in folder.glob("sub-*"))
    if sorted(row[0] for row in rows[1:]) != subjects:
        yield "participants.tsv: its rows are not the folders of the subjects"


def check_name(folder, path):
    match = NAME.fullmatch(path.name)
    if not match:
        yield f"{path.name}: not of the form entities_suffix.extension"
        return
    keys = [entity.split("-")[0] for entity in match["entities"].split("_")]
    if keys != sorted(keys, key=lambda key: ENTITIES.index(key) if key in ENTITIES else -1) or len(set(keys)) != len(keys):
        yield f"{path.name}: entities repeated or out of order"
    if set(keys) - set(ENTITIES):
        yield f"{path.name}: unknown entities"
    if match["end"] not in SUFFIXES.get(match["suffix"], ()):
        yield f"{path.name}: {match['suffix']}{match['end']} is no kind of file"
    if "task" not in keys:
        yield f"{path.name}: no task"
    parts = path.relative_to(folder).parts
    if parts[0] != match["entities"].split("_")[0] or parts[-2] not in ("beh", "func", "eeg", "meg", "ieeg", "nirs"):
        yield f"{path.name}: in the wrong folder"


def gzip_rows(path, complaints):
    content = path.read_bytes()
    if content[4:8] != b"\0\0\0\0":
        complaints.append(f"{path.name}: the compressed file holds a time")
    text = gzip.decompress(content).decode("utf-8")
    if text and not text.endswith("\n"):
        complaints.append(f"{path.name}: the last line has no end")
    return [line.split("\t") for line in text.splitlines()]


def is_number(field):
    return re.fullmatch(r"-?\d+(\.\d+)?([eE][-+]?\d+)?", field) is not None


def check_columns(path, rows, sidecar, required, complaints):
    columns = sidecar.get("Columns")
    if not isinstance(columns, list) or columns[:len(required)] != required or len(set(columns)) != len(columns):
        complaints.append(f"{path.name}: Columns does not begin with {required}")
        return []
    if any(len(row) != len(columns) for row in rows):
        complaints.append(f"{path.name}: rows without a field for each column (or a header)")
    if any(field == "" or field.lower() in ("nan", "na") for row in rows for field in row):
        complaints.append(f"{path.name}: what is missing is \"n/a\"")
    for column in columns:
        if not isinstance(sidecar.get(column), dict) or "Description" not in sidecar[column]:
            complaints.append(f"{path.name}: column {column} has no Description")
    return columns


def check_samples(path):
    complaints = []
    sidecar = read_json(path.with_name(path.name.replace(".tsv.gz", ".json")))
    if not isinstance(sidecar, dict):
        return [f"{path.name}: description: {sidecar}"]
    rows = gzip_rows(path, complaints)
    columns = check_columns(path, rows, sidecar, ["timestamp", "x_coordinate", "y_coordinate"], complaints)
    for column in ("timestamp", "x_coordinate", "y_coordinate"):
        if "Units" not in sidecar.get(column, {}):
            complaints.append(f"{path.name}: {column} has no Units")
    if sidecar.get("PhysioType") != "eyetrack":
        complaints.append(f"{path.name}: PhysioType is not eyetrack")
    if sidecar.get("RecordedEye") not in EYES:
        complaints.append(f"{path.name}: RecordedEye is none of {sorted(EYES)}")
    if sidecar.get("SampleCoordinateSystem") not in SYSTEMS:
        complaints.append(f"{path.name}: SampleCoordinateSystem is none of {sorted(SYSTEMS)}")
    for key in ("SamplingFrequency", "StartTime"):
        if not isinstance(sidecar.get(key), (int, float)):
            complaints.append(f"{path.name}: {key} is no number")
    if not re.search(r"_recording-eye\d+_physio", path.name):
        complaints.append(f"{path.name}: each eye has a recording-eyeN of its own")
    if columns and not all(is_number(field) or field == "n/a" for row in rows for field in row):
        complaints.append(f"{path.name}: a field is no number")
    times = [float(row[0]) for row in rows if is_number(row[0])]
    if len(times) != len(rows) or times != sorted(times):
        complaints.append(f"{path.name}: timestamps are missing or run backwards")
    return complaints


def check_physio_events(path):
    complaints = []
    sidecar = read_json(path.with_name(path.name.replace(".tsv.gz", ".json")))
    if not isinstance(sidecar, dict):
        return [f"{path.name}: description: {sidecar}"]
    rows = gzip_rows(path, complaints)
    columns = check_columns(path, rows, sidecar, ["onset", "duration"], complaints)
    if not path.with_name(path.name.replace("physioevents", "physio")).is_file():
        complaints.append(f"{path.name}: no samples beside it")
    if columns and any(not is_number(row[0]) or not (is_number(row[1]) or row[1] == "n/a") for row in rows):
        complaints.append(f"{path.name}: onset or duration is no number")
    onsets = [float(row[0]) for row in rows]
    if onsets != sorted(onsets):
        complaints.append(f"{path.name}: not in the order of onsets")
    levels = sidecar.get("trial_type", {}).get("Levels", {})
    if "trial_type" in columns and {row[columns.index("trial_type")] for row in rows} - set(levels) - {"n/a"}:
        complaints.append(f"{path.name}: trial_type has levels that are not described")
    return complaints


def check_events(path):
    rows = [line.split("\t") for line in path.read_text(encoding="utf-8").splitlines()]
    if rows[0][:2] != ["onset", "duration"]:
        yield f"{path.name}: does not begin with onset and duration"
    if any(len(row) != len(rows[0]) or "" in row for row in rows):
        yield f"{path.name}: rows of other lengths, or empty fields"
    sidecar = read_json(path.with_suffix(".json"))
    screen = sidecar.get("StimulusPresentation", {}) if isinstance(sidecar, dict) else {}
    for key in ("ScreenOrigin", "ScreenResolution", "ScreenSize", "ScreenDistance"):
        if key not in screen:
            yield f"{path.name}: gaze on a screen needs StimulusPresentation.{key}"
    for key in ("ScreenResolution", "ScreenSize"):
        value = screen.get(key)
        if value != "n/a" and not (isinstance(value, list) and len(value) == 2 and all(each > 0 for each in value)):
            yield f"{path.name}: {key} is no pair of lengths"


def complaints(folder):
    folder = pathlib.Path(folder)
    found = list(check_dataset(folder)) + list(check_participants(folder))
    for path in sorted(folder.rglob("*")):
        if path.is_dir():
            continue
        if path.parent == folder:
            if path.name not in TOP:
                found.append(f"{path.name}: does not belong at the top")
            continue
        found += check_name(folder, path)
        if path.name.endswith("_physio.tsv.gz"):
            found += check_samples(path)
        elif path.name.endswith("_physioevents.tsv.gz"):
            found += check_physio_events(path)
        elif path.name.endswith("_events.tsv"):
            found += check_events(path)
    return found


if __name__ == "__main__":
    lines = complaints(sys.argv[1])
    print("\n".join(lines) or "no complaint")
    sys.exit(1 if lines else 0)
