// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/MethodsRecord.h"
#include "report/MethodsReferences.h"

/// One part of a methods section.
struct MethodsPart {
    QString heading;
    QString text;          ///< sentences with a space in between; what only the authors know is asked for in brackets
    QList<Source> sources; ///< that it cites
};

/// The parts that the record has anything to say to, in the order of a paper.
QList<MethodsPart> methodsParts(const MethodsRecord &record);

enum class MethodsFormat { Markdown, Plain };

/// The parts with headings, and the references that they cite by the alphabet. Each part is one line, so that it is
/// easy to edit.
QString methodsText(const MethodsRecord &record, MethodsFormat format);

/// Plain for "....txt", else Markdown.
MethodsFormat methodsFormatOf(const QString &path);
