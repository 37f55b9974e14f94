#include "detection/FixationSettingsModel.h"

#include <iterator>

namespace {

constexpr int noDetector = 3;
constexpr int percentileUnit = 2;

int detectorOf(const QString &stored)
{
    for (const int known : {0, 1}) {
        if (stored == detectorNames[known])
            return known;
    }
    return noDetector;
}

int unitOf(const QString &stored)
{
    if (stored == QLatin1StringView("[Pixel / ms]"))
        return 0;
    return stored == QStringLiteral("[\u00B0/s]") ? 1 : percentileUnit;
}

} // namespace

FixationSettingsModel::FixationSettingsModel()
{
    setInitialValues(*this, rows::fixation);
}

QString detectorName(int calculationType)
{
    const bool known = calculationType >= 0 && calculationType < static_cast<int>(std::size(detectorNames));
    return known ? QString(detectorNames[calculationType]) : QString();
}

void loadFixationSettings(FixationSettingsModel &settings)
{
    loadParameters(settings, rows::fixation);
    const SettingsStore store;
    settings.calculationType = detectorOf(store.value(rows::fixationCalculationType.key).toString());
    settings.velocityUnit = unitOf(store.value(rows::velocityUnit.key).toString());
    const auto writeBack = [&](const auto &row) {
        const bool isUnnamed = row.name && storedForm(row, settings.*row.member).toString().isEmpty();
        if (!isUnnamed) // a foreign name stays as it is
            setParameter(settings, row, settings.*row.member);
    };
    std::apply([&](const auto &...row) { (writeBack(row), ...); }, rows::fixation);
}
