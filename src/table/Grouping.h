// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"

/// Property that holds the colour of an examination's samples, as decimal text; its column shows it.
inline constexpr QLatin1StringView colorProperty("Color");

/// Makes the examination a member of the group with this name.
void assignGroup(Examination &examination, const QString &name, int index);

/// Takes the examination out of its group: "None".
void clearGroup(Examination &examination);

/// Makes each value of the property a group, with the examinations of that value as members. A group of that name is
/// used if there is one; else a new one with these colours is appended. An examination without the property has no
/// group afterwards.
///
/// The index of a member is the group's position in the model, from 0, while the combo box of a row counts from 1: rows
/// show their group by name.
void groupBy(DataModel &model, const QString &property, const Group::ColorTable &colors);

/// What becomes of a membership when only groups of these names are left: its index becomes the position of its group's
/// name, or the examination has no group any more.
void keepKnownGroup(Examination &examination, const QStringList &groupNames);

/// Colours every sample of the three streams, and keeps the colour in the property `colorProperty`.
void setGazePointColor(Examination &examination, QRgb color);
