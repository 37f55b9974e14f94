// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/MeanShiftClustering.h"

#include "clustering/GaussianField.h"

#include <algorithm>
#include <limits>

namespace {

bool isFinite(PlanePoint point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// The points without repetitions, ordered by x and y and counted from the smallest coordinates: an order of places,
/// not of the input, and the same numbers wherever the points lie as a whole.
struct OrderedPlaces {
    std::vector<PlanePoint> points;
    std::vector<double> weights; ///< how often each is there
    std::vector<size_t> sources; ///< of the input, in the order of the places
    std::vector<size_t> placeOf; ///< for each source
};

OrderedPlaces placesOf(const std::vector<double> &data)
{
    const auto point = [&](size_t i) { return PlanePoint{data[2 * i], data[2 * i + 1]}; };
    OrderedPlaces places;
    for (size_t i = 0; i < data.size() / 2; ++i) {
        if (isFinite(point(i)))
            places.sources.push_back(i);
    }
    const auto key = [&](size_t i) { return std::pair(point(i).x, point(i).y); };
    std::stable_sort(places.sources.begin(), places.sources.end(), [&](size_t a, size_t b) { return key(a) < key(b); });
    double lowestY = std::numeric_limits<double>::infinity();
    for (const size_t source : places.sources)
        lowestY = std::min(lowestY, point(source).y);
    for (size_t n = 0; n < places.sources.size(); ++n) {
        const size_t source = places.sources[n];
        if (n == 0 || key(source) != key(places.sources[n - 1])) {
            places.points.push_back({point(source).x - point(places.sources[0]).x, point(source).y - lowestY});
            places.weights.push_back(0);
        }
        ++places.weights.back();
        places.placeOf.push_back(places.points.size() - 1);
    }
    return places;
}

PlanePoint climbed(PlanePoint point, GaussianField &field, double shortestStep, double rate, int iterations)
{
    for (int i = 0; i < iterations; ++i) {
        const PlanePoint shift = field.shiftAt(point);
        const PlanePoint next{point.x + rate * shift.x, point.y + rate * shift.y};
        if (!isFinite(next))
            break;
        const double step = std::hypot(rate * shift.x, rate * shift.y);
        point = next;
        if (step <= shortestStep)
            break;
    }
    return point;
}

/// The number of the cluster of each arrived point, from 1.
std::vector<size_t> modesOf(const std::vector<PlanePoint> &points, double radius)
{
    const PointIndex index(points);
    std::vector<size_t> numbers(points.size(), 0);
    size_t modes = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        if (numbers[i] != 0)
            continue;
        numbers[i] = ++modes;
        for (const size_t near : index.within(points[i], radius)) {
            if (numbers[near] == 0)
                numbers[near] = modes;
        }
    }
    return numbers;
}

/// Numbers them anew in the order in which they first appear; 0 is a cluster of its own each time.
std::vector<double> inOrderOfAppearance(const std::vector<size_t> &numbers)
{
    std::vector<double> labels;
    std::vector<double> labelOf(numbers.size() + 1, 0);
    double last = 0;
    for (const size_t number : numbers) {
        if (number == 0 || labelOf[number] == 0)
            labelOf[number] = ++last;
        labels.push_back(labelOf[number]);
    }
    return labels;
}

} // namespace

// A library with a class of this name and these arguments can stand in for it, and such a one takes a copy.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void MeanShiftClustering::cluster(std::vector<double> data, double radius, double rate, int iterations, int)
{
    constexpr double widestPx = 1e9; // wider ones are flat over any data, and their squares leave the numbers
    constexpr double shortestStep = 1e-6;
    const double width = radius > 0 ? std::min(radius, widestPx) : 0;
    const OrderedPlaces places = placesOf(data);
    std::vector<PlanePoint> points = places.points;
    if (width > 0) {
        GaussianField field(places.points, places.weights, width);
        for (size_t i = 0; i < points.size(); ++i) {
            points[i] = climbed(points[i], field, shortestStep * width, rate, iterations);
            for (double n = 0; arrived && n < places.weights[i]; ++n)
                arrived();
        }
    }
    const std::vector<size_t> modes = modesOf(points, width);
    std::vector<size_t> numbers(data.size() / 2, 0);
    for (size_t n = 0; n < places.sources.size(); ++n)
        numbers[places.sources[n]] = modes[places.placeOf[n]];
    labels = inOrderOfAppearance(numbers);
}
