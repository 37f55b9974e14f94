#include "visualization/ShapeStyle.h"

#include "base/TextFormat.h"
#include "model/DataModel.h"
#include "visualization/VisualizationParameters.h"

namespace {

struct EyeColors {
    QColor fill;
    QColor border;
};

EyeColors colorsOf(const VisualizationParameters &parameters, EyeColor eye)
{
    switch (eye) {
    case EyeColor::Left:
        return {parameters.fillColorLeft, parameters.borderColorLeft};
    case EyeColor::Right:
        return {parameters.fillColorRight, parameters.borderColorRight};
    case EyeColor::Dominant:
        break;
    }
    return {parameters.fillColor, parameters.borderColor};
}

EyeColors colorsOf(const Group &group, EyeColor eye, const VisualizationParameters &parameters)
{
    const auto &colors = eye == EyeColor::Left    ? group.colorsLeft
                         : eye == EyeColor::Right ? group.colorsRight
                                                  : group.colorsDominant;
    const QColor fill = colors.value(parameters.settingsName);
    return {fill, borderColorFor(fill, parameters.borderType)};
}

const Group *groupOf(const Examination &examination, const DataModel &model)
{
    return examination.groupName == QLatin1StringView("None") ? nullptr : model.group(examination.groupName);
}

} // namespace

QColor withOpacity(QColor color, int opacityPercent)
{
    constexpr double alphaPerPercent = 2.55;
    constexpr int opaque = 255;
    color.setAlpha(std::clamp(text::truncated(opacityPercent * alphaPerPercent), 0, opaque));
    return color;
}

ShapeStyle shapeStyle(const Examination &examination, EyeColor eye, const DataModel &model,
                      const VisualizationParameters &parameters)
{
    const Group *group = groupOf(examination, model);
    const auto [fill, border] = group ? colorsOf(*group, eye, parameters) : colorsOf(parameters, eye);
    return {QPen(border, std::max(0, parameters.borderWidth)),
            QBrush(withOpacity(fill, parameters.fillOpacity), Qt::SolidPattern)};
}
