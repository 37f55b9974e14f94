// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

#include <QVarLengthArray>

#include <span>

/// What counts as a transition; the values are those of `VisualizationParameters::transitionType`.
enum class TransitionType {
    Scanpath = 0, ///< from place to place, whatever lies between
    Saccades = 1, ///< from one fixation to the very next
};

/// The gaze of one eye in one recording. Not owned.
struct GazeWalk {
    std::span<const Fixation> fixations;
    const QList<Saccade> *saccades = nullptr; ///< null counts as none
};

/// The walks of these examinations, for each of them one for each eye of the mode. They refer to the examinations.
QList<GazeWalk> walksOf(const QList<const Examination *> &examinations, EyeMode mode);

/// A walk for each run of fixations of one examination in a pool. They refer to the model.
///
/// @param leftOut  place of the examination whose fixations do not take part; -1 for none.
QList<GazeWalk> pooledWalks(Eye eye, const DataModel &model, qsizetype leftOut = -1);

/// Places in which a fixation lies: numbers of clusters or of areas of interest, in ascending order.
using Places = QVarLengthArray<qsizetype, 4>;

/// An unbroken stay of the gaze in the same places. Fixations in no place do not break it.
struct GazeStay {
    const Fixation *first = nullptr;
    const Fixation *last = nullptr;
    Places places;
};

/// Follows the gaze from place to place: the one walk on which all transitions are counted, of clusters and of areas.
/// Fixations that the frame does not hold whole take no part.
///
/// @param placesOf  the places of a fixation.
/// @param step  called with the stay so far, the next fixation that lies somewhere, and its places, which may be those
///              of the stay.
template <class PlacesOf, class Step>
void followGaze(const GazeWalk &walk, TimeFrame frame, TransitionType type, const PlacesOf &placesOf, const Step &step)
{
    GazeStay stay;
    for (const Fixation &fixation : walk.fixations) {
        if (!frame.holds(fixation))
            continue;
        const Places places = placesOf(fixation);
        if (places.isEmpty() && type == TransitionType::Scanpath)
            continue; // neither ends nor begins a transition
        if (!stay.places.isEmpty() && !places.isEmpty())
            step(std::as_const(stay), fixation, places);
        if (!stay.first || stay.places != places)
            stay = {&fixation, &fixation, places};
        stay.last = &fixation;
    }
}
