// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/FixationExport.h"
#include "ExportSamples.h"

#include <QTest>

using samples::fixation;
using samples::lines;

class TestFixationExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void block_data();
    void block();
    void textsStandAsTheyAre();
    void aRemarkFollowsTheParameters();
    void radiusHasSixDigits_data();
    void radiusHasSixDigits();
};

namespace {

const QString header = QStringLiteral("subjectID;subjectINFO;Number;GazePoints;mean_x;mean_y;radius;cluster");
const QString nothing = QStringLiteral("Unable to calculate fixations with this parameters!");

Examination subject()
{
    Examination made = samples::examination(QStringLiteral("S1"), QStringLiteral("age=30, sex=f, "));
    made.calculationInfo.fixationCalculationInfo = QStringLiteral("Algorithm:STANDARD\nParameter:\n x\n");
    return made;
}

/// What follows the rows: the text ends with a line break of its own, so that an empty line comes after it.
QStringList withTrailer(QStringList rows)
{
    return rows << QStringLiteral("Fixation calculation parameters:") << QStringLiteral("Algorithm:STANDARD")
                << QStringLiteral("Parameter:") << QStringLiteral(" x") << QString()
                << QStringLiteral("Subject information:") << QStringLiteral("age=30, sex=f, ");
}

} // namespace

void TestFixationExport::block_data()
{
    QTest::addColumn<QList<Fixation>>("fixations");
    QTest::addColumn<QStringList>("rows");

    // The span is 100 to 200 ms.
    const Fixation within = fixation({100, 150, 200}, {12, -7}, {3, 4}, {1, 0}, 2); // radius: sqrt(9 + 16) = 5
    const Fixation before = fixation({99, 190}, {1, 1});
    const Fixation after = fixation({110, 201}, {1, 1});
    const Fixation point = fixation({150}, {0, 0});
    const QString withinRow = QStringLiteral("\"S1\";\"age=30, sex=f, \";%1;3;12;-7;5;2");

    QTest::newRow("no fixation gives one line in place of header and rows")
        << QList<Fixation>{} << QStringList{nothing};
    QTest::newRow("a fixation that begins and ends with the span")
        << QList{within} << QStringList{header, withinRow.arg(1)};
    QTest::newRow("one that begins before the span is left out, though most of it lies within")
        << QList{before} << QStringList{header};
    QTest::newRow("one that ends after the span is left out") << QList{after} << QStringList{header};
    QTest::newRow("numbers count what is left out")
        << QList{before, within, after, within} << QStringList{header, withinRow.arg(2), withinRow.arg(4)};
    QTest::newRow("a fixation of one sample")
        << QList{point} << QStringList{header, QStringLiteral("\"S1\";\"age=30, sex=f, \";1;1;0;0;1;0")};
    QTest::newRow("one without samples lies nowhere") << QList{Fixation()} << QStringList{header};
}

void TestFixationExport::block()
{
    QFETCH(QList<Fixation>, fixations);
    QFETCH(QStringList, rows);
    EyeData stream;
    stream.scanpath = fixations;
    stream.calculationInfo = QStringLiteral("not the text of the examination");
    QCOMPARE(fixationBlock(subject(), stream, {100, 200}), lines(withTrailer(rows)));
}

void TestFixationExport::textsStandAsTheyAre()
{
    const Examination examination =
        samples::examination(QStringLiteral("5\" %1"), QStringLiteral("M\u00FCller; \"%2\" 3.5"));
    EyeData stream;
    stream.scanpath << fixation({0}, {1, 2});
    QCOMPARE(fixationBlock(examination, stream, {0, 0}),
             lines({header, QStringLiteral("\"5\" %1\";\"M\u00FCller; \"%2\" 3.5\";1;1;1;2;1;0"),
                    QStringLiteral("Fixation calculation parameters:"), QStringLiteral("Not set"), QString(),
                    QStringLiteral("Subject information:"), QStringLiteral("M\u00FCller; \"%2\" 3.5")}));
}

void TestFixationExport::aRemarkFollowsTheParameters()
{
    Examination examination = subject();
    examination.calculationInfo.fixationRemark = QStringLiteral("Other fixations.\n");
    QCOMPARE(fixationBlock(examination, {}, {0, 0}),
             lines({nothing, QStringLiteral("Fixation calculation parameters:"), QStringLiteral("Algorithm:STANDARD"),
                    QStringLiteral("Parameter:"), QStringLiteral(" x"), QStringLiteral("Other fixations."), QString(),
                    QStringLiteral("Subject information:"), QStringLiteral("age=30, sex=f, ")}));
}

void TestFixationExport::radiusHasSixDigits_data()
{
    QTest::addColumn<float>("axisX");
    QTest::addColumn<float>("axisY");
    QTest::addColumn<QString>("text");
    QTest::newRow("decimal point") << 2.5F << 0.0F << QStringLiteral("2.5");
    QTest::newRow("rounded") << 1.0F << 1.0F << QStringLiteral("1.41421"); // sqrt 2 = 1.41421356
    QTest::newRow("a million takes the exponent form") << 1e6F << 0.0F << QStringLiteral("1e+06");
    QTest::newRow("zero") << 0.0F << -0.0F << QStringLiteral("0");
    QTest::newRow("not a number") << std::numeric_limits<float>::quiet_NaN() << 0.0F << QStringLiteral("nan");
}

void TestFixationExport::radiusHasSixDigits()
{
    QFETCH(float, axisX);
    QFETCH(float, axisY);
    QFETCH(QString, text);
    EyeData stream;
    stream.scanpath << fixation({0}, {1, 2}, {axisX, axisY});
    const QString row = fixationBlock(subject(), stream, {0, 0}).section(u'\n', 1, 1);
    QCOMPARE(row, QStringLiteral("\"S1\";\"age=30, sex=f, \";1;1;1;2;") + text + QStringLiteral(";0"));
}

QTEST_GUILESS_MAIN(TestFixationExport)
#include "TestFixationExport.moc"
