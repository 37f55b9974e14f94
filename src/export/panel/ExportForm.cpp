// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/panel/ExportForm.h"

#include <QMessageBox>

namespace {

constexpr std::pair<QLatin1StringView, EyeMode> eyeSelections[] = {
    {QLatin1StringView("for all eyes"), EyeMode::showAll}, {QLatin1StringView("dominant only"), EyeMode::showDominant},
    {QLatin1StringView("left only"), EyeMode::showLeft},   {QLatin1StringView("right only"), EyeMode::showRight},
    {QLatin1StringView("mean only"), EyeMode::showMean},
};

} // namespace

EyeMode eyeSelection(const QString &text)
{
    for (const auto &[name, mode] : eyeSelections) {
        if (text == name)
            return mode;
    }
    return EyeMode::showAll;
}

void askForFolder(QWidget *parent)
{
    QMessageBox box(parent);
    box.setText(QStringLiteral("Please specifie a folder!!!")); // sic
    box.exec();
}
