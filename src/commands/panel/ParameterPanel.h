// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/CommandStack.h"
#include "commands/panel/ColorButton.h"
#include "commands/ParameterCommand.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>
#include <QToolButton>

#include <functional>
#include <map>

/// Joins the controls of a panel with the rows of its parameters. One line a control, in place of a slot, a setter and
/// a refresh:
///
///     m_parameters.bind<rows::standardMaximumRadius>(m_ui->s_spinBox_rad, m_settings);
///
/// A change of the control pushes the row's command; `show` sets the control, silently.
class ParameterPanel : public IParameterView {
public:
    /// The log of the commands; may be null.
    void setLog(const Log *log) { m_log = log; }

    void show(QLatin1StringView key, const ParameterValue &value) override;

    /// Binds with the plain command of the row, or with one derived from it.
    template <const auto &Row, class Command = ParameterCommand<Row>, class Control>
    void bind(Control *control, typename Command::Record &record)
    {
        m_controls[Row.key] = typed<typename Command::Value>([control](auto value) { setControl(control, value); });
        onChange(control, [this, &record](const auto &value) {
            CommandStack::instance().push(
                new Command(static_cast<typename Command::Value>(value), record, *this, m_log));
        });
    }

    /// A change of the control goes into record and store without a command: nothing to undo.
    template <const auto &Row, class Control>
    void bindWithoutCommand(Control *control, typename std::remove_cvref_t<decltype(Row)>::Record &record)
    {
        using Value = typename std::remove_cvref_t<decltype(Row)>::Value;
        m_controls[Row.key] = typed<Value>([control](auto value) { setControl(control, value); });
        onChange(control, [&record](const auto &value) { setParameter(record, Row, static_cast<Value>(value)); });
    }

    /// A click on the button lets the user choose the colour, by a command.
    template <const auto &Row>
    void bindColor(QToolButton *button, typename std::remove_cvref_t<decltype(Row)>::Record &record,
                   const ColorChooser &chooseColor)
    {
        m_controls[Row.key] = typed<QColor>([button](const QColor &color) { showColor(button, color); });
        QObject::connect(button, &QToolButton::clicked, button, [this, &record, chooseColor] {
            if (const QColor color = chooseColor(valueIn(record, Row)); color.isValid())
                CommandStack::instance().push(new ParameterCommand<Row>(color, record, *this, m_log));
        });
    }

    template <const auto &Row>
    void bindColorWithoutCommand(QToolButton *button, typename std::remove_cvref_t<decltype(Row)>::Record &record,
                                 const ColorChooser &chooseColor)
    {
        m_controls[Row.key] = typed<QColor>([button](const QColor &color) { showColor(button, color); });
        QObject::connect(button, &QToolButton::clicked, button, [button, &record, chooseColor] {
            const QColor color = chooseColor(valueIn(record, Row));
            if (!color.isValid())
                return;
            showColor(button, color);
            setParameter(record, Row, color);
        });
    }

    /// Calls the reaction with each value of the row that is shown, by a command or by a refresh: for what else in the
    /// panel depends on the value. The row may be without a control.
    template <const auto &Row, class Reaction>
    void whenShown(Reaction reaction)
    {
        using Value = typename std::remove_cvref_t<decltype(Row)>::Value;
        m_reactions[Row.key] = typed<Value>(reaction);
    }

    /// Shows the record's value in every bound control of the rows.
    template <class Record, class... Rows>
    void refresh(const Record &record, const std::tuple<Rows...> &rows)
    {
        std::apply([&](const auto &...row) { (show(row.key, valueIn(record, row)), ...); }, rows);
    }

private:
    using Show = std::function<void(const ParameterValue &)>;

    /// A row shows values of its own type, and a control is bound to one row.
    template <class Value, class Shown>
    static Show typed(Shown shown)
    {
        return [shown](const ParameterValue &value) { shown(std::get<Value>(value)); };
    }

    static void setControl(QSpinBox *control, int value);
    static void setControl(QDoubleSpinBox *control, double value);
    static void setControl(QCheckBox *control, bool value);
    static void setControl(QComboBox *control, int value);

    template <class Slot>
    static void onChange(QSpinBox *control, Slot slot)
    {
        control->setKeyboardTracking(false); // a number that is typed counts when it is complete
        QObject::connect(control, &QSpinBox::valueChanged, control, slot);
    }
    template <class Slot>
    static void onChange(QDoubleSpinBox *control, Slot slot)
    {
        control->setKeyboardTracking(false);
        QObject::connect(control, &QDoubleSpinBox::valueChanged, control, slot);
    }
    template <class Slot>
    static void onChange(QCheckBox *control, Slot slot)
    {
        QObject::connect(control, &QCheckBox::toggled, control, slot);
    }
    template <class Slot>
    static void onChange(QComboBox *control, Slot slot)
    {
        QObject::connect(control, &QComboBox::currentIndexChanged, control, slot);
    }

    const Log *m_log = nullptr;
    std::map<QString, Show> m_controls;
    std::map<QString, Show> m_reactions;
};
