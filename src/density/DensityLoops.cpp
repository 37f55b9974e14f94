// SPDX-License-Identifier: GPL-3.0-or-later
#include "density/DensityLoops.h"

#include <bit>
#include <cstddef>
#include <cstring>

namespace densityloops {

namespace {

/// Eight doubles as one value, in registers whatever their width; the compiler splits it where they are narrower.
using Octet [[gnu::vector_size(64)]] = double;
constexpr int octet = 8;

/// All bits, or none: a condition that the compiler turns into no branch.
constexpr long long maskOf(bool condition)
{
    return -static_cast<long long>(condition);
}

double chosen(long long mask, double value, double other)
{
    return std::bit_cast<double>((std::bit_cast<long long>(value) & mask) | (std::bit_cast<long long>(other) & ~mask));
}

} // namespace

VISTRUM_VECTOR_CLONES
void addScaled(double *out, const double *in, double factor, int count)
{
    for (int i = 0; i < count; ++i)
        out[i] += factor * in[i];
}

VISTRUM_VECTOR_CLONES
void scaled(double *out, const double *in, double factor, int count)
{
    for (int i = 0; i < count; ++i)
        out[i] = factor * in[i];
}

VISTRUM_VECTOR_CLONES
void addClampedProducts(double *out, const double *a, const double *b, double factor, double scale, int count)
{
    for (int i = 0; i < count; ++i) {
        const double value = a[i] * b[i] * factor * scale;
        out[i] += value > 1 ? 1 : value;
    }
}

VISTRUM_VECTOR_CLONES
void rotatedCells(int *out, const double *jCos, const double *jSin, double iCos, double iSin, int count)
{
    constexpr int side = 600;
    constexpr int center = side / 2;
    for (int n = 0; n < count; ++n) {
        const int row = static_cast<int>(iCos - jSin[n]) + center;
        const int column = static_cast<int>(jCos[n] + iSin) + center;
        out[n] = row * side + column;
    }
}

VISTRUM_VECTOR_CLONES
double sum(const double *values, int count)
{
    Octet parts{};
    int i = 0;
    for (; i + octet <= count; i += octet) {
        Octet next;
        std::memcpy(&next, values + i, sizeof next);
        parts += next;
    }
    double total = 0;
    for (int lane = 0; lane < octet; ++lane)
        total += parts[lane];
    for (; i < count; ++i)
        total += values[i];
    return total;
}

VISTRUM_VECTOR_CLONES
bool isAnyAbove(const double *values, double limit, int count)
{
    long long above = 0; // as wide as a double, for the vectors' sake
    for (int i = 0; i < count; ++i)
        above |= values[i] > limit ? 1 : 0;
    return above != 0;
}

VISTRUM_VECTOR_CLONES
void addChosen(double *out, const double *values, const quint16 *indices, int count)
{
    for (int i = 0; i < count; ++i)
        out[i] += values[indices[i]];
}

VISTRUM_VECTOR_CLONES
bool fillHoles(double *out, const double *cells, const quint16 *drawn, int stride, int count)
{
    constexpr double share = 0.25;
    long long any = 0;
    for (int i = 0; i < count; ++i) {
        const long long left = maskOf(drawn[i - stride] != 0);
        const long long right = maskOf(drawn[i + stride] != 0);
        const long long above = maskOf(drawn[i - 1] != 0);
        const long long below = maskOf(drawn[i + 1] != 0);
        const double sum = chosen(left, cells[i - stride], 0) + chosen(right, cells[i + stride], 0) +
                           chosen(above, cells[i - 1], 0) + chosen(below, cells[i + 1], 0);
        const long long hole = maskOf(left + right + above + below < -2) & maskOf(drawn[i] == 0);
        out[i] = chosen(hole, share * sum, cells[i]);
        any |= hole;
    }
    return any != 0;
}

VISTRUM_VECTOR_CLONES
bool findEmptyBeside(quint8 *flags, const double *cells, int stride, double lowest, int count)
{
    quint8 any = 0;
    for (int i = 0; i < count; ++i) {
        const bool inside = (cells[i - 1] >= lowest) | (cells[i + 1] >= lowest) | (cells[i - stride] >= lowest) |
                            (cells[i + stride] >= lowest);
        flags[i] = static_cast<quint8>(inside & (cells[i] == 0));
        any |= flags[i];
    }
    return any != 0;
}

VISTRUM_VECTOR_CLONES
void colorIndices(quint16 *out, const double *cells, int count, const ColorSteps &steps)
{
    const double lowest = steps.lowest;
    const double highest = steps.highest;
    for (int i = 0; i < count; ++i) {
        const double step = cells[i] / steps.unit * steps.steps;
        const double raised = step > lowest ? step : lowest; // before the conversion: NaN becomes the lowest
        const int index = static_cast<int>(raised < highest ? raised : highest);
        out[i] = static_cast<quint16>(cells[i] * steps.gain > steps.limit ? index : steps.below);
    }
}

VISTRUM_VECTOR_CLONES
void weightedSum(double *out, const double *blocks, const int *columns, int count, const double *weights, int shift)
{
    static_assert(blockRows == 4 * octet);
    Octet sums[4] = {};
    for (int i = 0; i < count; ++i) {
        const double weight = weights[columns[i] + shift];
        Octet values[4];
        std::memcpy(values, blocks + std::ptrdiff_t{columns[i]} * blockRows, sizeof values);
        sums[0] += weight * values[0];
        sums[1] += weight * values[1];
        sums[2] += weight * values[2];
        sums[3] += weight * values[3];
    }
    std::memcpy(out, sums, sizeof sums);
}

} // namespace densityloops
