// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled once for the tests of items, panels and the window.
#pragma once

#include "widgets.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
