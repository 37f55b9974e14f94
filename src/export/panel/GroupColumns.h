// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1StringView>

class DataModel;
class QComboBox;
class QString;

inline constexpr QLatin1StringView defaultGroupColumn("group");

/// Lists the entries of set files that may name groups: those that any examination has, and the default.
/// @param model  null for one without examinations.
void listGroupColumns(QComboBox &columns, const DataModel *model, const QString &chosen);
