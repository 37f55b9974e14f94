#pragma once

#include "commands/CommandStack.h"
#include "commands/ParameterCommand.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>

#include <functional>
#include <map>

/// Joins the controls of a panel with the rows of its parameters. One line a control, in place of a slot, a setter and
/// a refresh:
///
///     m_parameters.bind<rows::standardMaximumRadius>(ui->s_spinBox_rad, m_record);
///
/// A change of the control pushes the row's command; `show` sets the control, silently.
class ParameterPanel : public IParameterView {
public:
    void show(QLatin1StringView key, const QVariant &value) override;

    /// The log of the commands that are bound without one of their own; may be null.
    void setLog(const Log *log) { m_log = log; }

    /// Binds with the plain command of the row, or with one derived from it.
    template <const auto &Row, class Command = ParameterCommand<Row>, class Control>
    void bind(Control *control, typename Command::Record &record, const Log *log = nullptr)
    {
        m_controls[Row.key] = [control](const QVariant &value) { setControl(control, value); };
        onChange(control, [this, &record, log](const auto &value) {
            CommandStack::instance().push(
                new Command(static_cast<typename Command::Value>(value), record, *this, log ? log : m_log));
        });
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

    std::map<QLatin1StringView, std::function<void(const QVariant &)>> m_controls;
    const Log *m_log = nullptr;
};
