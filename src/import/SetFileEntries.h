// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

/// What the file beside a recording says about picture and person. The form cannot carry every text: there is no
/// quoting.
struct SetFileEntries {
    struct Property {
        QString key;
        QString value;
    };

    QString picturePath; ///< relative to the recording's folder, '/' between folders; empty: no picture
    QString subjectId;
    QString dominantEye = QStringLiteral("right"); ///< "left" or "right"; empty: not known
    QString group = QStringLiteral("None");
    QList<Property> properties;
};

/// What would be read back otherwise than given, in words for the user; empty if all is well.
QString setFileFault(const SetFileEntries &entries);

/// The file's text, UTF-8. The entries are without fault.
QByteArray setFileText(const SetFileEntries &entries);

/// The text behind "KEY=VALUE"; empty key where there is no '='.
SetFileEntries::Property propertyFromText(const QString &text);
