// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/MillimetreText.h"
#include "import/PlainMillimetreText.h"

#include <QTest>

#include <random>

using namespace Qt::StringLiterals;

namespace {

/// 2 px a mm across, 4 px a mm down; half of the width is 960.
constexpr StimulusSize exact{1920, 1080, 960, 270};

const QByteArray header = "sits\tLspx\tLspy\tRspx\tRspy\n";

MillimetreSamples samplesOf(const QByteArray &lines, const StimulusSize &size = exact)
{
    return readMillimetreText(header + lines, size);
}

} // namespace

class TestMillimetreText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void positionsBecomePixels();
    void anOddWidthHasAWholeHalf();
    void quotientsAreInSinglePrecision();
    void columnsStandInAnyOrder();
    void namesMatchExactly_data();
    void namesMatchExactly();
    void times_data();
    void times();
    void timeZeroIsTheFirstThatIsNotZero();
    void minusOnePixelIsInvalid_data();
    void minusOnePixelIsInvalid();
    void minusOneMillimetreIsAPlace();
    void linesOfOtherLengthAreLeftOut();
    void widthAndHeightAreTheLine();
    void lineEnds_data();
    void lineEnds();
    void nothingToRead_data();
    void nothingToRead();
    void missingColumnsAreNamed();
    void theClockIsWatched();
    void likeThePlainForm();
};

void TestMillimetreText::positionsBecomePixels()
{
    const MillimetreSamples read = samplesOf("10:00:00.000\t10\t20\t-30\t5.5\n");
    // left: 10 * 2 + 960, 1080 - 20 * 4; right: -30 * 2 + 960, 1080 - 5.5 * 4
    QCOMPARE(read.left, (QList<GazePoint>{GazePoint(0, 980, 1000, 1, 1, 1)}));
    QCOMPARE(read.right, (QList<GazePoint>{GazePoint(0, 900, 1058, 1, 1, 1)}));
    QCOMPARE(read.mean, (QList<GazePoint>{GazePoint(0, 940, 1029, 1, 1, 1)}));
    QCOMPARE(importDoubts(read.counts), QStringList());
}

void TestMillimetreText::anOddWidthHasAWholeHalf()
{
    QCOMPARE(samplesOf("1:0:0.000\t0\t0\t0\t0\n", {1921, 1080, 1921, 1080}).left.first().x, 960.0);
}

void TestMillimetreText::quotientsAreInSinglePrecision()
{
    const MillimetreSamples read = samplesOf("1:0:0.000\t1\t1\t0\t0\n", {100, 100, 3, 7});
    QCOMPARE(read.left.first().x, 1 * double(100.0F / 3.0F) + 50);
    QCOMPARE(read.left.first().y, 100 - 1 * double(100.0F / 7.0F));
    QVERIFY(read.left.first().x != 100.0 / 3 + 50);
}

void TestMillimetreText::columnsStandInAnyOrder()
{
    const MillimetreSamples read =
        readMillimetreText("Rspy\tx\tLspx\tsits\tLspy\tx\tRspx\n4\ta\t1\t0:0:1.000\t2\tb\t3\n", {10, 10, 10, 10});
    QCOMPARE(read.left.first(), GazePoint(0, 6, 8, 1, 1, 1));
    QCOMPARE(read.right.first(), GazePoint(0, 8, 6, 1, 1, 1));
}

void TestMillimetreText::namesMatchExactly_data()
{
    QTest::addColumn<QByteArray>("names");
    QTest::newRow("other case") << QByteArray("sits\tlspx\tLspy\tRspx\tRspy\n");
    QTest::newRow("a blank before") << QByteArray("sits\t Lspx\tLspy\tRspx\tRspy\n");
    QTest::newRow("a longer name") << QByteArray("sits\tLspx1\tLspy\tRspx\tRspy\n");
}

void TestMillimetreText::namesMatchExactly()
{
    QFETCH(QByteArray, names);
    const MillimetreSamples read = readMillimetreText(names + "1:0:0.0\t1\t2\t3\t4\n", exact);
    QVERIFY(read.left.isEmpty());
    QCOMPARE(read.counts.columns, (QStringList{u"sits"_s, u"Lspy"_s, u"Rspx"_s, u"Rspy"_s}));
}

void TestMillimetreText::times_data()
{
    QTest::addColumn<QByteArray>("time"); // of the second sample; the first is at 1 ms
    QTest::addColumn<qint64>("ms");       // since midnight; -1 for none
    QTest::newRow("all parts") << QByteArray("12:34:56.789") << qint64(45'296'789);
    QTest::newRow("hours beyond a day count on") << QByteArray("25:00:00.000") << qint64(90'000'000);
    QTest::newRow("without decimals the seconds are ms") << QByteArray("0:0:59") << qint64(59);
    QTest::newRow("one decimal is one digit") << QByteArray("0:0:5.5") << qint64(55);
    QTest::newRow("four decimals are four digits") << QByteArray("0:0:1.2345") << qint64(12'345);
    QTest::newRow("a point at the end") << QByteArray("0:0:7.") << qint64(7);
    QTest::newRow("a point alone") << QByteArray("0:0:.") << qint64(-1);
    QTest::newRow("no seconds") << QByteArray("12:30") << qint64(-1);
    QTest::newRow("no minutes") << QByteArray("12") << qint64(-1);
    QTest::newRow("nothing") << QByteArray("") << qint64(-1);
    QTest::newRow("a word") << QByteArray("a:b:c") << qint64(-1);
    QTest::newRow("an empty part") << QByteArray(":1:2.000") << qint64(-1);
    QTest::newRow("four parts") << QByteArray("1:2:3:4") << qint64(-1);
    QTest::newRow("a decimal comma") << QByteArray("1:2:3,004") << qint64(-1);
    QTest::newRow("more digits than a clock has") << QByteArray("1234567890:0:0.0") << qint64(-1);
}

void TestMillimetreText::times()
{
    QFETCH(QByteArray, time);
    QFETCH(qint64, ms);
    const MillimetreSamples read = samplesOf("0:0:0.001\t1\t2\t3\t4\n" + time + "\t1\t2\t3\t4\n");
    QCOMPARE(read.left.size(), ms < 0 ? 1 : 2);
    QCOMPARE(read.counts.noTimes, (ms < 0 ? LineCount{1, 3} : LineCount{}));
    if (ms >= 0)
        QCOMPARE(read.left[1].time, ms - 1);
}

void TestMillimetreText::timeZeroIsTheFirstThatIsNotZero()
{
    const MillimetreSamples read =
        samplesOf("0:0:0.000\t1\t2\t3\t4\n0:0:0.100\t1\t2\t3\t4\n0:0:0.000\t1\t2\t3\t4\n0:0:0.104\t1\t2\t3\t4\n");
    QCOMPARE(read.left[0].time, 0);
    QCOMPARE(read.left[1].time, 0);
    QCOMPARE(read.left[2].time, -100);
    QCOMPARE(read.left[3].time, 4);
}

void TestMillimetreText::minusOnePixelIsInvalid_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<bool>("valid");
    // x = mm + 5, y = 10 - mm
    QTest::newRow("all on the picture") << QByteArray("1\t2\t3\t4") << true;
    QTest::newRow("left x") << QByteArray("-6\t2\t3\t4") << false;
    QTest::newRow("left y") << QByteArray("1\t11\t3\t4") << false;
    QTest::newRow("right x") << QByteArray("1\t2\t-6\t4") << false;
    QTest::newRow("right y") << QByteArray("1\t2\t3\t11") << false;
    QTest::newRow("nearly") << QByteArray("-6.0001\t2\t3\t4") << true;
}

void TestMillimetreText::minusOnePixelIsInvalid()
{
    QFETCH(QByteArray, fields);
    QFETCH(bool, valid);
    const MillimetreSamples read = samplesOf("1:0:0.0\t" + fields + "\n", {10, 10, 10, 10});
    for (const GazePoint &sample : {read.left[0], read.right[0], read.mean[0]})
        QCOMPARE(sample.validFlag, valid);
    QCOMPARE(read.mean[0].x, (read.left[0].x + read.right[0].x) / 2);
    QCOMPARE(read.mean[0].y, (read.left[0].y + read.right[0].y) / 2);
}

void TestMillimetreText::minusOneMillimetreIsAPlace()
{
    const MillimetreSamples read = samplesOf("1:0:0.0\t-1\t-1\tnan\t\n");
    QVERIFY(read.left[0].validFlag);
    QCOMPARE(read.left[0].x, 958.0);
    QCOMPARE(read.counts.lossMarks, (LineCount{4, 2}));
    QCOMPARE(importDoubts(read.counts).size(), 1);
    QVERIFY(importDoubts(read.counts)
                .first()
                .startsWith(u"positions that are -1, \"nan\" or empty: 4; the first is in line 2"_s));
}

void TestMillimetreText::linesOfOtherLengthAreLeftOut()
{
    const MillimetreSamples read = samplesOf("1:0:0.000\t1\t2\t3\t4\n"
                                             "1:0:0.002\t1\t2\t3\t4\t5\n"
                                             "1:0:0.004\t1\t2\t3\n"
                                             "\n"
                                             "1:0:0.006\t1\t2\t3\t4\n");
    QCOMPARE(read.left.size(), 2);
    QCOMPARE(read.left[1], GazePoint(6, 962, 1072, 5, 5, 1));
    QCOMPARE(read.counts.wrongLength, (LineCount{2, 3}));
    QCOMPARE(
        importDoubts(read.counts),
        QStringList{u"lines with another number of fields than the header, left out: 2; the first is line 3. "
                    "The header has 5 fields; found the columns sits, Lspx, Lspy, Rspx, Rspy. Fields are separated "
                    "by one tab each."_s});
}

void TestMillimetreText::widthAndHeightAreTheLine()
{
    const MillimetreSamples read = samplesOf("x\n1:0:0.0\t1\t2\t3\t4\ny\n1:0:0.1\t1\t2\t3\t4\n");
    QCOMPARE(read.left[0].width, 2.0);
    QCOMPARE(read.right[1].height, 4.0);
    QCOMPARE(read.mean[1].width, 4.0);
}

void TestMillimetreText::lineEnds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray plain = header + "1:0:0.0\t1\t2\t3\t4\n1:0:0.4\t1\t2\t3\t4\n";
    QTest::newRow("line feeds") << plain;
    QTest::newRow("carriage returns, too") << QByteArray(plain).replace("\n", "\r\n");
    QTest::newRow("none at the end") << plain.chopped(1);
    QTest::newRow("a mark of UTF-8") << "\xEF\xBB\xBF" + plain;
    QByteArray wide("\xFF\xFE");
    for (const char byte : plain)
        wide += QByteArray(1, byte) + '\0';
    QTest::newRow("UTF-16") << wide;
}

void TestMillimetreText::lineEnds()
{
    QFETCH(QByteArray, bytes);
    const MillimetreSamples read = readMillimetreText(bytes, exact);
    QCOMPARE(read.right.size(), 2);
    QCOMPARE(read.right[1], GazePoint(4, 966, 1064, 2, 2, 1));
}

void TestMillimetreText::nothingToRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("doubt");
    QTest::newRow("no byte") << QByteArray()
                             << u"no sample was read, since the first line lacks the columns sits, Lspx, Lspy, Rspx, "
                                "Rspy; it has 0 fields, of them none of those it needs. Names are separated by one tab "
                                "each and written exactly so."_s;
    QTest::newRow("the header alone") << header << u"no sample was read."_s;
}

void TestMillimetreText::nothingToRead()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, doubt);
    const MillimetreSamples read = readMillimetreText(bytes, exact);
    QVERIFY(read.left.isEmpty() && read.right.isEmpty() && read.mean.isEmpty());
    QCOMPARE(importDoubts(read.counts), QStringList{doubt});
}

void TestMillimetreText::missingColumnsAreNamed()
{
    const MillimetreSamples read = readMillimetreText("sits\tLspx\tother\n1:0:0.0\t1\t2\n", exact);
    QCOMPARE(
        importDoubts(read.counts),
        QStringList{u"no sample was read, since the first line lacks the columns Lspy, Rspx, Rspy; it has 3 fields, "
                    "of them sits, Lspx. Names are separated by one tab each and written exactly so."_s});
    QCOMPARE(read.counts.wrongLength.count, 0);
}

void TestMillimetreText::theClockIsWatched()
{
    const MillimetreSamples read = samplesOf("23:59:59.996\t1\t2\t3\t4\n"
                                             "0:0:0.002\t1\t2\t3\t4\n" // a day's end
                                             "0:0:0.002\t1\t2\t3\t4\n"
                                             "0:0:0.001\t1\t2\t3\t4\n");
    QCOMPARE(read.counts.dayEnds, (LineCount{1, 3}));
    QCOMPARE(read.counts.samples.repeatedTimes, (LineCount{1, 4}));
    QCOMPARE(read.counts.samples.backwardTimes, (LineCount{1, 5}));
    QCOMPARE(read.left[1].time, qint64(2 - 86'399'996)); // not joined
    QCOMPARE(reportedCounts(read.counts)[u"ends of a day"_s], 1);
    QCOMPARE(reportedCounts(read.counts)[u"first of ends of a day"_s], 3);
    QCOMPARE(reportedCounts(read.counts)[u"samples"_s], 4);
}

void TestMillimetreText::likeThePlainForm()
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        std::normal_distribution<double> place(0, 150);
        const StimulusSize size{1 + int(random() % 3000), 1 + int(random() % 3000), 1 + int(random() % 900),
                                1 + int(random() % 900)};
        QByteArray bytes = "no\tRspy\tsits\tLspx\tLspy\tRspx\n";
        for (int i = 0; i < 500; ++i) {
            bytes += QByteArray::number(i) + '\t' + QByteArray::number(place(random), 'g', 3 + int(random() % 14));
            bytes += '\t' + QByteArray::number(9 + i / 100) + ":59:" + QByteArray::number(i % 100) + '.' +
                     QByteArray::number(int(random() % 1000)).rightJustified(3, '0');
            for (int field = 0; field < 3; ++field)
                bytes += '\t' + QByteArray::number(place(random), 'f', int(random() % 6));
            bytes += random() % 50 == 0 ? "\tmore\n" : "\n";
        }
        const MillimetreSamples ours = readMillimetreText(bytes, size);
        const MillimetreSamples plain = plainMillimetres(bytes, size);
        QVERIFY2(ours.left == plain.left && ours.right == plain.right && ours.mean == plain.mean,
                 qPrintable(u"seed %1"_s.arg(seed)));
        QVERIFY(ours.left.size() > 400);
    }
}

QTEST_GUILESS_MAIN(TestMillimetreText)
#include "TestMillimetreText.moc"
