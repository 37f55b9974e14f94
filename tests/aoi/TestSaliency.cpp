// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/IntegratedSaliency.h"
#include "aoi/saliency/IttiSaliency.h"
#include "aoi/saliency/PictureMatrix.h"
#include "aoi/saliency/Saliency.h"
#include "aoi/saliency/SmoothingKernel.h"
#include "PlainSaliency.h"

#include <QImage>
#include <QPainter>
#include <QTest>

#include <random>

class TestSaliency : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void pixelsAreBlueGreenRed();
    void noPictureHasNoSaliency();
    void aStopGivesNothing_data();
    void aStopGivesNothing();
    void numbersBelowOneTakeTheirDefaults_data();
    void numbersBelowOneTakeTheirDefaults();
    void anEvenKernelGrowsByOne();
    void anOddWindowIsMadeEven();
    void aKernelEndsWhereItsWeightsDo();
    void colorsAreFarFromTheMean();
    void redAndBlueAreExchanged();
    void equalRatiosGiveZero();
    void aPlainPictureHasNoSaliency_data();
    void aPlainPictureHasNoSaliency();
    void asThePlainForm_data();
    void asThePlainForm();
    void onTheCanvas();
    void asAPicture();
};

namespace {

constexpr SaliencyNumbers unset{0, 0, 0, 0};

/// Blobs of colour, lines and noise.
QImage scenery(int width, int height, unsigned seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    std::mt19937 random(seed);
    image.fill(QColor(90, 110, 130));
    QPainter painter(&image);
    for (int i = 0; i < 25; ++i) {
        painter.setBrush(QColor(int(random() % 256), int(random() % 256), int(random() % 256)));
        painter.drawEllipse(int(random() % unsigned(width)), int(random() % unsigned(height)), 10 + int(random() % 60),
                            10 + int(random() % 60));
    }
    painter.end();
    for (int i = 0; i < width * height / 50; ++i)
        image.setPixel(int(random() % unsigned(width)), int(random() % unsigned(height)), QRgb(random()));
    return image;
}

double largestDifference(const cv::Mat &a, const cv::Mat &b)
{
    return a.size() == b.size() && a.type() == b.type() ? cv::norm(a, b, cv::NORM_INF) : 1e9;
}

void addMethods()
{
    QTest::addColumn<SaliencyMethod>("method");
    for (const SaliencyModel &model : saliencyModels)
        QTest::newRow(model.name.data()) << model.method;
}

cv::Mat plainMap(SaliencyMethod method, const cv::Mat &picture, const SaliencyNumbers &n)
{
    switch (method) {
    case SaliencyMethod::Itti:
        return plain::itti(picture, n[1], n[2], n[3]);
    case SaliencyMethod::FrequencyTuned:
        return plain::frequencyTuned(picture, n[0], n[1], n[2]);
    case SaliencyMethod::IntegratedFeatures:
        return plain::integrated(picture, n[0], n[1], n[2], n[3]);
    }
    return {};
}

} // namespace

void TestSaliency::pixelsAreBlueGreenRed()
{
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(QColor(1, 2, 3, 40));
    image.setPixelColor(2, 1, QColor(10, 20, 30));
    const cv::Mat pixels = pictureMatrix(image);
    QCOMPARE(pixels.size(), cv::Size(3, 2));
    QCOMPARE(pixels.at<cv::Vec3b>(1, 2), cv::Vec3b(30, 20, 10));
    const cv::Vec3b transparent = pixels.at<cv::Vec3b>(0, 0);
    QVERIFY(std::abs(transparent[0] - 3) <= 1 && std::abs(transparent[2] - 1) <= 1);
}

void TestSaliency::noPictureHasNoSaliency()
{
    for (const SaliencyModel &model : saliencyModels)
        QVERIFY(saliencyMap(model.method, QImage(), unset).empty());
    QVERIFY(saliencyPicture({}, {10, 10}).isNull());
}

void TestSaliency::aStopGivesNothing_data()
{
    addMethods();
}

void TestSaliency::aStopGivesNothing()
{
    QFETCH(SaliencyMethod, method);
    std::stop_source source;
    source.request_stop();
    QVERIFY(saliencyMap(method, scenery(80, 60, 1), unset, source.get_token()).empty());
}

void TestSaliency::numbersBelowOneTakeTheirDefaults_data()
{
    addMethods();
}

void TestSaliency::numbersBelowOneTakeTheirDefaults()
{
    QFETCH(SaliencyMethod, method);
    const QImage picture = scenery(160, 120, 2);
    SaliencyNumbers defaults{};
    for (const SaliencyModel &model : saliencyModels) {
        for (std::size_t i = 0; i < defaults.size() && model.method == method; ++i)
            defaults[i] = model.numbers[i].initial;
    }
    const cv::Mat expected = saliencyMap(method, picture, defaults);
    QCOMPARE(largestDifference(saliencyMap(method, picture, unset), expected), 0.0);
    QCOMPARE(largestDifference(saliencyMap(method, picture, {-5, -1, -2000000000, 0}), expected), 0.0);
}

void TestSaliency::anEvenKernelGrowsByOne()
{
    const QImage picture = scenery(100, 80, 3);
    const auto map = [&](int size) { return saliencyMap(SaliencyMethod::FrequencyTuned, picture, {size, 4, 4, 0}); };
    QCOMPARE(largestDifference(map(4), map(5)), 0.0);
    QVERIFY(largestDifference(map(5), map(7)) > 0);
}

void TestSaliency::anOddWindowIsMadeEven()
{
    const auto sides = [](int window) {
        QList<int> found;
        for (const integrated::Blur &blur : integrated::blurs(1000, {500, 250, 8, window}))
            found << blur.side;
        return found;
    };
    // sigma 125, 137.5, 151.25, 166.375, 183.0 and 201.3, which is beyond 1000 / 5; the window is cut to an even number
    // each time: 40, 44, 48 (48.4), 52 (52.8), 56 (57.2), 60 (61.6)
    QCOMPARE(sides(40), (QList<int>{41, 45, 49, 53, 57, 61}));
    QCOMPARE(sides(41), sides(40));
    QVERIFY(std::abs(integrated::blurs(1000, {500, 250, 8, 40}).back().sigma - 125 * std::pow(1.1, 5)) < 1e-9);
}

void TestSaliency::aKernelEndsWhereItsWeightsDo()
{
    QCOMPARE(smoothingKernelSide(5, 1), 5);
    QCOMPARE(smoothingKernelSide(4, 1), 5);
    QCOMPARE(smoothingKernelSide(1000, 1), 33); // 16 to each side
    const cv::Mat large = cv::getGaussianKernel(1001, 1, CV_32F);
    const cv::Mat bounded = cv::getGaussianKernel(33, 1, CV_32F);
    QCOMPARE(cv::norm(large.rowRange(500 - 16, 500 + 17), bounded, cv::NORM_INF), 0.0);
    QCOMPARE(cv::countNonZero(large), cv::countNonZero(bounded));
}

void TestSaliency::colorsAreFarFromTheMean()
{
    QImage image(60, 60, QImage::Format_RGB32);
    image.fill(QColor(120, 120, 120));
    QPainter(&image).fillRect(20, 20, 10, 10, QColor(250, 20, 20));
    const cv::Mat map = saliencyMap(SaliencyMethod::FrequencyTuned, image, unset);
    cv::Point highest;
    cv::minMaxLoc(map, nullptr, nullptr, nullptr, &highest);
    QVERIFY(highest.inside({20, 20, 10, 10}));
    QCOMPARE(map.at<double>(25, 25), 255.0);
    QVERIFY(map.at<double>(5, 5) < 10);
}

void TestSaliency::redAndBlueAreExchanged()
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(QColor(128, 128, 128));
    QPainter painter(&image);
    painter.fillRect(5, 15, 10, 10, QColor(255, 0, 0));
    painter.fillRect(25, 15, 10, 10, QColor(0, 0, 255));
    painter.end();
    const cv::Mat map = saliencyMap(SaliencyMethod::FrequencyTuned, image, {1, 1, 1, 0});
    // Pure blue is farther from grey than pure red in Lab: about 137 against 105. Exchanged, red is.
    QVERIFY(map.at<double>(20, 10) > map.at<double>(20, 30) + 20);
}

void TestSaliency::equalRatiosGiveZero()
{
    integrated::Bins counts{};
    counts.fill(5);
    const integrated::Bins ratios = integrated::colorRatios(counts, counts); // all 1
    QVERIFY(std::all_of(ratios.begin(), ratios.end(), [](double ratio) { return ratio == 0; }));
    const integrated::Bins none = integrated::colorRatios(counts, {});
    QVERIFY(std::all_of(none.begin(), none.end(), [](double ratio) { return ratio == 0; }));
}

void TestSaliency::aPlainPictureHasNoSaliency_data()
{
    addMethods();
}

void TestSaliency::aPlainPictureHasNoSaliency()
{
    QFETCH(SaliencyMethod, method);
    for (const QSize size : {QSize(1, 1), QSize(3, 2), QSize(200, 150)}) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(QColor(10, 200, 90));
        const cv::Mat map = saliencyMap(method, image, unset);
        QVERIFY(!map.empty());
        QVERIFY(cv::checkRange(map));
        QCOMPARE(cv::norm(saliencyOnCanvas(map), cv::NORM_INF), 0.0);
    }
}

void TestSaliency::asThePlainForm_data()
{
    QTest::addColumn<SaliencyMethod>("method");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<SaliencyNumbers>("numbers");
    using Method = SaliencyMethod;
    QTest::newRow("itti") << Method::Itti << QSize(500, 400) << SaliencyNumbers{0, 12, 10, 100};
    QTest::newRow("itti, odd kernel") << Method::Itti << QSize(90, 700) << SaliencyNumbers{0, 3, 7, 4};
    QTest::newRow("frequency-tuned") << Method::FrequencyTuned << QSize(400, 300) << SaliencyNumbers{5, 2, 2, 0};
    QTest::newRow("frequency-tuned, wide")
        << Method::FrequencyTuned << QSize(333, 201) << SaliencyNumbers{31, 60, 9, 0};
    QTest::newRow("integrated") << Method::IntegratedFeatures << QSize(320, 240) << SaliencyNumbers{500, 250, 20, 40};
    QTest::newRow("integrated, many edges")
        << Method::IntegratedFeatures << QSize(321, 175) << SaliencyNumbers{60, 20, 9, 15};
    QTest::newRow("integrated, no blur") << Method::IntegratedFeatures << QSize(120, 90)
                                         << SaliencyNumbers{300, 100, 4, 40};
}

void TestSaliency::asThePlainForm()
{
    QFETCH(SaliencyMethod, method);
    QFETCH(QSize, size);
    QFETCH(SaliencyNumbers, numbers);
    const QImage picture = scenery(size.width(), size.height(), 4);
    const cv::Mat expected = plainMap(method, pictureMatrix(picture), numbers);
    const cv::Mat map = saliencyMap(method, picture, numbers);
    QVERIFY(cv::norm(expected, cv::NORM_INF) > 0);
    const double difference = largestDifference(map, expected) / cv::norm(expected, cv::NORM_INF);
    QVERIFY2(difference < 1e-6, qPrintable(QString::number(difference)));
}

void TestSaliency::onTheCanvas()
{
    cv::Mat map(2, 2, CV_64F, cv::Scalar(3));
    map.at<double>(1, 0) = 5;
    const cv::Mat large = saliencyOnCanvas(map);
    QCOMPARE(large.size(), cv::Size(2560, 1600));
    QCOMPARE(large.type(), CV_64F);
    constexpr double rounding = 1e-6; // the stretching is done with floats
    QVERIFY(std::abs(large.at<double>(1599, 0) - 1) < rounding);
    QVERIFY(std::abs(large.at<double>(0, 0)) < rounding);
    QVERIFY(std::abs(large.at<double>(1599, 2559)) < rounding);
}

void TestSaliency::asAPicture()
{
    cv::Mat map(2, 2, CV_64F, cv::Scalar(3));
    map.at<double>(1, 0) = 5;
    const QImage picture = saliencyPicture(map, {101, 51});
    QCOMPARE(picture.size(), QSize(101, 51));
    QCOMPARE(picture.format(), QImage::Format_Indexed8);
    QCOMPARE(picture.pixel(0, 50), qRgb(255, 255, 255));
    QCOMPARE(picture.pixel(100, 0), qRgb(0, 0, 0));
}

QTEST_GUILESS_MAIN(TestSaliency)
#include "TestSaliency.moc"
