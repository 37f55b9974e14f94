// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/HeatmapWorker.h"

#include <algorithm>

void HeatmapWorker::clearStripe()
{
    std::fill(m_density.column(m_stripe.begin), m_density.column(m_stripe.end), 0.0);
}
