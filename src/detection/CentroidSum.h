// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

#include <algorithm>
#include <cmath>
#include <limits>

/// The centroid of a fixation: sums that are cut to whole numbers after each sample, divided as whole numbers. That is
/// kept; the textbook mean is larger by up to one pixel at positive places, before it is cut, and by up to two after.
class CentroidSum {
public:
    void add(double x, double y)
    {
        m_x = truncatedSum(m_x, x);
        m_y = truncatedSum(m_y, y);
        ++m_count;
    }

    /// In whole pixels; at least one sample must have been added.
    QPoint centroid() const
    {
        if (m_count == 0)
            return {}; // never asked for
        return {asPixel(m_x / m_count), asPixel(m_y / m_count)};
    }

private:
    /// Whole part of sum + value. What is not a number adds nothing, and the sum stays within its type.
    static qint64 truncatedSum(qint64 sum, double value)
    {
        // On the canvas the whole part of the sum is the sum of whole parts, unless rounding takes it to the next
        // number. This way no sample waits for the conversions of the one before it.
        constexpr double canvasEnd = 1e5;
        constexpr qint64 exactSum = 1000000000;
        constexpr double roundingEnd = 1 - 1e-6; // a double of this size is rounded by 1e-7 at most
        if (value >= 0 && value < canvasEnd && sum >= 0 && sum < exactSum) {
            const auto whole = static_cast<qint64>(value);
            if (value - static_cast<double>(whole) < roundingEnd)
                return sum + whole;
        }
        constexpr double usual = 1e9;
        constexpr qint64 usualSum = 1000000000000000000;
        const double total = static_cast<double>(sum) + value;
        if (std::abs(value) < usual && std::abs(sum) < usualSum)
            return static_cast<qint64>(total);
        constexpr double most = 9.2e18;
        return std::isnan(total) ? sum : static_cast<qint64>(std::clamp(total, -most, most));
    }

    static int asPixel(qint64 value)
    {
        using Limits = std::numeric_limits<int>;
        return static_cast<int>(std::clamp<qint64>(value, Limits::min(), Limits::max()));
    }

    qint64 m_x = 0;
    qint64 m_y = 0;
    qint64 m_count = 0;
};
