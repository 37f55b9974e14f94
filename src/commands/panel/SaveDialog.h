// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

/// Asks for a file to write. A name without an ending gets that of the chosen filter; before a file of the completed
/// name is replaced, the user is asked, as the dialog itself does for names that were typed whole.
///
/// @param start    folder, or name, with which the dialog begins.
/// @param filters  such as "PNG (*.png);;Vector Graphics (*.svg)"; of those with several endings the first counts.
/// @return empty where the user gives none.
QString chooseSaveFile(QWidget *parent, const QString &title, const QString &start, const QString &filters);
