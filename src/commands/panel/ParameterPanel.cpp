#include "commands/panel/ParameterPanel.h"

#include <QSignalBlocker>

void ParameterPanel::show(QLatin1StringView key, const QVariant &value)
{
    if (const auto control = m_controls.find(key); control != m_controls.end())
        control->second(value);
    if (const auto reaction = m_reactions.find(key); reaction != m_reactions.end())
        reaction->second(value);
}

void ParameterPanel::setControl(QSpinBox *control, const QVariant &value)
{
    const QSignalBlocker blocker(control);
    control->setValue(value.toInt());
}

void ParameterPanel::setControl(QDoubleSpinBox *control, const QVariant &value)
{
    const QSignalBlocker blocker(control);
    control->setValue(value.toDouble());
}

void ParameterPanel::setControl(QCheckBox *control, const QVariant &value)
{
    const QSignalBlocker blocker(control);
    control->setChecked(value.toBool());
}

void ParameterPanel::setControl(QComboBox *control, const QVariant &value)
{
    const QSignalBlocker blocker(control);
    control->setCurrentIndex(value.toInt());
}
