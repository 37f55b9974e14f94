// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

/// What the program is, how to cite it and where more is told: rich text, with links to files.
QString aboutText();

/// Shows that text in a box.
void showAbout(QWidget *parent);

/// Opens a page of the documentation in a window of its own, in which links to other pages can be followed.
void showPage(QWidget *parent, const QString &path);
