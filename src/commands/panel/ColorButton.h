// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

#include <functional>

class QAbstractButton;
class QWidget;

/// Lets the user choose a colour, beginning with the given one; an invalid answer means that the user changed nothing.
using ColorChooser = std::function<QColor(const QColor &start)>;

/// A chooser that opens the dialog of all drawing colours.
enum class ColorAlpha { Fixed, Chosen };
ColorChooser colorDialog(QWidget *parent, ColorAlpha alpha = ColorAlpha::Fixed);

/// Paints the button in the colour, through its style sheet "background-color:#rrggbb", and its caption so that it can
/// be read there.
void showColor(QAbstractButton *button, const QColor &color);

/// The colour that the style sheet of the button names; invalid where it names none.
QColor shownColor(const QAbstractButton *button);
