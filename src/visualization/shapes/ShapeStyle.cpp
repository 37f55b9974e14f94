// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/ShapeStyle.h"

#include "base/Truncation.h"
#include "model/DataModel.h"
#include "visualization/parameters/VisualizationParameters.h"

namespace {

/// What an eye has of three; the mean of both has none of its own.
template <class T>
const T &ofEye(Eye eye, const T &left, const T &right, const T &dominant)
{
    return eye == Eye::Left ? left : eye == Eye::Right ? right : dominant;
}

QColor borderColorOf(const VisualizationParameters &parameters, Eye eye)
{
    return ofEye(eye, parameters.borderColorLeft, parameters.borderColorRight, parameters.borderColor);
}

const Group *colorGroupOf(const Examination &examination, const DataModel &model)
{
    return examination.groupName == Group::none ? nullptr : model.group(examination.groupName);
}

} // namespace

QColor fillColorOf(const VisualizationParameters &parameters, Eye eye)
{
    return ofEye(eye, parameters.fillColorLeft, parameters.fillColorRight, parameters.fillColor);
}

QColor fillColorOf(const Group &group, Eye eye, const VisualizationParameters &parameters)
{
    return ofEye(eye, group.colorsLeft, group.colorsRight, group.colorsDominant).value(parameters.settingsName);
}

Eye colorEyeOf(EyeMode mode)
{
    return mode == EyeMode::showAll ? Eye::Dominant : eyesOf(mode).constFirst();
}

QColor withOpacity(QColor color, int opacityPercent)
{
    constexpr double alphaPerPercent = 2.55;
    constexpr int opaque = 255;
    color.setAlpha(std::clamp(truncated(opacityPercent * alphaPerPercent), 0, opaque));
    return color;
}

ShapeStyle shapeStyle(const Examination &examination, Eye eye, const DataModel &model,
                      const VisualizationParameters &parameters)
{
    const Group *group = colorGroupOf(examination, model);
    const QColor fill = group ? fillColorOf(*group, eye, parameters) : fillColorOf(parameters, eye);
    const QColor border = group ? borderColorFor(fill, parameters.borderType) : borderColorOf(parameters, eye);
    return {QPen(border, std::max(0, parameters.borderWidth)),
            QBrush(withOpacity(fill, parameters.fillOpacity), Qt::SolidPattern)};
}
