// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/SettingsStore.h"

#include <QColor>
#include <QLatin1StringView>
#include <QString>

#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

/// One parameter, declared once: this row is the only place that knows its key, its value at construction and its
/// texts. Records are plain structs; loading, storing, the undo command and the tests run over the rows.
template <class R, class T>
struct Parameter {
    using Record = R;
    using Value = T;

    T R::*member;
    QLatin1StringView key;               ///< settings key; a leading '/' makes it a suffix of the record's settingsPath
    T initial;                           ///< value at construction, before the store is read
    QLatin1StringView text{};            ///< undo view; "%1" is the new value; empty where no command exists
    QLatin1StringView command{};         ///< class name of the command, as the log shows it
    void (*derive)(R &record) = nullptr; ///< brings what follows from the value up to date, in record and store
};

template <class R, class T>
Parameter(T R::*, QLatin1StringView, std::type_identity_t<T>, QLatin1StringView, QLatin1StringView, void (*)(R &))
    -> Parameter<R, T>;
template <class R, class T>
Parameter(T R::*, QLatin1StringView, std::type_identity_t<T>, QLatin1StringView, QLatin1StringView) -> Parameter<R, T>;
template <class R, class T>
Parameter(T R::*, QLatin1StringView, std::type_identity_t<T>) -> Parameter<R, T>;

/// A parameter whose stored form is not that of its type, such as a choice stored as the text of its item.
template <class R, class T>
struct ParameterStoredAs : Parameter<R, T> {
    QString (*stored)(const T &value);
    T (*loaded)(const QString &stored); ///< also for a key that is missing, as an empty text
};

/// A value of any parameter, for those who show values without knowing the row.
using ParameterValue = std::variant<bool, int, double, QString, QColor>;

/// The row's value in the record, wherever it stands there.
template <class Record, class Row>
auto &valueIn(Record &record, const Row &row)
{
    if constexpr (requires { row.in(record); })
        return row.in(record);
    else
        return record.*row.member;
}

/// The key under which the value of this record stands in the store.
template <class Row>
QString storedKey(const typename Row::Record &record, const Row &row)
{
    if constexpr (requires { record.settingsPath; }) {
        if (row.key.startsWith(u'/'))
            return record.settingsPath + row.key;
    }
    return row.key;
}

/// How a value of a type stands in the store and in log lines: colours as their names, numbers and flags in Qt's own
/// form.
template <class T>
QVariant toStored(const T &value)
{
    if constexpr (std::is_same_v<T, QColor>)
        return value.name();
    else
        return QVariant::fromValue(value);
}

/// The typed reading of a stored value. What is missing or has no such form reads as 0, false, an empty text or an
/// invalid colour.
template <class T>
T fromStored(const QVariant &stored)
{
    if constexpr (std::is_same_v<T, QColor>) {
        return QColor(stored.toString());
    } else if constexpr (std::is_same_v<T, int>) {
        const qint64 number = stored.toLongLong(); // toInt() would cut off the upper digits of a longer number
        return std::in_range<int>(number) ? static_cast<int>(number) : 0;
    } else {
        return stored.value<T>();
    }
}

/// The stored form of a row's value, and back.
template <class Row>
QVariant storedForm(const Row &row, const typename Row::Value &value)
{
    if constexpr (requires { row.stored(value); })
        return row.stored(value);
    else
        return toStored(value);
}
template <class Row>
typename Row::Value loadedForm(const Row &row, const QVariant &stored)
{
    if constexpr (requires { row.loaded; })
        return row.loaded(stored.toString());
    else
        return fromStored<typename Row::Value>(stored);
}

/// Sets the value in the record and in the store, at once: the store always holds the current value. What follows from
/// it follows.
template <class Row>
void setParameter(typename Row::Record &record, const Row &row, const typename Row::Value &value)
{
    valueIn(record, row) = value;
    SettingsStore().setValue(storedKey(record, row), storedForm(row, value));
    if constexpr (requires { row.derive; }) {
        if (row.derive)
            row.derive(record);
    }
}

/// Gives every member of the rows its value at construction.
template <class Record, class... Rows>
void setInitialValues(Record &record, const std::tuple<Rows...> &rows)
{
    std::apply([&](const auto &...row) { ((valueIn(record, row) = row.initial), ...); }, rows);
}

/// Reads every member of the rows from the store.
template <class Record, class... Rows>
void loadParameters(Record &record, const std::tuple<Rows...> &rows)
{
    const SettingsStore store;
    const auto load = [&](const auto &row) {
        valueIn(record, row) = loadedForm(row, store.value(storedKey(record, row)));
    };
    std::apply([&](const auto &...row) { (load(row), ...); }, rows);
}
