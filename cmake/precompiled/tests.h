// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled once for the tests without widgets.
#pragma once

#include "core.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
