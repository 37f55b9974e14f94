// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/Parameter.h"

#include <QLatin1StringView>

/// The panel side of a parameter command: shows a value in the control of a parameter.
class IParameterView {
public:
    virtual ~IParameterView() = default;

    /// Sets the control of the row with this key to the value, with the control's signals blocked, so that no new
    /// command comes of it. A value outside the control's range is clamped by the control. A key without control is no
    /// error.
    virtual void show(QLatin1StringView key, const ParameterValue &value) = 0;
};
