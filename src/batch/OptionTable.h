// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/OptionRow.h"

#include <QList>
#include <QMap>

/// All options by subject, in the order of the help. A new option is a row in the table of its subject.
QList<OptionGroup> optionGroups();

/// The options that the report of a run states, by name.
QMap<QString, QString> reportedOptions(const BatchOptions &options);
