// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A folder for files of the user that are no parameters, such as layouts; beside the store. It need not exist.
QString userFolder(const QString &name);
