// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/ColumnNames.h"

#include <algorithm>
#include <initializer_list>

namespace {

using namespace Qt::Literals::StringLiterals;
using Words = std::initializer_list<QLatin1StringView>;

/// Lower-case words: cut at signs, between a small and a capital letter, and between letters and digits.
QStringList wordsInName(const QString &name)
{
    QStringList words;
    QString word;
    QChar before;
    for (const QChar sign : name) {
        const bool isNewWord = (sign.isUpper() && before.isLower()) || (sign.isDigit() && before.isLetter());
        if ((!sign.isLetterOrNumber() || isNewWord) && !word.isEmpty())
            words << std::exchange(word, {});
        if (sign.isLetterOrNumber())
            word += sign.toLower();
        before = sign;
    }
    if (!word.isEmpty())
        words << word;
    return words;
}

bool hasAny(const QStringList &words, Words wanted)
{
    return std::ranges::any_of(wanted, [&](QLatin1StringView word) { return words.contains(word); });
}

/// Short names that are all of their words at once.
struct WholeName {
    QLatin1StringView name;
    ColumnRole role;
    NamedEye eye;
};

constexpr WholeName wholeNames[] = {
    {"lx"_L1, ColumnRole::GazeX, NamedEye::Left},        {"ly"_L1, ColumnRole::GazeY, NamedEye::Left},
    {"rx"_L1, ColumnRole::GazeX, NamedEye::Right},       {"ry"_L1, ColumnRole::GazeY, NamedEye::Right},
    {"xl"_L1, ColumnRole::GazeX, NamedEye::Left},        {"yl"_L1, ColumnRole::GazeY, NamedEye::Left},
    {"xr"_L1, ColumnRole::GazeX, NamedEye::Right},       {"yr"_L1, ColumnRole::GazeY, NamedEye::Right},
    {"xt"_L1, ColumnRole::Other, NamedEye::None},        {"yt"_L1, ColumnRole::Other, NamedEye::None},
    {"lp"_L1, ColumnRole::Pupil, NamedEye::Left},        {"rp"_L1, ColumnRole::Pupil, NamedEye::Right},
    {"lpupil"_L1, ColumnRole::Pupil, NamedEye::Left},    {"rpupil"_L1, ColumnRole::Pupil, NamedEye::Right},
    {"leftx"_L1, ColumnRole::GazeX, NamedEye::Left},     {"lefty"_L1, ColumnRole::GazeY, NamedEye::Left},
    {"rightx"_L1, ColumnRole::GazeX, NamedEye::Right},   {"righty"_L1, ColumnRole::GazeY, NamedEye::Right},
    {"gazex"_L1, ColumnRole::GazeX, NamedEye::None},     {"gazey"_L1, ColumnRole::GazeY, NamedEye::None},
    {"bpogx"_L1, ColumnRole::GazeX, NamedEye::Both},     {"bpogy"_L1, ColumnRole::GazeY, NamedEye::Both},
    {"lpogx"_L1, ColumnRole::GazeX, NamedEye::Left},     {"lpogy"_L1, ColumnRole::GazeY, NamedEye::Left},
    {"rpogx"_L1, ColumnRole::GazeX, NamedEye::Right},    {"rpogy"_L1, ColumnRole::GazeY, NamedEye::Right},
    {"bpogv"_L1, ColumnRole::Validity, NamedEye::Both},  {"lpogv"_L1, ColumnRole::Validity, NamedEye::Left},
    {"rpogv"_L1, ColumnRole::Validity, NamedEye::Right}, {"n"_L1, ColumnRole::SampleCount, NamedEye::None},
};

NamedEye eyeIn(const QStringList &words)
{
    const bool left = hasAny(words, {"left"_L1, "l"_L1, "le"_L1, "lefteye"_L1});
    const bool right = hasAny(words, {"right"_L1, "r"_L1, "re"_L1, "righteye"_L1});
    if (left != right)
        return left ? NamedEye::Left : NamedEye::Right;
    return hasAny(words, {"average"_L1, "mean"_L1, "avg"_L1, "both"_L1, "binocular"_L1, "cyclopean"_L1})
               ? NamedEye::Both
               : NamedEye::None;
}

std::optional<TableTimeUnit> timeUnitIn(const QStringList &words)
{
    if (hasAny(words, {"ms"_L1, "msec"_L1, "millis"_L1, "millisecond"_L1, "milliseconds"_L1}))
        return TableTimeUnit::Milliseconds;
    if (hasAny(words, {"us"_L1, "usec"_L1, "microsecond"_L1, "microseconds"_L1}) || words.contains(u"\u00B5s"_s) ||
        words.contains(u"\u03BCs"_s))
        return TableTimeUnit::Microseconds;
    if (hasAny(words, {"ns"_L1, "nanosecond"_L1, "nanoseconds"_L1}))
        return TableTimeUnit::Nanoseconds;
    if (hasAny(words, {"s"_L1, "sec"_L1, "second"_L1, "seconds"_L1}))
        return TableTimeUnit::Seconds;
    return std::nullopt;
}

std::optional<TablePlaceUnit> placeUnitIn(const QStringList &words)
{
    if (hasAny(words, {"px"_L1, "pix"_L1, "pixel"_L1, "pixels"_L1, "adcspx"_L1, "mcspx"_L1, "dacspx"_L1}))
        return TablePlaceUnit::Pixels;
    if (hasAny(words, {"norm"_L1, "normalized"_L1, "normalised"_L1, "mcsnorm"_L1, "adcsnorm"_L1}))
        return TablePlaceUnit::Normalised;
    if (hasAny(words, {"mm"_L1, "adcsmm"_L1, "ucsmm"_L1, "dacsmm"_L1}))
        return TablePlaceUnit::Millimetres;
    if (hasAny(words, {"deg"_L1, "degree"_L1, "degrees"_L1, "dva"_L1}))
        return TablePlaceUnit::Degrees;
    return std::nullopt;
}

/// Words of columns beside the gaze; "x" and "y" in them are not of the gaze.
bool isOfSomethingElse(const QStringList &words)
{
    return hasAny(
        words,
        {"target"_L1,     "stim"_L1,      "velocity"_L1,      "vel"_L1,          "acceleration"_L1, "acc"_L1,
         "head"_L1,       "mouse"_L1,     "cursor"_L1,        "marker"_L1,       "origin"_L1,       "direction"_L1,
         "dir"_L1,        "vector"_L1,    "normal"_L1,        "cr"_L1,           "raw"_L1,          "href"_L1,
         "camera"_L1,     "gyro"_L1,      "accelerometer"_L1, "magnetometer"_L1, "center"_L1,       "centre"_L1,
         "resolution"_L1, "position3"_L1, "ucsmm"_L1,         "ucs"_L1,          "eyeball"_L1,      "ellipse"_L1,
         "hit"_L1,        "offset"_L1,    "object"_L1,        "box"_L1,          "3d"_L1,           "width"_L1,
         "event"_L1,      "port"_L1,      "input"_L1});
}

/// Words of tables whose lines are fixations, saccades or words instead of samples.
bool isOfEvents(const QStringList &words)
{
    return hasAny(words, {"fixation"_L1, "fixations"_L1, "fix"_L1, "saccade"_L1, "saccades"_L1, "sacc"_L1, "blink"_L1,
                          "duration"_L1, "dur"_L1, "pass"_L1, "landing"_L1, "word"_L1, "dwell"_L1, "fpogx"_L1,
                          "fpogy"_L1, "fpogs"_L1, "fpogd"_L1, "fpogid"_L1, "fpogv"_L1});
}

ColumnRole personOrPicture(const QStringList &words)
{
    if (hasAny(words, {"subject"_L1, "subj"_L1, "participant"_L1, "person"_L1, "subjectid"_L1, "participantid"_L1}))
        return ColumnRole::Subject;
    if (hasAny(words, {"group"_L1}))
        return ColumnRole::Group;
    if (hasAny(words, {"stimulus"_L1, "image"_L1, "picture"_L1, "media"_L1, "item"_L1, "scene"_L1}))
        return ColumnRole::Stimulus;
    if (hasAny(words, {"trial"_L1, "trialid"_L1, "block"_L1, "session"_L1, "round"_L1, "recording"_L1}))
        return ColumnRole::Trial;
    return ColumnRole::Unknown;
}

bool isTimeName(const QStringList &words)
{
    return hasAny(words,
                  {"time"_L1, "timestamp"_L1, "timestamps"_L1, "t"_L1, "tracktime"_L1, "clock"_L1, "stamp"_L1}) &&
           !hasAny(words, {"prev"_L1, "next"_L1, "since"_L1, "reaction"_L1, "to"_L1, "rt"_L1});
}

ColumnRole gazeRole(const QStringList &words, ColumnMeaning &meaning)
{
    meaning.isGazeWord =
        hasAny(words, {"gaze"_L1, "por"_L1, "pog"_L1, "gazepoint"_L1, "eye"_L1, "point"_L1, "pos"_L1, "position"_L1});
    const auto endsIn = [&](QLatin1StringView axis) {
        return words.contains(axis) || words.contains(QLatin1StringView("gaze") + axis) ||
               words.contains(QLatin1StringView("pos") + axis);
    };
    const bool x = endsIn("x"_L1);
    const bool y = endsIn("y"_L1);
    if (x == y || words.contains("z"_L1))
        return ColumnRole::Unknown;
    return x ? ColumnRole::GazeX : ColumnRole::GazeY;
}

ColumnRole roleOf(const QStringList &words, ColumnMeaning &meaning)
{
    if (hasAny(words, {"confidence"_L1, "conf"_L1}))
        return ColumnRole::Confidence;
    if (hasAny(words, {"validity"_L1, "valid"_L1, "val"_L1}))
        return ColumnRole::Validity;
    if (hasAny(words, {"pupil"_L1, "dia"_L1, "diameter"_L1, "pupilsize"_L1, "ps"_L1, "dp"_L1})) {
        const bool isPlace = hasAny(words, {"pos"_L1, "position"_L1, "center"_L1, "raw"_L1, "gaze"_L1});
        const bool isHeight = hasAny(words, {"height"_L1}) || (words.contains("y"_L1) && words.contains("dia"_L1));
        if (!isPlace)
            return isHeight ? ColumnRole::PupilHeight : ColumnRole::Pupil;
    }
    if (isTimeName(words) && !isOfEvents(words))
        return ColumnRole::Time;
    if (isOfEvents(words))
        return ColumnRole::OfEvents;
    const bool isOther = isOfSomethingElse(words);
    if (const ColumnRole gaze = gazeRole(words, meaning); gaze != ColumnRole::Unknown)
        return isOther ? ColumnRole::Other : gaze;
    if (words == QStringList{u"eye"_s} || (words.contains("eye"_L1) && words.contains("tracked"_L1)))
        return ColumnRole::EyeWord;
    if (const ColumnRole person = personOrPicture(words); person != ColumnRole::Unknown)
        return person;
    return isOther ? ColumnRole::Other : ColumnRole::Unknown;
}

} // namespace

ColumnMeaning meaningOf(const QString &name)
{
    ColumnMeaning meaning;
    const QString bare = name.trimmed().toLower();
    for (const WholeName &row : wholeNames) {
        if (bare == row.name) {
            meaning.role = row.role;
            meaning.eye = row.eye;
            return meaning;
        }
    }
    const QStringList words = wordsInName(name);
    meaning.eye = eyeIn(words);
    meaning.role = roleOf(words, meaning);
    if (meaning.role == ColumnRole::Time)
        meaning.timeUnit = timeUnitIn(words);
    if (meaning.role == ColumnRole::GazeX || meaning.role == ColumnRole::GazeY)
        meaning.placeUnit = placeUnitIn(words);
    return meaning;
}
