// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/tables/TableLayout.h"

/// One choice of a layout as text, for whoever shows and changes it.
struct LayoutField {
    enum class Kind {
        Word,    ///< one of some words
        Column,  ///< a column, or none
        Message, ///< the beginning of a message of a log, or none
        Text,    ///< anything
    };
    enum class Of { Tables, Logs, Both };

    QLatin1StringView key;   ///< as in layout files and among the choices of a guess
    QLatin1StringView label; ///< for people
    QLatin1StringView help;  ///< a sentence
    Kind kind = Kind::Text;
    Of of = Of::Tables;
    QString (*read)(const TableLayout &layout) = nullptr;
    /// @return false where the text is none that the choice can take; the layout is as it was then.
    bool (*write)(TableLayout &layout, const QString &text) = nullptr;
    QStringList (*words)() = nullptr; ///< of a word
};

/// All choices, in the order in which one makes them.
const QList<LayoutField> &layoutFields();

/// Null if there is none.
const LayoutField *layoutField(QLatin1StringView key);

/// A column as text: its name, or "column 3"; empty for none.
TableColumn columnOf(const QString &text);
