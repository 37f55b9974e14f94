#pragma once

#include <QLatin1StringView>

/// Settings keys of the export panel.
namespace exportkeys {

/// Folder of the last data export.
inline constexpr QLatin1StringView dataFolder("Visualization/Export/pathdata");

} // namespace exportkeys
