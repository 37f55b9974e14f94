// SPDX-License-Identifier: GPL-3.0-or-later
#include "BatchRunTest.h"

#include <QJsonArray>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

/// A minute at 250 Hz: the eyes rest at one place, then at another.
QByteArray recording(double shift = 0)
{
    QByteArray bytes = "sits\tLspx\tLspy\tRspx\tRspy\n";
    for (int i = 0; i < 500; ++i) {
        const QByteArray x = QByteArray::number((i < 250 ? 10 : 60) + shift);
        bytes += "10:00:0" + QByteArray::number(i * 4 / 1000) + '.' +
                 QByteArray::number(i * 4 % 1000).rightJustified(3, '0') + '\t' + x + "\t50\t" + x + "\t50\n";
    }
    return bytes;
}

} // namespace

/// Recordings in millimetres on the command line.
class TestBatchMillimetres : public BatchRunTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { start(); }

    void besideOthers();
    void aCorrectionIni();
    void whatIsWrongIsALineEach();
    void anIniThatLacksEntries();
    void withoutEffect();

private:
    static QStringList arguments(const char *line)
    {
        return words("--quiet --calculate fixations --export fixations --eyes left --millimetre-image "
                     "study/picture.png --millimetre-size 1000,800,500,400 --report report.json") +
               words(line);
    }
    void writePicture() const
    {
        const QDir study(m_batch->path(u"study"_s));
        QVERIFY(
            QFile::copy(study.filePath(study.entryList({u"*.png"_s}).constFirst()), study.filePath(u"picture.png"_s)));
    }
};

void TestBatchMillimetres::besideOthers()
{
    writePicture();
    m_batch->write(u"study/a.txt"_s, recording());
    const auto files = filesOf(arguments("study/a.txt study/S01.data"));
    QStringDecoder decoder(QStringDecoder::Utf16);
    const QString table = decoder(files[u"vistrum_fixations__fixations_left.csv"_s]);
    QVERIFY(table.contains(u"ilmenau_import: a.txt"_s));
    // 10 mm are 10 * 2 + 500 px, 60 mm are 620 px; 50 mm up from the bottom are 800 - 50 * 2 px
    QVERIFY(table.contains(u";250;520;700;"_s) && table.contains(u";250;620;700;"_s));
    const QJsonObject input = report()[u"inputs"_s].toArray()[1].toObject();
    QCOMPARE(input[u"path"_s].toString(), u"study/a.txt"_s);
    QCOMPARE(input[u"counts"_s][u"samples"_s].toInt(), 500);
    QCOMPARE(input[u"counts"_s][u"lines without time"_s].toInt(), 0);
    QCOMPARE(report()[u"options"_s][u"millimetre-size"_s].toString(), u"1000,800,500,400"_s);
}

void TestBatchMillimetres::aCorrectionIni()
{
    m_batch->write(u"study/a.txt"_s, recording());
    m_batch->write(u"study/a_cor.txt"_s, recording(5));
    m_batch->write(u"study/a_cor.txt.ini"_s,
                   "#EXAMINATION:study\\a.txt\n#EXAMINATION_CORRECTION:study/a_cor.txt\n#EXAMINATION_INI:cal.ini\n"
                   "#EXAMINATION_IMG:p.png\n#EXAMINATION_IMG_WDT_PX:1000\n#EXAMINATION_IMG_HDT_PX:800\n"
                   "#EXAMINATION_IMG_WDT_MM:500\n#EXAMINATION_IMG_HDT_MM:400\n");
    const auto files =
        filesOf(words("--quiet --calculate fixations --export fixations --eyes left --report report.json "
                      "study/a_cor.txt.ini"));
    QVERIFY(!files.isEmpty());
    const QJsonArray inputs = report()[u"inputs"_s].toArray();
    QCOMPARE(inputs.size(), 3);
    QCOMPARE(inputs[0][u"kind"_s].toString(), u"correction ini"_s);
    QCOMPARE(inputs[1][u"path"_s].toString(), u"study/a.txt"_s);
    QCOMPARE(inputs[2][u"path"_s].toString(), u"study/a_cor.txt"_s);
    QCOMPARE(inputs[2][u"counts"_s][u"samples"_s].toInt(), 500);
}

void TestBatchMillimetres::whatIsWrongIsALineEach()
{
    writePicture();
    m_batch->write(u"study/a.txt"_s, recording() + "x\n");
    m_batch->write(u"study/b.txt"_s, "sits\tLspx\n1\t2\n");
    const Outcome outcome = m_batch->run(arguments("study/a.txt study/b.txt study/c.txt"));
    QCOMPARE(outcome.status, 1); // b has no sample, c is not there
    QCOMPARE(outcome.errors.filter(u"a.txt"_s).size(), 1);
    QVERIFY(outcome.errors.filter(u"a.txt"_s)[0].startsWith(
        u"Import: study/a.txt: lines with another number of fields than the header, left out: 1;"_s));
    QVERIFY(outcome.errors.filter(u"b.txt"_s)[0].startsWith(u"Import: study/b.txt: no sample was read"_s));
    QVERIFY(!outcome.errors.filter(u"c.txt"_s).isEmpty());
    QVERIFY(!outcome.errors.filter(u"there is no such file"_s).isEmpty());
}

void TestBatchMillimetres::anIniThatLacksEntries()
{
    m_batch->write(u"a.ini"_s, "#EXAMINATION:a.txt\n");
    const Outcome outcome = m_batch->run(words("--quiet a.ini study/S01.data"));
    QCOMPARE(outcome.status, 1);
    QVERIFY(outcome.errors.value(0).startsWith(
        u"a.ini: a.ini: no recording was loaded: it lacks the corrected recording (#EXAMINATION_CORRECTION:), "_s));
}

void TestBatchMillimetres::withoutEffect()
{
    writePicture();
    const Outcome outcome = m_batch->run(arguments("study/S01.data"));
    QCOMPARE(outcome.errors.value(0), u"Options: --millimetre-image, --millimetre-size: no recording ends in .txt."_s);
}

QTEST_GUILESS_MAIN(TestBatchMillimetres)
#include "TestBatchMillimetres.moc"
