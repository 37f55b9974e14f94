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

    void show(QLatin1StringView key, const QVariant &value) override;

    /// Binds with the plain command of the row, or with one derived from it.
    template <const auto &Row, class Command = ParameterCommand<Row>, class Control>
    void bind(Control *control, typename Command::Record &record)
    {
        m_controls[Row.key] = [control](const QVariant &value) { setControl(control, value); };
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
        m_controls[Row.key] = [control](const QVariant &value) { setControl(control, value); };
        onChange(control, [&record](const auto &value) { setParameter(record, Row, static_cast<Value>(value)); });
    }

    /// A click on the button lets the user choose the colour, by a command.
    template <const auto &Row>
    void bindColor(QToolButton *button, typename std::remove_cvref_t<decltype(Row)>::Record &record,
                   ColorChooser chooseColor)
    {
        m_controls[Row.key] = [button](const QVariant &value) { showColor(button, value.value<QColor>()); };
        QObject::connect(button, &QToolButton::clicked, button, [this, &record, chooseColor] {
            if (const QColor color = chooseColor(record.*Row.member); color.isValid())
                CommandStack::instance().push(new ParameterCommand<Row>(color, record, *this, m_log));
        });
    }

    template <const auto &Row>
    void bindColorWithoutCommand(QToolButton *button, typename std::remove_cvref_t<decltype(Row)>::Record &record,
                                 ColorChooser chooseColor)
    {
        m_controls[Row.key] = [button](const QVariant &value) { showColor(button, value.value<QColor>()); };
        QObject::connect(button, &QToolButton::clicked, button, [button, &record, chooseColor] {
            const QColor color = chooseColor(record.*Row.member);
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
        m_reactions[Row.key] = [reaction](const QVariant &value) { reaction(value.value<Value>()); };
    }

    /// Shows the record's value in every bound control of the rows.
    template <class Record, class... Rows>
    void refresh(const Record &record, const std::tuple<Rows...> &rows)
    {
        std::apply([&](const auto &...row) { (show(row.key, QVariant::fromValue(record.*row.member)), ...); }, rows);
    }

private:
    static void setControl(QSpinBox *control, const QVariant &value);
    static void setControl(QDoubleSpinBox *control, const QVariant &value);
    static void setControl(QCheckBox *control, const QVariant &value);
    static void setControl(QComboBox *control, const QVariant &value);

    template <class Slot>
    static void onChange(QSpinBox *control, Slot slot)
    {
        QObject::connect(control, &QSpinBox::valueChanged, control, slot);
    }
    template <class Slot>
    static void onChange(QDoubleSpinBox *control, Slot slot)
    {
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
    std::map<QString, std::function<void(const QVariant &)>> m_controls;
    std::map<QString, std::function<void(const QVariant &)>> m_reactions;
};
