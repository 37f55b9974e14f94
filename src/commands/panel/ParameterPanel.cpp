// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/panel/ParameterPanel.h"

#include <QSignalBlocker>

void ParameterPanel::show(QLatin1StringView key, const ParameterValue &value)
{
    if (const auto control = m_controls.find(key); control != m_controls.end())
        control->second(value);
    if (const auto reaction = m_reactions.find(key); reaction != m_reactions.end())
        reaction->second(value);
}

void ParameterPanel::setControl(QSpinBox *control, int value)
{
    const QSignalBlocker blocker(control);
    control->setValue(value);
}

void ParameterPanel::setControl(QDoubleSpinBox *control, double value)
{
    const QSignalBlocker blocker(control);
    control->setValue(value);
}

void ParameterPanel::setControl(QCheckBox *control, bool value)
{
    const QSignalBlocker blocker(control);
    control->setChecked(value);
}

void ParameterPanel::setControl(QComboBox *control, int value)
{
    const QSignalBlocker blocker(control);
    control->setCurrentIndex(value);
}
