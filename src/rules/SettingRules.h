// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Parameter.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

/// What the value of a key must be. The type is that of its parameter row, the range that of the panels' forms.
struct SettingRule {
    enum class Type { Text, Flag, WholeNumber, Number, Color };

    /// The value that the text stands for, a colour by its name; nothing where it is none.
    std::optional<ParameterValue> value(const QString &text) const;

    /// The text itself where it is a value; else, as a value, what the program makes of it: the typed reading, brought
    /// into the range as a form does.
    QString nearest(const QString &text) const;

    /// Such as "a whole number from 10 to 1000".
    QString expected() const;

    /// Whether any text is a value, such as the name of a folder.
    bool isFree() const { return type == Type::Text && words.isEmpty(); }

    Type type = Type::Text;
    double least = std::numeric_limits<double>::lowest();
    double most = std::numeric_limits<double>::max();
    QStringList words = {};  ///< of a text that has only these values
    QString otherwise = {};  ///< the word as which any other text is read
    bool mayBeEmpty = false; ///< of colours; other empty texts stand for no value
};

/// The rules of all keys that the program declares.
QHash<QString, SettingRule> settingRules();
