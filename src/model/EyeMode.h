#pragma once

/// Which eyes of an examination take part in drawing and exports; the values are stored and shown in this order.
enum class EyeMode { showAll = 0, showDominant = 1, showLeft = 2, showRight = 3, showMean = 4 };
