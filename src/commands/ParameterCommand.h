// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Log.h"
#include "commands/IParameterView.h"
#include "settings/Parameter.h"

#include <QUndoCommand>

/// The value as it stands in a command's text and in a log line.
QString commandValueText(const ParameterValue &value);

/// The text of the undo view. Texts of colours have no place for the value: the colour's name follows them.
QString commandText(QLatin1StringView format, const ParameterValue &value);

/// Change of one parameter: record, store and control get the new or the old value, and the log gets a line. It neither
/// calculates nor draws.
///
/// A parameter with a difference derives from its row's command and overrides `show()`, nothing else.
template <const auto &Row>
class ParameterCommand : public QUndoCommand {
    using Traits = std::remove_cvref_t<decltype(Row)>;

public:
    using Record = typename Traits::Record;
    using Value = typename Traits::Value;

    /// @param log  may be null: no line is written.
    ParameterCommand(Value value, Record &record, IParameterView &panel, const Log *log)
        : QUndoCommand(commandText(Row.text, shownForm(value)))
        , m_record(record)
        , m_panel(panel)
        , m_log(log)
        , m_new(std::move(value))
        , m_old(valueIn(record, Row))
    {
    }

    void undo() override { apply(m_old, QLatin1StringView("::undo = ")); }
    void redo() override { apply(m_new, QLatin1StringView("::redo = ")); }

protected:
    virtual void show(const Value &value) { m_panel.show(Row.key, value); }

    Record &record() { return m_record; }
    IParameterView &panel() { return m_panel; }

private:
    /// A choice that is stored as a text is called by it.
    static ParameterValue shownForm(const Value &value)
    {
        if constexpr (requires { Row.stored(value); })
            return Row.stored(value);
        else
            return value;
    }

    void apply(const Value &value, QLatin1StringView step)
    {
        setParameter(m_record, Row, value);
        show(value);
        if (m_log)
            m_log->write(Row.command + step + commandValueText(value));
    }

    Record &m_record;
    IParameterView &m_panel;
    const Log *m_log;
    Value m_new;
    Value m_old;
};
