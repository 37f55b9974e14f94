// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The release of this build and the commit that it was made from, such as "0.2.0 (1a2b3c4d5e6f)"; "unknown" stands for
/// the commit where the sources were no checkout. It tells builds apart; the version texts of files stay as they are.
QString releaseText();
