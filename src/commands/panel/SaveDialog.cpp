// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/SaveDialog.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QRegularExpression>

namespace {

/// ".png" of "PNG (*.png)".
QString endingOf(const QString &filter)
{
    static const QRegularExpression ending(QStringLiteral("\\.\\w+"));
    return ending.match(filter).captured();
}

/// Not every dialog of a desktop tells which filter is chosen; it begins with the first.
QString withEnding(const QString &path, const QString &chosen, const QString &filters)
{
    if (path.isEmpty() || !QFileInfo(path).suffix().isEmpty())
        return path;
    const QString bare = path.endsWith(u'.') ? path.chopped(1) : path;
    return bare + endingOf(chosen.isEmpty() ? filters : chosen);
}

bool mayBeReplaced(QWidget *parent, const QString &title, const QString &path)
{
    const auto answer =
        QMessageBox::warning(parent, title, QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(path),
                             QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return answer == QMessageBox::Yes;
}

} // namespace

QString chooseSaveFile(QWidget *parent, const QString &title, const QString &start, const QString &filters)
{
    QString begin = start;
    while (true) {
        QString filter;
        const QString typed = QFileDialog::getSaveFileName(parent, title, begin, filters, &filter);
        QString path = withEnding(typed, filter, filters);
        if (path == typed || !QFileInfo::exists(path) || mayBeReplaced(parent, title, path))
            return path;
        begin = typed;
    }
}
