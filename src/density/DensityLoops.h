// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// The innermost loops of the heatmaps. Where compiler and processor can, they exist for several widths of vectors, and
/// the widest one that the machine has is taken; the order of all sums is fixed, so that the bits are the same.
namespace densityloops {

/// out[i] += factor * in[i].
void addScaled(double *out, const double *in, double factor, int count);

/// out[i] = factor * in[i].
void scaled(double *out, const double *in, double factor, int count);

/// out[i] += the smaller of 1 and a[i] * b[i] * factor * scale.
void addClampedProducts(double *out, const double *a, const double *b, double factor, double scale, int count);

/// Indices row * 600 + column of the cells that the steps of a line hit: row = trunc(iCos - jSin[n]) + 300 and
/// column = trunc(jCos[n] + iSin) + 300.
void rotatedCells(int *out, const double *jCos, const double *jSin, double iCos, double iSin, int count);

/// Sum of the values, in eight interleaved parts.
double sum(const double *values, int count);

/// Whether one of the values is above the limit.
bool isAnyAbove(const double *values, double limit, int count);

/// out[i] += values[indices[i]].
void addChosen(double *out, const double *values, const quint16 *indices, int count);

/// Copies cells. One that is not drawn, but has three or four drawn neighbours, becomes a quarter of their sum: of
/// i - stride, i + stride, i - 1 and i + 1, in this order. Returns whether there is one.
bool fillHoles(double *out, const double *cells, const quint16 *drawn, int stride, int count);

/// Sets a flag for each cell that is 0 and has a neighbour of at least `lowest`: cells[i - 1], cells[i + 1],
/// cells[i - stride] or cells[i + stride]. Returns whether there is one.
bool findEmptyBeside(quint8 *flags, const double *cells, int stride, double lowest, int count);

/// How `colorIndices` chooses an index; see DensityColoring.
struct ColorSteps {
    double gain;
    double limit;
    double unit;
    double steps;
    int lowest;
    int highest;
    int below;
};

/// The colour of each cell.
void colorIndices(quint16 *out, const double *cells, int count, const ColorSteps &steps);

/// Rows that the smoothing across columns takes at once.
inline constexpr int blockRows = 32;

/// Adds up blocks of `blockRows` values, each times its weight, in their order: out = sum of weights[columns[i] +
/// shift] * blocks[columns[i]], with block n at blocks + n * blockRows.
void weightedSum(double *out, const double *blocks, const int *columns, int count, const double *weights, int shift);

} // namespace densityloops
