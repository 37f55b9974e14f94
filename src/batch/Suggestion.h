// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What the user may have meant by a word that nobody knows: the one known word that it begins, or else the nearest by
/// single changed, missing, added or swapped characters, if they are few. Upper and lower case count as the same. Empty
/// if nothing is near; the first one where several are equally near.
QString suggestion(const QString &word, const QStringList &known);

/// "; did you mean --eyes?", or nothing.
QString didYouMean(const QString &word, const QStringList &known);
