// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "aoi/generation/Grid.h"

#include <QList>
#include <QPolygon>

#include <algorithm>
#include <cmath>
#include <vector>

/// Both searches of regions as whole passes over tables of rows, cell by cell, as their definitions read.
namespace plain {

template <class T>
using Table = std::vector<std::vector<T>>; ///< [x][y]

template <class T>
Table<T> tableOf(const Grid<T> &grid)
{
    Table<T> table;
    for (int x = 0; x < grid.width(); ++x)
        table.emplace_back(grid.column(x), grid.column(x) + grid.height());
    return table;
}

struct Seed {
    int x = 0;
    int y = 0;
};

/// What one search works on.
class Regions {
public:
    explicit Regions(const Grid<double> &density)
        : width(density.width())
        , height(density.height())
        , heat(tableOf(density))
        , work(std::size_t(width), std::vector<double>(std::size_t(height)))
        , directionX(std::size_t(width), std::vector<int>(std::size_t(height)))
        , directionY(directionX)
        , labels(directionX)
    {
        for (const auto &column : heat) {
            for (const double value : column)
                heatMax = std::max(heatMax, value);
        }
        if (heatMax == 0)
            heatMax = 1;
    }

    // --- standard search

    void sumBlocks()
    {
        for (int x = 4; x <= width - 5; ++x) {
            for (int y = 4; y <= height - 5; ++y) {
                double sum = 0;
                for (int i = x - 4; i <= x + 3; ++i) {
                    double down = 0;
                    for (int j = y - 4; j <= y + 3; ++j)
                        down += at(heat, i, j);
                    sum += down;
                }
                at(work, x, y) = sum / 81.0;
            }
        }
    }

    void preThreshold(double limit)
    {
        for (int x = 0; x < width; ++x) {
            for (int y = 0; y < height; ++y) {
                if (!(at(work, x, y) > limit && isInterior(x, y)))
                    at(work, x, y) = 0;
            }
        }
    }

    void findMaxima(int window)
    {
        maxima.clear();
        dropped = 0;
        for (int left = 1; left < width - window; left += window) {
            for (int top = 1; top < height - window; top += window) {
                double best = 0;
                Seed seed;
                for (int x = left; x < left + window; ++x) {
                    for (int y = top; y < top + window; ++y) {
                        if (at(work, x, y) > best) {
                            best = at(work, x, y);
                            seed = {x, y};
                        }
                    }
                }
                if (best > 0 && maxima.size() < 500)
                    maxima.push_back(seed);
                else if (best > 0)
                    ++dropped;
            }
        }
    }

    void merge(int window)
    {
        for (std::size_t a = 0; a < maxima.size(); ++a) {
            for (std::size_t b = a + 1; b < maxima.size(); ++b) {
                Seed &first = maxima[a];
                Seed &second = maxima[b];
                if (first.x <= 0 || first.y <= 0 || second.x <= 0 || second.y <= 0)
                    continue;
                if (std::hypot(first.x - second.x, first.y - second.y) >= window)
                    continue;
                if (at(work, first.x, first.y) > at(work, second.x, second.y))
                    second = {};
                else
                    first = {};
            }
        }
    }

    QList<QPoint> seeds() const
    {
        QList<QPoint> remaining;
        for (const Seed &seed : maxima) {
            if (seed.x > 0 && seed.y > 0)
                remaining << QPoint(seed.x, seed.y);
        }
        return remaining;
    }

    void grow(double share, int limit)
    {
        for (const Seed &seed : maxima) {
            if (seed.x > 0 && seed.y > 0)
                growFrom(seed.x, seed.y, at(work, seed.x, seed.y) * share, limit);
        }
    }

    void binarise()
    {
        for (int x = 0; x < width; ++x) {
            for (int y = 0; y < height; ++y)
                at(work, x, y) = at(work, x, y) == -1.0 && isInterior(x, y) ? 1.0 : 0.0;
        }
    }

    void closeHoles()
    {
        for (int x = 2; x < width - 1; ++x) {
            for (int y = 2; y < height - 1; ++y) {
                double sum = 0;
                for (int i = -1; i <= 1; ++i) {
                    for (int j = -1; j <= 1; ++j)
                        sum += i != 0 || j != 0 ? at(work, x + i, y + j) : 0;
                }
                if (at(work, x, y) == 0.0 && sum >= 6)
                    at(work, x, y) = 1.0;
            }
        }
    }

    void markBorders()
    {
        for (int x = 2; x < width - 1; ++x) {
            for (int y = 2; y < height - 1; ++y)
                markBorder(x, y);
        }
        for (int x = width - 2; x >= 2; --x) {
            for (int y = height - 2; y >= 2; --y)
                markBorder(x, y);
        }
    }

    QList<QPolygon> standardContours(int minimum)
    {
        QList<QPolygon> found;
        for (int x = 2; x < width - 1; ++x) {
            for (int y = 2; y < height - 1; ++y) {
                if (at(work, x, y) == 2.0)
                    keep(found, trace(work, x, y, 3.0), minimum);
            }
        }
        return found;
    }

    // --- gradient search

    double smooth()
    {
        for (int x = 1; x < width - 1; ++x) {
            for (int y = 1; y < height - 1; ++y)
                at(work, x, y) = at(heat, x, y);
        }
        double kernel[7][7];
        for (int i = -3; i <= 3; ++i) {
            for (int j = -3; j <= 3; ++j)
                kernel[i + 3][j + 3] = std::exp(-(i * i + j * j) / 50.0) / 157.07963267948966;
        }
        const double cut = kernel[0][4];
        for (auto &row : kernel) {
            for (double &value : row)
                value = value < cut ? 0 : value;
        }
        double highest = 0;
        for (int x = 3; x < width - 3; ++x) {
            for (int y = 3; y < height - 3; ++y) {
                double sum = 0;
                for (int i = 0; i < 6; ++i) {
                    for (int j = 0; j < 6; ++j)
                        sum += at(heat, x - 3 + i, y - 3 + j) * kernel[i][j];
                }
                at(work, x, y) = sum;
                highest = std::max(highest, sum);
            }
        }
        return highest;
    }

    void findDirections()
    {
        for (int x = 1; x < width - 1; ++x) {
            for (int y = 1; y < height - 1; ++y) {
                double best = at(work, x, y);
                int sx = 0;
                int sy = 0;
                int count = 1;
                for (int dx = -1; dx <= 1; ++dx) {
                    for (int dy = -1; dy <= 1; ++dy) {
                        const double value = at(work, x + dx, y + dy);
                        if (value == best) {
                            sx += dx;
                            sy += dy;
                            ++count;
                        } else if (value > best) {
                            best = value;
                            sx = dx;
                            sy = dy;
                            count = 1;
                        }
                    }
                }
                at(directionX, x, y) = int(double(sx) / count + (sx < 0 ? -0.5 : 0.5));
                at(directionY, x, y) = int(double(sy) / count + (sy < 0 ? -0.5 : 0.5));
            }
        }
    }

    QList<QPoint> findPeaks(int reach)
    {
        QList<QPoint> found;
        for (int x = reach; x < width - reach; ++x) {
            for (int y = reach; y < height - reach; ++y) {
                const bool isPeak = at(directionX, x, y) == 0 && at(directionY, x, y) == 0 && at(labels, x, y) == 0 &&
                                    at(work, x, y) > 0;
                if (!isPeak)
                    continue;
                int label = 0;
                for (int i = -reach; i <= reach; ++i) {
                    for (int j = -reach; j <= reach; ++j)
                        label = at(labels, x + i, y + j) > 0 ? at(labels, x + i, y + j) : label;
                }
                if (label == 0) {
                    found << QPoint(x, y);
                    label = int(found.size());
                }
                at(labels, x, y) = label;
            }
        }
        return found;
    }

    void flood()
    {
        for (bool changed = true; changed;) {
            changed = false;
            for (int x = 1; x < width - 1; ++x) {
                for (int y = 1; y < height - 1; ++y) {
                    const int next = at(labels, x + at(directionX, x, y), y + at(directionY, x, y));
                    if (at(labels, x, y) == 0 && next > 0) {
                        at(labels, x, y) = next;
                        changed = true;
                    }
                }
            }
        }
    }

    void erode()
    {
        for (bool changed = true; changed;) {
            changed = false;
            for (int x = 1; x < width - 1; ++x) {
                for (int y = 1; y < height - 1; ++y) {
                    if (at(labels, x, y) > 0 && countInBlock(x, y, at(labels, x, y)) < 5) {
                        at(labels, x, y) = 0;
                        changed = true;
                    }
                }
            }
        }
    }

    void hollow()
    {
        for (int x = 1; x < width - 1; ++x) {
            for (int y = 1; y < height - 1; ++y) {
                const int label = at(labels, x, y);
                bool isInner = label > 0;
                for (int i = -1; i <= 1; ++i) {
                    for (int j = -1; j <= 1; ++j)
                        isInner = isInner && (at(labels, x + i, y + j) == label || at(labels, x + i, y + j) < 0);
                }
                if (isInner)
                    at(labels, x, y) = -1;
            }
        }
        for (auto &column : labels)
            std::replace(column.begin(), column.end(), -1, 0);
    }

    void thin()
    {
        for (int x = 1; x < width - 1; ++x) {
            for (int y = 1; y < height - 1; ++y) {
                const int label = at(labels, x, y);
                if (label <= 0)
                    continue;
                const bool right = at(labels, x + 1, y) == label;
                const bool left = at(labels, x - 1, y) == label;
                const bool down = at(labels, x, y + 1) == label;
                const bool up = at(labels, x, y - 1) == label;
                if ((right && down && at(labels, x - 1, y - 1) != label) ||
                    (right && up && at(labels, x - 1, y + 1) != label) ||
                    (left && up && at(labels, x + 1, y + 1) != label) ||
                    (left && down && at(labels, x + 1, y - 1) != label))
                    at(labels, x, y) = 0;
            }
        }
    }

    QList<QPolygon> gradientContours(int minimum)
    {
        QList<QPolygon> found;
        for (int x = 2; x < width - 1; ++x) {
            for (int y = 2; y < height - 1; ++y) {
                if (at(labels, x, y) > 0)
                    keep(found, trace(labels, x, y, -1), minimum);
            }
        }
        return found;
    }

    int width;
    int height;
    double heatMax = 0;
    Table<double> heat;
    Table<double> work;
    Table<int> directionX;
    Table<int> directionY;
    Table<int> labels;
    std::vector<Seed> maxima;
    int dropped = 0;

private:
    template <class T>
    static T &at(Table<T> &table, int x, int y)
    {
        return table[std::size_t(x)][std::size_t(y)];
    }

    bool isInterior(int x, int y) const { return x >= 2 && x < width - 1 && y >= 2 && y < height - 1; }

    void growFrom(int x, int y, double threshold, int limit)
    {
        if (threshold <= 0)
            return;
        for (int r = 1; r < limit; ++r) {
            bool any = false;
            const auto visit = [&](int cx, int cy) {
                if (cx >= 1 && cx < width && cy >= 1 && cy < height && at(work, cx, cy) > threshold) {
                    at(work, cx, cy) = -1.0;
                    any = true;
                }
            };
            for (int cx = x - r; cx <= x + r - 1; ++cx)
                visit(cx, y - r);
            for (int cy = y - r; cy <= y + r - 1; ++cy)
                visit(x - r, cy);
            for (int cx = x + r; cx >= x - r + 1; --cx)
                visit(cx, y + r);
            for (int cy = y + r; cy >= y - r + 1; --cy)
                visit(x + r, cy);
            if (!any)
                return;
        }
    }

    void markBorder(int x, int y)
    {
        if (!(at(work, x, y) > 0))
            return;
        for (int i = -1; i <= 1; ++i) {
            for (int j = -1; j <= 1; ++j) {
                if (at(work, x + i, y + j) == 0.0)
                    at(work, x, y) = 2.0;
            }
        }
    }

    int countInBlock(int x, int y, int label)
    {
        int count = 0;
        for (int i = -1; i <= 1; ++i) {
            for (int j = -1; j <= 1; ++j)
                count += at(labels, x + i, y + j) == label ? 1 : 0;
        }
        return count;
    }

    template <class T>
    static QPolygon trace(Table<T> &table, int x, int y, T visited)
    {
        const T wanted = at(table, x, y);
        QPolygon polygon;
        for (bool going = true; going;) {
            polygon << QPoint(x, y);
            at(table, x, y) = visited;
            going = false;
            for (int dx = -1; dx <= 1 && !going; ++dx) {
                for (int dy = -1; dy <= 1 && !going; ++dy) {
                    if (at(table, x + dx, y + dy) == wanted) {
                        x += dx;
                        y += dy;
                        going = true;
                    }
                }
            }
        }
        return polygon;
    }

    static void keep(QList<QPolygon> &found, const QPolygon &polygon, int minimum)
    {
        if (polygon.size() > minimum)
            found << polygon;
    }
};

} // namespace plain
