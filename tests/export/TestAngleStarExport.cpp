// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/AngleStarExport.h"
#include "ExportSamples.h"
#include "TestMessages.h"
#include "visualization/ToyData.h"

#include <QTemporaryDir>
#include <QTest>

using samples::bytesOf;
using samples::lines;

namespace {

/// Two recordings. The first goes 100 px to the left, then 50 px up, each in 20 ms; the second not at all.
DataModel modelOfTwo()
{
    DataModel model;
    Examination moving = samples::examination(QStringLiteral("m"), QStringLiteral("a=1, "));
    moving.dominantEye = QStringLiteral("left");
    for (EyeData *stream : moving.streams())
        stream->scanpath << toy::stay({200, 200}, 0) << toy::stay({100, 200}, 100) << toy::stay({100, 150}, 200);
    model.examinations() << moving << samples::examination(QStringLiteral("n"), QString());
    model.setTimeFrame({0, 1000});
    return model;
}

} // namespace

class TestAngleStarExport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void leftEye();
    void dominance();
    void oneBin();
    void withoutExaminations();
    void files();
};

void TestAngleStarExport::leftEye()
{
    const QString header = QStringLiteral("Subject ID;Subject INFO;Dominant;Angle:0-90;Angle:90-180;Angle:180-270;"
                                          "Angle:270-0;");
    // Up is 90 degrees, to the left 180.
    QCOMPARE(angleStarTable(modelOfTwo(), Eye::Left, {4, 15}), lines({QStringLiteral("Number of histogram bins: 4"),
                                                                      QStringLiteral("Offset angle: 15"),
                                                                      QString(),
                                                                      QString(),
                                                                      QString(),
                                                                      QString(),
                                                                      QStringLiteral("Quantity: "),
                                                                      header,
                                                                      QStringLiteral("\"m\";\"a=1, \";YES;0;1;1;0;"),
                                                                      QStringLiteral("\"n\";\"\";NO;0;0;0;0;"),
                                                                      QStringLiteral("MEAN;;;0;0,5;0,5;0;"),
                                                                      QStringLiteral("Duration(ms): "),
                                                                      header,
                                                                      QStringLiteral("\"m\";\"a=1, \";YES;0;20;20;0;"),
                                                                      QStringLiteral("\"n\";\"\";NO;0;0;0;0;"),
                                                                      QStringLiteral("MEAN;;;0;10;10;0;"),
                                                                      QStringLiteral("Length(px): "),
                                                                      header,
                                                                      QStringLiteral("\"m\";\"a=1, \";YES;0;50;100;0;"),
                                                                      QStringLiteral("\"n\";\"\";NO;0;0;0;0;"),
                                                                      QStringLiteral("MEAN;;;0;25;50;0;")}));
}

void TestAngleStarExport::dominance()
{
    const QString right = angleStarTable(modelOfTwo(), Eye::Right, {2, 0});
    QVERIFY(right.contains(QStringLiteral("\"m\";\"a=1, \";NO;1;1;")));
    QVERIFY(right.contains(QStringLiteral("\"n\";\"\";YES;0;0;"))); // without an entry the right eye is it
    QVERIFY(right.contains(QStringLiteral("Duration: \n")) && right.contains(QStringLiteral("Length: \n")));
    for (const Eye eye : {Eye::Dominant, Eye::Mean}) {
        const QString table = angleStarTable(modelOfTwo(), eye, {2, 0});
        QVERIFY(table.contains(QStringLiteral("\"n\";\"\";0;0;\n")));
        QVERIFY(table.contains(QStringLiteral("Dominant;Angle:0-180;Angle:180-0;\n")));
    }
}

void TestAngleStarExport::oneBin()
{
    QVERIFY(angleStarTable(modelOfTwo(), Eye::Left, {1, 0}).contains(QStringLiteral("Dominant;Angle:0-0;\n")));
    QVERIFY(angleStarTable(modelOfTwo(), Eye::Left, {7, 0})
                .contains(QStringLiteral("Angle:0-51.4286;Angle:51.4286-102.857;")));
}

void TestAngleStarExport::withoutExaminations()
{
    QVERIFY(angleStarTable({}, Eye::Left, {2, 0}).contains(QStringLiteral("MEAN;;;nan;nan;\n")));
}

void TestAngleStarExport::files()
{
    const RecordedMessages messages;
    const QTemporaryDir folder;
    const QString stem = folder.filePath(QStringLiteral("p"));
    const DataModel model = modelOfTwo();
    const ExportResult result = exportAngleStar(model, stem, {25, 0});
    QCOMPARE(result.written,
             (QStringList{stem + QStringLiteral("_left_anglestar.csv"), stem + QStringLiteral("_right_anglestar.csv"),
                          stem + QStringLiteral("_dom_anglestar.csv"), stem + QStringLiteral("_mean_anglestar.csv")}));
    QCOMPARE(QString::fromUtf8(bytesOf(result.written[2])), angleStarTable(model, Eye::Dominant, {25, 0}));
    QCOMPARE(messages.texts(), QStringList(QStringLiteral("Statistics Export|Anglestar statistics exported to: ") +
                                           stem + QStringLiteral("_left/right/dom/mean_anglestar.csv")));
}

QTEST_GUILESS_MAIN(TestAngleStarExport)
#include "TestAngleStarExport.moc"
