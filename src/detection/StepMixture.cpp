#include "detection/StepMixture.h"

#include <opencv2/ml.hpp>

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype fewestSamples = 3;
constexpr int components = 2;
constexpr int mostIterations = 15000;
constexpr double likelihoodEpsilon = 1e-5;

/// Puts the generator of this thread to a fixed state while it lives, and back to what it was.
class FixedRandomNumbers {
public:
    FixedRandomNumbers() { cv::theRNG() = cv::RNG(seed); }
    ~FixedRandomNumbers() { cv::theRNG() = m_before; }
    FixedRandomNumbers(const FixedRandomNumbers &) = delete;
    FixedRandomNumbers &operator=(const FixedRandomNumbers &) = delete;

private:
    static constexpr uint64 seed = 1;
    const cv::RNG m_before = cv::theRNG();
};

/// One row a step, in px, with the digits that the fit works with.
cv::Mat1f stepLengths(const QList<GazePoint> &samples)
{
    cv::Mat1f lengths(static_cast<int>(samples.size() - 1), 1);
    for (int i = 0; i < lengths.rows; ++i) {
        const double dx = samples[i].x - samples[i + 1].x;
        const double dy = samples[i].y - samples[i + 1].y;
        lengths(i) = static_cast<float>(std::sqrt(dy * dy + dx * dx));
    }
    return lengths;
}

cv::Ptr<cv::ml::EM> mixtureOf(int covarianceType)
{
    const cv::Ptr<cv::ml::EM> mixture = cv::ml::EM::create();
    mixture->setClustersNumber(components);
    mixture->setCovarianceMatrixType(covarianceType);
    mixture->setTermCriteria(
        cv::TermCriteria(cv::TermCriteria::COUNT + cv::TermCriteria::EPS, mostIterations, likelihoodEpsilon));
    return mixture;
}

std::variant<StepLabels, FitFailure> fitted(const cv::Mat1f &lengths)
{
    const FixedRandomNumbers fixed;
    const FitFailure failure{QStringLiteral("no mixture fits the lengths of the steps")};
    const cv::Ptr<cv::ml::EM> first = mixtureOf(cv::ml::EM::COV_MAT_SPHERICAL);
    if (!first->trainEM(lengths))
        return failure;
    std::vector<cv::Mat> covariances;
    first->getCovs(covariances);
    const cv::Ptr<cv::ml::EM> second = mixtureOf(cv::ml::EM::COV_MAT_DIAGONAL);
    cv::Mat1i labels;
    if (!second->trainE(lengths, first->getMeans(), covariances, first->getWeights(), cv::noArray(), labels))
        return failure;
    const cv::Mat1d means = second->getMeans();
    qDebug("%g to %g", means(0), means(1));
    return StepLabels{std::vector<int>(labels.begin(), labels.end()), means(0) <= means(1) ? 0 : 1};
}

} // namespace

std::variant<StepLabels, FitFailure> labelSteps(const QList<GazePoint> &samples)
{
    if (samples.size() < fewestSamples)
        return FitFailure{QStringLiteral("fewer than three usable samples")};
    const cv::Mat1f lengths = stepLengths(samples);
    if (!std::all_of(lengths.begin(), lengths.end(), [](float length) { return std::isfinite(length); }))
        return FitFailure{QStringLiteral("a step between two samples has no finite length")};
    try {
        return fitted(lengths);
    } catch (const cv::Exception &exception) {
        return FitFailure{QStringLiteral("no mixture fits the lengths of the steps: %1")
                              .arg(QString::fromStdString(exception.err).simplified())};
    }
}
