// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportResult.h"

#include <QString>

class FileReplacement;

/// Writes a table of statistics as UTF-8 without mark, whole or not at all, in the place of an older file.
void writeTable(const QString &path, const QString &text, ExportResult &result);

/// Puts a table of statistics in its place, and notes what became of it.
void takeTable(FileReplacement &file, ExportResult &result);

/// The quoted id and text of a subject, each followed by ";". A quote in them is not escaped.
QString subjectFields(const QString &id, const QString &text);
