// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "detection/TwoGaussians.h"

#include <opencv2/ml.hpp>

/// The plain form of fitTwoGaussians: two runs of the library's fit for any number of components and dimensions.
inline std::optional<TwoGaussians> plainTwoGaussians(std::span<const float> values)
{
    const auto mixtureOf = [](int covarianceType) {
        const cv::Ptr<cv::ml::EM> mixture = cv::ml::EM::create();
        mixture->setClustersNumber(2);
        mixture->setCovarianceMatrixType(covarianceType);
        mixture->setTermCriteria(cv::TermCriteria(cv::TermCriteria::COUNT + cv::TermCriteria::EPS, 15000, 1e-5));
        return mixture;
    };
    cv::Mat1f column(static_cast<int>(values.size()), 1);
    std::copy(values.begin(), values.end(), column.begin());
    const cv::Ptr<cv::ml::EM> first = mixtureOf(cv::ml::EM::COV_MAT_SPHERICAL);
    if (!first->trainEM(column))
        return std::nullopt;
    std::vector<cv::Mat> covariances;
    first->getCovs(covariances);
    const cv::Ptr<cv::ml::EM> second = mixtureOf(cv::ml::EM::COV_MAT_DIAGONAL);
    cv::Mat1i labels;
    if (!second->trainE(column, first->getMeans(), covariances, first->getWeights(), cv::noArray(), labels))
        return std::nullopt;
    const cv::Mat1d means = second->getMeans();
    const cv::Mat1d weights = second->getWeights();
    second->getCovs(covariances);
    const auto component = [&](int k) {
        return Gaussian{weights(k), means(k), covariances[static_cast<std::size_t>(k)].at<double>(0, 0)};
    };
    return TwoGaussians{{component(0), component(1)}, {labels.begin(), labels.end()}};
}
