// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ScanpathSection.h"
#include "model/SymmetricMatrix.h"

#include <opencv2/core.hpp>
#include <QTest>

#include <cmath>
#include <random>

// The expected values are those of the library whose solver was used before: other digits would change tables and
// pictures.

namespace {

std::array<EigenPair, 2> pairsOfTheLibrary(const SymmetricMatrix &m)
{
    const cv::Matx22d matrix(m.xx, m.xy, m.xy, m.yy);
    cv::Mat1d values;
    cv::Mat1d vectors;
    cv::eigen(matrix, values, vectors);
    return {EigenPair{values(0), vectors(0, 0), vectors(0, 1)}, EigenPair{values(1), vectors(1, 0), vectors(1, 1)}};
}

bool areSameBits(const EigenPair &a, const EigenPair &b)
{
    const auto areSame = [](double x, double y) { return x == y && std::signbit(x) == std::signbit(y); };
    return areSame(a.value, b.value) && areSame(a.x, b.x) && areSame(a.y, b.y);
}

PrincipalAxes axesOfTheLibrary(const QList<GazePoint> &samples)
{
    cv::Mat1d positions(static_cast<int>(samples.size()), 2);
    for (int i = 0; i < positions.rows; ++i) {
        positions(i, 0) = samples[i].x;
        positions(i, 1) = samples[i].y;
    }
    const cv::PCA pca(positions, cv::noArray(), cv::PCA::DATA_AS_ROW, 2);
    const auto axis = [&](int row) {
        const double length = std::sqrt(std::max(0.0, pca.eigenvalues.at<double>(row)));
        return QVector2D(static_cast<float>(pca.eigenvectors.at<double>(row, 0) * length),
                         static_cast<float>(pca.eigenvectors.at<double>(row, 1) * length));
    };
    return {axis(0), axis(1)};
}

bool areSameBits(QVector2D a, QVector2D b)
{
    return a.x() == b.x() && a.y() == b.y(); // QVector2D::operator== is fuzzy in later versions
}

} // namespace

class TestSymmetricMatrix : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void bitsOfTheLibrary_data();
    void bitsOfTheLibrary();
    void axesHaveTheBitsOfTheLibrary_data();
    void axesHaveTheBitsOfTheLibrary();
    void whatIsNoNumberComesToAnEnd();
};

void TestSymmetricMatrix::bitsOfTheLibrary_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("covariances") << 0;
    QTest::newRow("of samples on a line") << 1;
    QTest::newRow("diagonal") << 2;
    QTest::newRow("equal variances") << 3;
    QTest::newRow("whole numbers") << 4;
    QTest::newRow("one variance is nothing") << 5;
    QTest::newRow("very small") << 6;
    QTest::newRow("very large") << 7;
    QTest::newRow("hardly correlated") << 8;
    QTest::newRow("nothing") << 9;
}

void TestSymmetricMatrix::bitsOfTheLibrary()
{
    QFETCH(int, kind);
    std::mt19937 random(static_cast<unsigned>(kind));
    std::normal_distribution<double> normal(0, 10);
    for (int round = 0; round < 20000; ++round) {
        const double a = normal(random);
        const double b = normal(random);
        const double c = normal(random);
        const double d = normal(random);
        const SymmetricMatrix any{a * a + b * b, a * c + b * d, c * c + d * d};
        const double wholeXx = std::round(any.xx);
        const SymmetricMatrix kinds[] = {any,
                                         {a * a, a * c, c * c},
                                         {any.xx, 0, any.yy},
                                         {any.xx, any.xy, any.xx},
                                         {wholeXx, std::round(any.xy), std::round(any.yy)},
                                         {0, 0, any.yy},
                                         {any.xx * 1e-300, any.xy * 1e-300, any.yy * 1e-300},
                                         {any.xx * 1e290, any.xy * 1e290, any.yy * 1e290},
                                         {any.xx, any.xy * 1e-12, any.yy},
                                         {}};
        const SymmetricMatrix &matrix = kinds[kind];
        const auto own = eigenPairs(matrix);
        const auto expected = pairsOfTheLibrary(matrix);
        QVERIFY2(areSameBits(own[0], expected[0]) && areSameBits(own[1], expected[1]),
                 qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestSymmetricMatrix::axesHaveTheBitsOfTheLibrary_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<int>("rounds");
    QTest::newRow("fewest") << 4 << 20000;
    QTest::newRow("fixations at 60 Hz") << 15 << 20000;
    QTest::newRow("fixations at 500 Hz") << 125 << 4000;
    QTest::newRow("a long fixation") << 3001 << 100;
    QTest::newRow("a cluster of millions") << 1000003 << 1;
}

void TestSymmetricMatrix::axesHaveTheBitsOfTheLibrary()
{
    QFETCH(int, samples);
    QFETCH(int, rounds);
    std::mt19937 random(static_cast<unsigned>(samples));
    for (int round = 0; round < rounds; ++round) {
        std::normal_distribution<double> normal(0, 0.5 + static_cast<double>(random() % 30));
        QList<GazePoint> gaze;
        for (int i = 0; i < samples; ++i) {
            const double x = 1000 + normal(random);
            const double y = 700 + normal(random);
            switch (round % 4) {
            case 0: // as measured
                gaze << GazePoint(i, x, y, 0, 0, 1);
                break;
            case 1: // in whole pixels
                gaze << GazePoint(i, std::round(x), std::round(y), 0, 0, 1);
                break;
            case 2: // on a line
                gaze << GazePoint(i, x, 2 * x - 30, 0, 0, 1);
                break;
            default: // with one decimal, as files have it
                gaze << GazePoint(i, std::round(10 * x) / 10, std::round(10 * y) / 10, 0, 0, 1);
            }
        }
        const PrincipalAxes own = principalAxes(gaze);
        const PrincipalAxes expected = axesOfTheLibrary(gaze);
        QVERIFY2(areSameBits(own.major, expected.major) && areSameBits(own.minor, expected.minor),
                 qPrintable(QStringLiteral("round %1").arg(round)));
    }
}

void TestSymmetricMatrix::whatIsNoNumberComesToAnEnd()
{
    const double notANumber = std::nan("");
    const auto pairs = eigenPairs({notANumber, notANumber, notANumber});
    QVERIFY(std::isnan(pairs[0].value));
}

QTEST_GUILESS_MAIN(TestSymmetricMatrix)
#include "TestSymmetricMatrix.moc"
