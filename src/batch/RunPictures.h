#pragma once

#include <QMap>
#include <QString>

struct RunState;

/// Draws the scene once and writes it into each picture that was asked for.
void exportImages(RunState &run);

/// Writes the density that was asked for.
///
/// @return what it is, for the report; empty where there is none.
QMap<QString, QString> exportDensity(RunState &run);
