// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/ColorButton.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QToolButton>

namespace {

constexpr QLatin1StringView background("background-color:");

/// Black or white, whichever stands out more. The weights are those of luma in ITU-R BT.601.
QColor readableOn(const QColor &color)
{
    constexpr double half = 127.5;
    const double luma = 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
    return luma > half ? Qt::black : Qt::white;
}

} // namespace

ColorChooser colorDialog(QWidget *parent, ColorAlpha alpha)
{
    return [parent, alpha](const QColor &start) {
        const auto options =
            alpha == ColorAlpha::Chosen ? QColorDialog::ShowAlphaChannel : QColorDialog::ColorDialogOptions();
        return QColorDialog::getColor(start, parent, QStringLiteral("Text Color"), options);
    };
}

void showColor(QAbstractButton *button, const QColor &color)
{
    QPalette palette = button->palette();
    palette.setColor(QPalette::ButtonText, readableOn(color));
    button->setPalette(palette);
    if (auto *tool = qobject_cast<QToolButton *>(button))
        tool->setAutoRaise(true); // a raised button would be painted in lighter tones of the colour
    button->setStyleSheet(background + color.name());
}

QColor shownColor(const QAbstractButton *button)
{
    const QString style = button->styleSheet();
    return style.startsWith(background) ? QColor(style.mid(background.size())) : QColor();
}
