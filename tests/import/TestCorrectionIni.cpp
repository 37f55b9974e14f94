// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/CorrectionIni.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

CorrectionIni whole()
{
    return {.measuredPath = u"/study/p 01.txt"_s,
            .correctedPath = u"/study/p 01_cor.txt"_s,
            .stimulus = {.size = {1920, 1080, 531, 299},
                         .imagePath = u"/study/bild ü.png"_s,
                         .iniPath = u"/study/p01.ini"_s},
            .ellipseLines = {ellipseHeader(), u"Ellipse 1:time(ms):0-100;1;2;3;4;5;6;7;8;9;10"_s}};
}

} // namespace

class TestCorrectionIni : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writtenText();
    void readsWhatItWrites();
    void linesInAnyOrder();
    void markersStandAnywhereInTheLine();
    void separatorsOfPaths();
    void theLastValueCounts();
    void withoutEllipses();
    void incomplete_data();
    void incomplete();
    void encodings();
    void aFileThatIsNotThere();
};

void TestCorrectionIni::writtenText()
{
    QCOMPARE(correctionIniText(whole()), u"#EXAMINATION:/study/p 01.txt\n"
                                         "#EXAMINATION_CORRECTION:/study/p 01_cor.txt\n"
                                         "#EXAMINATION_INI:/study/p01.ini\n"
                                         "#EXAMINATION_IMG:/study/bild ü.png\n"
                                         "#EXAMINATION_IMG_WDT_PX:1920\n"
                                         "#EXAMINATION_IMG_HDT_PX:1080\n"
                                         "#EXAMINATION_IMG_WDT_MM:531\n"
                                         "#EXAMINATION_IMG_HDT_MM:299\n"
                                         "#ALL-ELLIPSES-START\n"
                                         "#NAME;PX;PX_COR;PY;PY_COR;RAD_X;RAD_X_COR;RAD_Y;RAD_Y_COR;ROT;ROT_COR\n"
                                         "Ellipse 1:time(ms):0-100;1;2;3;4;5;6;7;8;9;10\n"
                                         "#ALL-ELLIPSES-END\n"_s);
}

void TestCorrectionIni::readsWhatItWrites()
{
    const QByteArray bytes = correctionIniText(whole()).toUtf8();
    QCOMPARE(parseCorrectionIni(bytes), whole());
    QCOMPARE(parseCorrectionIni(QByteArray(bytes).replace("\n", "\r\n")), whole());
    QVERIFY(whole().isComplete());
    QCOMPARE(whole().recordings(), (QList<MillimetreRecording>{{u"/study/p 01.txt"_s, whole().stimulus},
                                                               {u"/study/p 01_cor.txt"_s, whole().stimulus}}));
}

void TestCorrectionIni::linesInAnyOrder()
{
    QStringList lines = correctionIniText(whole()).split(u'\n', Qt::SkipEmptyParts);
    std::rotate(lines.begin(), lines.begin() + 8, lines.end()); // the ellipses first
    QCOMPARE(parseCorrectionIni(lines.join(u'\n').toUtf8()), whole());
}

void TestCorrectionIni::markersStandAnywhereInTheLine()
{
    const CorrectionIni ini = parseCorrectionIni("; 12#EXAMINATION_IMG_WDT_PX:34\n/a#EXAMINATION:.txt");
    QCOMPARE(ini.measuredPath, u"/a.txt"_s);
    QCOMPARE(ini.stimulus.size.widthPx, 0); // "; 1234" is no number
    QCOMPARE(parseCorrectionIni("12#EXAMINATION_IMG_WDT_PX:34").stimulus.size.widthPx, 1234);
}

void TestCorrectionIni::separatorsOfPaths()
{
    const CorrectionIni ini = parseCorrectionIni("#EXAMINATION:C:\\study/p01.txt\n#EXAMINATION_CORRECTION:c\\d.txt\n");
    QCOMPARE(ini.measuredPath, u"C:/study/p01.txt"_s);
    QCOMPARE(ini.correctedPath, u"c/d.txt"_s);
}

void TestCorrectionIni::theLastValueCounts()
{
    QCOMPARE(parseCorrectionIni("#EXAMINATION_IMG:a\n#EXAMINATION_IMG:b\n").stimulus.imagePath, u"b"_s);
}

void TestCorrectionIni::withoutEllipses()
{
    QVERIFY(parseCorrectionIni("#EXAMINATION:a\n1;2;3\n").ellipseLines.isEmpty());
    QVERIFY(parseCorrectionIni("#ALL-ELLIPSES-START\n#ALL-ELLIPSES-END\n1;2\n").ellipseLines.isEmpty());
    QCOMPARE(parseCorrectionIni("#ALL-ELLIPSES-START\n1;2").ellipseLines, QStringList{u"1;2"_s}); // no end
}

void TestCorrectionIni::incomplete_data()
{
    QTest::addColumn<QByteArray>("removed");
    QTest::addColumn<QString>("missing");
    QTest::newRow("measured") << QByteArray("#EXAMINATION:/study/p 01.txt")
                              << u"the measured recording (#EXAMINATION:)"_s;
    QTest::newRow("corrected") << QByteArray("#EXAMINATION_CORRECTION:/study/p 01_cor.txt")
                               << u"the corrected recording (#EXAMINATION_CORRECTION:)"_s;
    QTest::newRow("image") << QByteArray("#EXAMINATION_IMG:/study/bild \xC3\xBC.png")
                           << u"the image (#EXAMINATION_IMG:)"_s;
    QTest::newRow("calibration") << QByteArray("#EXAMINATION_INI:/study/p01.ini")
                                 << u"the calibration ini (#EXAMINATION_INI:)"_s;
    QTest::newRow("a size") << QByteArray("#EXAMINATION_IMG_HDT_MM:299")
                            << u"the height in millimetres (#EXAMINATION_IMG_HDT_MM:)"_s;
}

void TestCorrectionIni::incomplete()
{
    QFETCH(QByteArray, removed);
    QFETCH(QString, missing);
    const QByteArray bytes = correctionIniText(whole()).toUtf8();
    QVERIFY(bytes.contains(removed));
    const CorrectionIni ini = parseCorrectionIni(QByteArray(bytes).replace(removed, ""));
    QVERIFY(!ini.isComplete());
    QCOMPARE(missingEntries(ini), missing);
    QCOMPARE(missingEntries(whole()), QString());
}

void TestCorrectionIni::encodings()
{
    QCOMPARE(parseCorrectionIni("#EXAMINATION_IMG:b\xFC.png").stimulus.imagePath, u"bü.png"_s);
    QCOMPARE(parseCorrectionIni("\xEF\xBB\xBF#EXAMINATION_IMG:b\xC3\xBC.png").stimulus.imagePath, u"bü.png"_s);
}

void TestCorrectionIni::aFileThatIsNotThere()
{
    QString problem;
    QVERIFY(!readCorrectionIni(u"/no/such.ini"_s, problem));
    QVERIFY(problem.startsWith(u"it cannot be opened"_s));
}

QTEST_GUILESS_MAIN(TestCorrectionIni)
#include "TestCorrectionIni.moc"
