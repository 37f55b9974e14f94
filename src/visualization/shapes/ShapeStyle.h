// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "visualization/selection/DataSelection.h"

#include <QBrush>
#include <QPen>

class DataModel;
struct Group;
struct VisualizationParameters;

/// Outline and filling of the shapes of one stream.
struct ShapeStyle {
    QPen pen;
    QBrush brush;
};

/// The style of one stream of an examination: in the colours of its group, or in those of the record where it has none.
/// A group that the model does not know counts as none; a group without a colour for this kind of data gives an invalid
/// colour, which paints black.
ShapeStyle shapeStyle(const Examination &examination, Eye eye, const DataModel &model,
                      const VisualizationParameters &parameters);

/// The fill colour of an eye; the mean of both has none of its own and takes that of the dominant one.
QColor fillColorOf(const VisualizationParameters &parameters, Eye eye);
/// The same of a group; invalid where it has no colour for this kind of data.
QColor fillColorOf(const Group &group, Eye eye, const VisualizationParameters &parameters);

/// The eye in whose colour that is drawn which is one for all eyes of the choice: the dominant one for both together.
Eye colorEyeOf(EyeMode mode);

/// The fill colour with an alpha of trunc(2.55 * percent). The double nearest to 2.55 is below it, so that 100 percent
/// give an alpha of 254.
QColor withOpacity(QColor color, int opacityPercent);
