// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The ways in which a density becomes a picture.
enum class HeatmapLook {
    AbsoluteScale, ///< colours by numbers of events, with figures for the labels
    RelativeScale, ///< colours by the share of the maximum; empty cells are transparent
    ShadowMap      ///< a black veil that density opens
};
