// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFiles.h"
#include "aoi/LabelImage.h"
#include "TestMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// An image from rows of digits, each the number of a region.
QImage labels(const QStringList &rows, QImage::Format format = QImage::Format_Grayscale8)
{
    QImage image(static_cast<int>(rows.first().size()), static_cast<int>(rows.size()), format);
    if (format == QImage::Format_Indexed8)
        image.setColorTable(QList<QRgb>(10, qRgb(9, 99, 9)));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int label = rows[y][x].digitValue();
            if (format == QImage::Format_Grayscale16)
                reinterpret_cast<ushort *>(image.scanLine(y))[x] = static_cast<ushort>(label * 1000);
            else
                image.scanLine(y)[x] = static_cast<uchar>(label);
        }
    }
    return image;
}

QStringList namesOf(const QList<AreaOfInterest> &aois)
{
    QStringList names;
    for (const AreaOfInterest &aoi : aois)
        names << aoi.name;
    return names;
}

/// What hit tests on the areas find: the place of the area in the list, from 1, or 0.
QStringList hits(const QList<AreaOfInterest> &aois, QSize size)
{
    QStringList rows;
    for (int y = 0; y < size.height(); ++y) {
        rows << QString();
        for (int x = 0; x < size.width(); ++x) {
            int found = 0;
            for (int i = 0; i < aois.size(); ++i)
                found = aois[i].contains(QPoint(x, y), Qt::WindingFill) ? i + 1 : found;
            rows.last() += QString::number(found);
        }
    }
    return rows;
}

} // namespace

class TestLabelImage : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void hitTestsFindThePixelsOfTheRegions_data();
    void hitTestsFindThePixelsOfTheRegions();
    void slantedBordersAreOffByAPixelAtMost();
    void formats_data();
    void formats();
    void partsAreAreasOfTheirOwn();
    void namesComeFromTheTable();
    void coloursAreRefused();
    void fileWithNamesBesideIt();
};

void TestLabelImage::hitTestsFindThePixelsOfTheRegions_data()
{
    QTest::addColumn<QStringList>("rows"); // regions are numbered from 1 without gaps
    QTest::newRow("nothing") << QStringList{QStringLiteral("000"), QStringLiteral("000")};
    QTest::newRow("a pixel") << QStringList{QStringLiteral("000"), QStringLiteral("010"), QStringLiteral("000")};
    QTest::newRow("the whole image") << QStringList{QStringLiteral("11"), QStringLiteral("11")};
    QTest::newRow("neighbours to each edge")
        << QStringList{QStringLiteral("11222"), QStringLiteral("11222"), QStringLiteral("33333")};
    QTest::newRow("an angle") << QStringList{QStringLiteral("1000"), QStringLiteral("1000"), QStringLiteral("1111")};
}

void TestLabelImage::hitTestsFindThePixelsOfTheRegions()
{
    QFETCH(QStringList, rows);
    const QImage image = labels(rows);
    const AoiFileContents contents = labelledAois(image, {});
    QVERIFY(contents.error.isEmpty());
    QCOMPARE(hits(contents.aois, image.size()), rows);
}

void TestLabelImage::slantedBordersAreOffByAPixelAtMost()
{
    constexpr int side = 60;
    QImage image(side, side, QImage::Format_Grayscale8);
    const auto isInside = [](int x, int y) { return (x - 30) * (x - 30) + (y - 30) * (y - 30) <= 625; };
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.scanLine(y)[x] = isInside(x, y) ? 1 : 0;
    }
    const QList<AreaOfInterest> aois = labelledAois(image, {}).aois;
    QCOMPARE(aois.size(), 1);
    int wrong = 0;
    for (int y = 1; y < side - 1; ++y) {
        for (int x = 1; x < side - 1; ++x) {
            const bool isBorder = isInside(x - 1, y) != isInside(x + 1, y) || isInside(x, y - 1) != isInside(x, y + 1);
            const bool isWrong = aois.first().contains(QPoint(x, y), Qt::WindingFill) != isInside(x, y);
            QVERIFY2(!isWrong || isBorder, qPrintable(QStringLiteral("%1 %2").arg(x).arg(y)));
            wrong += isWrong ? 1 : 0;
        }
    }
    QVERIFY2(wrong < 100, qPrintable(QString::number(wrong))); // the border has about 2 pi 25 = 157 pixels
}

void TestLabelImage::formats_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QStringList>("names");
    const QStringList rows{QStringLiteral("0022"), QStringLiteral("5522")};
    const QStringList names{QStringLiteral("Region 2"), QStringLiteral("Region 5")};
    QTest::newRow("8 bits") << labels(rows) << names;
    QTest::newRow("indices of a colour table") << labels(rows, QImage::Format_Indexed8) << names;
    QTest::newRow("16 bits") << labels(rows, QImage::Format_Grayscale16)
                             << QStringList{QStringLiteral("Region 2000"), QStringLiteral("Region 5000")};
    QTest::newRow("grey in three colours") << labels(rows).convertToFormat(QImage::Format_RGB32) << names;
}

void TestLabelImage::formats()
{
    QFETCH(QImage, image);
    const AoiFileContents contents = labelledAois(image, {});
    QTEST(namesOf(contents.aois), "names");
    QCOMPARE(contents.aois.first().polygon.boundingRect(), QRect(QPoint(2, 0), QPoint(4, 2)));
}

void TestLabelImage::partsAreAreasOfTheirOwn()
{
    const QImage image = labels({QStringLiteral("1001"), QStringLiteral("0000"), QStringLiteral("1000")});
    const QList<AreaOfInterest> aois = labelledAois(image, {}).aois;
    QCOMPARE(namesOf(aois),
             QStringList({QStringLiteral("Region 1"), QStringLiteral("Region 1 (2)"), QStringLiteral("Region 1 (3)")}));
    QCOMPARE(hits(aois, image.size()),
             QStringList({QStringLiteral("1002"), QStringLiteral("0000"), QStringLiteral("3000")}));
}

void TestLabelImage::namesComeFromTheTable()
{
    const QImage image = labels({QStringLiteral("1023")});
    const AoiFileContents contents = labelledAois(image, {{2, QStringLiteral("Face")}, {9, QStringLiteral("Hand")}});
    QCOMPARE(namesOf(contents.aois),
             QStringList({QStringLiteral("Region 1"), QStringLiteral("Face"), QStringLiteral("Region 3")}));
}

void TestLabelImage::coloursAreRefused()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(qRgb(1, 2, 3));
    const AoiFileContents contents = labelledAois(image, {});
    QVERIFY(contents.aois.isEmpty());
    QVERIFY(contents.error.contains(QStringLiteral("colors")));
}

void TestLabelImage::fileWithNamesBesideIt()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("scene.v1.png"));
    QVERIFY(labels({QStringLiteral("1122")}).save(path));
    const RecordedMessages messages;
    QCOMPARE(namesOf(readAois(path).aois), QStringList({QStringLiteral("Region 1"), QStringLiteral("Region 2")}));
    QFile names(folder.filePath(QStringLiteral("scene.v1.csv")));
    QVERIFY(names.open(QIODevice::WriteOnly));
    names.write("value,name\n2,\"Face, left\"\nx,y\n1,\n");
    names.close();
    QCOMPARE(namesOf(readAois(path).aois), QStringList({QStringLiteral("Region 1"), QStringLiteral("Face, left")}));
    QVERIFY(messages.texts().isEmpty());
}

QTEST_GUILESS_MAIN(TestLabelImage)
#include "TestLabelImage.moc"
