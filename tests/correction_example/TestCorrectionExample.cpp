// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction-example/CorrectionExample.h"

#include "import/ImportFiles.h"

#include <QTest>

using namespace correctionexample;
using namespace Qt::StringLiterals;

namespace {

const QByteArray table = "line;gp_original_x;gp_original_y;gp_corrected_x;gp_corrected_y\n"
                         "1;10;20;12,5;19\n"
                         "2;0;0;3,5;-2\n";
const QByteArray recording = "sits\tLspx\tLspy\tx\tRspx\tRspy\n10:00:00.000\t1\t2\tä\t3\t4.5\nshort\n";

} // namespace

class TestCorrectionExample : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void meanOfTheTable();
    void allPositionsMove();
    void averages();
    void asAProgram();
    void problems_data();
    void problems();
};

void TestCorrectionExample::meanOfTheTable()
{
    QCOMPARE(meanShift(table), (Shift{3, -1.5})); // 2.5 and 3.5; -1 and -2
    QCOMPARE(meanShift("line\n"), std::nullopt);
}

void TestCorrectionExample::allPositionsMove()
{
    QCOMPARE(shifted(recording, {3, -1.5}),
             QByteArray("sits\tLspx\tLspy\tx\tRspx\tRspy\n10:00:00.000\t4\t0.5\tä\t6\t3\nshort\n"));
    QByteArray windows = recording;
    windows.replace("\n", "\r\n");
    QCOMPARE(shifted(windows, {0, 0}), windows);
    QCOMPARE(shifted("sits\tLspx\n1\t2\n", {1, 1}), std::nullopt);
}

void TestCorrectionExample::averages()
{
    QCOMPARE(averaged(recording, *shifted(recording, {2, 4})), *shifted(recording, {1, 2}));
    QCOMPARE(averaged(recording, recording + "more\n"), std::nullopt);
}

void TestCorrectionExample::asAProgram()
{
    const ImportFiles files;
    const QString output = files.path(u"p 01_cor.txt"_s);
    QCOMPARE(correct({files.write(u"t ä.csv"_s, table), u"no.ini"_s, files.write(u"p 01.txt"_s, recording), output}),
             QString());
    QCOMPARE(files.read(u"p 01_cor.txt"_s), *shifted(recording, {3, -1.5}));
    const auto ini = [&](const QString &name, const QString &corrected) {
        return files.write(name, "#EXAMINATION_CORRECTION:" + corrected.toUtf8() + "\n");
    };
    QCOMPARE(average({ini(u"a.ini"_s, output), ini(u"b.ini"_s, files.path(u"p 01.txt"_s)), files.path(u"mean.txt"_s)}),
             QString());
    QCOMPARE(files.read(u"mean.txt"_s), *shifted(recording, {1.5, -0.75}));
}

void TestCorrectionExample::problems_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("begins");
    QTest::newRow("too few") << QStringList{u"a"_s} << u"usage: subsequent-gaze-correction "_s;
    QTest::newRow("no table") << QStringList{u"/no/t.csv"_s, u"i"_s, u"r"_s, u"o"_s} << u"/no/t.csv cannot be read"_s;
}

void TestCorrectionExample::problems()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, begins);
    QVERIFY(correct(arguments).startsWith(begins));
    QVERIFY(average({u"a"_s, u"b"_s}).startsWith(u"usage"_s));
    QVERIFY(average({u"/no.ini"_s, u"/no.ini"_s, u"c"_s}).startsWith(u"/no.ini cannot be read"_s));
}

QTEST_GUILESS_MAIN(TestCorrectionExample)
#include "TestCorrectionExample.moc"
