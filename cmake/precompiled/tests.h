// Compiled once for all tests.
#pragma once

#include "widgets.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
