// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/OutsideProgramDialog.h"

#include <QApplication>
#include <QProgressDialog>

OutsideResult runBehindDialog(const OutsideCall &call, const QString &label, QWidget *parent)
{
    constexpr int most = 100;
    constexpr int callsPerStep = 10; // half a second
    QProgressDialog dialog(label, QObject::tr("Cancel"), 0, most, parent);
    dialog.setWindowTitle(QApplication::applicationDisplayName());
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(0);
    dialog.setAutoReset(false);
    dialog.setAutoClose(false);
    dialog.setValue(0);
    dialog.show();
    QApplication::processEvents();
    int calls = 0;
    return runOutside(call, [&] {
        dialog.setValue(++calls / callsPerStep % most);
        QApplication::processEvents();
        return !dialog.wasCanceled();
    });
}
