// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/GazePoint.h"

#include "base/TextFormat.h"

QString GazePoint::toolTipText() const
{
    return QStringLiteral("Time: %1\r\nCoordenates (x,y): (%2, %3)") // sic
        .arg(text::clockTime(time, QStringLiteral("hh:mm:ss.zzzz")), text::general6(x), text::general6(y));
}
