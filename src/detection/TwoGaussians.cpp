// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/TwoGaussians.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using Components = std::array<Gaussian, 2>;
using Limits = std::numeric_limits<double>;

constexpr int mostIterations = 15000;
constexpr double likelihoodEpsilon = 1e-5;
constexpr double smallestVariance = Limits::epsilon();

std::optional<Components> clustersOf(std::span<const float> values)
{
    constexpr int components = 2;
    constexpr int iterations = 10;
    constexpr int attempts = 10;
    constexpr double epsilon = 0.5;
    const cv::Mat1f column(static_cast<int>(values.size()), 1, const_cast<float *>(values.data())); // is only read
    cv::Mat1i labels;
    cv::Mat1f centers;
    cv::kmeans(column, components, labels, cv::TermCriteria(cv::TermCriteria::COUNT, iterations, epsilon), attempts,
               cv::KMEANS_PP_CENTERS, centers);
    Components clusters;
    for (int k = 0; k < components; ++k) {
        Gaussian &cluster = clusters[static_cast<std::size_t>(k)];
        cluster.mean = static_cast<double>(centers(k));
        double squares = 0;
        double count = 0;
        for (int i = 0; i < labels.rows; ++i) {
            if (labels(i) != k)
                continue;
            const double deviation = static_cast<double>(column(i)) - cluster.mean;
            squares += deviation * deviation;
            ++count;
        }
        if (count == 0)
            return std::nullopt;
        cluster.weight = count / static_cast<double>(values.size());
        cluster.variance = std::max(squares * (1 / count), smallestVariance);
    }
    return clusters;
}

/// The values and, for each, how likely it is and what the components' shares in it are.
class Maximisation {
public:
    Maximisation(std::span<const float> values, const Components &start)
        : m_components(start)
        , m_values(values.begin(), values.end())
        , m_logLikelihoods(values.size())
        , m_labels(values.size())
    {
        for (std::vector<double> &shares : m_shares)
            shares.resize(values.size());
    }

    /// Expects and maximises until the likelihood hardly grows any more.
    /// @return false where it is no number that can be worked with.
    bool run()
    {
        double before = 0;
        for (int iteration = 0;; ++iteration) {
            const double likelihood = expect();
            const double growth = likelihood - before;
            const bool hardlyGrows =
                iteration != 0 && (growth < -Limits::epsilon() || growth < likelihoodEpsilon * std::abs(likelihood));
            if (hardlyGrows || iteration == mostIterations - 1)
                return !(likelihood <= -Limits::max() / 10000);
            maximise();
            before = likelihood;
        }
    }

    void normaliseWeights()
    {
        const double factor = 1 / (std::abs(m_components[0].weight) + std::abs(m_components[1].weight));
        for (Gaussian &component : m_components)
            component.weight *= factor;
    }

    TwoGaussians result() && { return {m_components, std::move(m_labels)}; }

private:
    /// A component as the exponent needs it.
    struct Exponent {
        double mean;
        double precision;
        double constant;

        double at(double value) const
        {
            const double deviation = value - mean;
            return constant - 0.5 * (precision * deviation * deviation);
        }
    };

    std::array<Exponent, 2> exponents() const
    {
        const auto positive = [](double weight) { return std::max(weight, Limits::min()); };
        const cv::Matx12d weights(positive(m_components[0].weight), positive(m_components[1].weight));
        cv::Matx12d logWeights;
        cv::log(weights, logWeights); // its last digit is not always that of std::log
        std::array<Exponent, 2> exponents{};
        for (std::size_t k = 0; k < exponents.size(); ++k) {
            const Gaussian &component = m_components[k];
            exponents[k] = {component.mean, 1 / component.variance,
                            logWeights(static_cast<int>(k)) - 0.5 * std::log(component.variance)};
        }
        return exponents;
    }

    /// @return the logarithm of the likelihood of all values.
    double expect()
    {
        constexpr double logTwoPi = 1.8378770664093454836;
        const auto [first, second] = exponents();
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            const double a = first.at(m_values[i]);
            const double b = second.at(m_values[i]);
            const bool isSecond = b > a;
            const double larger = isSecond ? b : a;
            const double less = std::exp(isSecond ? a - larger : b - larger); // the other is exp(0)
            const double sum = less + 1;
            const double factor = 1 / sum;
            m_labels[i] = isSecond ? 1 : 0;
            m_shares[0][i] = (isSecond ? less : 1) * factor;
            m_shares[1][i] = (isSecond ? 1 : less) * factor;
            m_logLikelihoods[i] = std::log(sum) + larger - 0.5 * logTwoPi;
        }
        return cv::sum(m_logLikelihoods)[0];
    }

    void maximise()
    {
        const auto count = static_cast<double>(m_values.size());
        std::array<double, 2> weights{};
        for (std::size_t k = 0; k < weights.size(); ++k) {
            for (const double share : m_shares[k])
                weights[k] += share;
        }
        const double smallestWeight = count * Limits::epsilon();
        for (std::size_t k = 0; k < weights.size(); ++k) {
            if (weights[k] > smallestWeight)
                centre(m_components[k], m_shares[k], 1 / weights[k]);
        }
        for (std::size_t k = 0; k < weights.size(); ++k) {
            const std::size_t other = 1 - k;
            if (weights[k] <= smallestWeight && weights[other] > smallestWeight) // it explains nothing any more
                m_components[k] = m_components[other];
        }
        for (std::size_t k = 0; k < weights.size(); ++k)
            m_components[k].weight = weights[k] * (1 / count);
    }

    void centre(Gaussian &component, const std::vector<double> &shares, double factor) const
    {
        double sum = 0;
        for (std::size_t i = 0; i < shares.size(); ++i)
            sum += shares[i] * m_values[i];
        component.mean = sum * factor;
        double squares = 0;
        for (std::size_t i = 0; i < shares.size(); ++i) {
            const double deviation = m_values[i] - component.mean;
            squares += shares[i] * deviation * deviation;
        }
        component.variance = std::max(squares * factor, smallestVariance);
    }

    Components m_components;
    std::vector<double> m_values;
    std::array<std::vector<double>, 2> m_shares;
    std::vector<double> m_logLikelihoods;
    std::vector<int> m_labels;
};

} // namespace

std::optional<TwoGaussians> fitTwoGaussians(std::span<const float> values)
{
    const std::optional<Components> start = clustersOf(values);
    if (!start)
        return std::nullopt;
    Maximisation maximisation(values, *start);
    if (!maximisation.run())
        return std::nullopt;
    maximisation.normaliseWeights();
    if (!maximisation.run())
        return std::nullopt;
    return std::move(maximisation).result();
}
