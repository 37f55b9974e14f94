// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/shapes/ShapeStyle.h"

#include "base/Truncation.h"
#include "model/DataModel.h"
#include "visualization/parameters/VisualizationParameters.h"

namespace {

struct Colors {
    QColor fill;
    QColor border;
};

Colors colorsOf(const VisualizationParameters &parameters, Eye eye)
{
    switch (eye) {
    case Eye::Left:
        return {parameters.fillColorLeft, parameters.borderColorLeft};
    case Eye::Right:
        return {parameters.fillColorRight, parameters.borderColorRight};
    case Eye::Dominant:
    case Eye::Mean: // has no colours of its own
        break;
    }
    return {parameters.fillColor, parameters.borderColor};
}

Colors colorsOf(const Group &group, Eye eye, const VisualizationParameters &parameters)
{
    const auto &colors = eye == Eye::Left    ? group.colorsLeft
                         : eye == Eye::Right ? group.colorsRight
                                             : group.colorsDominant;
    const QColor fill = colors.value(parameters.settingsName);
    return {fill, borderColorFor(fill, parameters.borderType)};
}

const Group *groupOf(const Examination &examination, const DataModel &model)
{
    return examination.groupName == Group::none ? nullptr : model.group(examination.groupName);
}

} // namespace

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
    const Group *group = groupOf(examination, model);
    const auto [fill, border] = group ? colorsOf(*group, eye, parameters) : colorsOf(parameters, eye);
    return {QPen(border, std::max(0, parameters.borderWidth)),
            QBrush(withOpacity(fill, parameters.fillOpacity), Qt::SolidPattern)};
}
