// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct AoiVisualizationParameters;
struct VisualizationParameters;

/// Values of drawings that the store does not keep: in the window they last as long as the program. Each is assigned
/// as NAME=VALUE and holds for every kind of data whose modes read it; those of areas of interest begin with "aoi".
namespace drawvalues {

/// What is wrong with the assignment; nothing if it can be applied.
std::optional<QString> problemOf(const QString &assignment);

/// Applies assignments without a problem, the later ones last.
void apply(const QStringList &assignments, VisualizationParameters &parameters);
void apply(const QStringList &assignments, AoiVisualizationParameters &parameters);

QStringList names();

} // namespace drawvalues
