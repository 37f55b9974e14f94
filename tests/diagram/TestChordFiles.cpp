// SPDX-License-Identifier: GPL-3.0-or-later
#include "ChordSamples.h"
#include "diagram/ChordFiles.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

class TestChordFiles : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void matrix();
    void matrixOfNothing();
    void cities();
    void pageHoldsItsData();
    void namesAreNoMarkup();
    void filesBesideEachOther();
    void unwritableFolder_data();
    void unwritableFolder();
    void folderThatCannotBeMade();
};

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject dataOf(const QByteArray &page)
{
    static const QRegularExpression element(
        QStringLiteral("<script type=\"application/json\" id=\"data\">(.*?)</script>"));
    return QJsonDocument::fromJson(element.match(QString::fromUtf8(page)).captured(1).toUtf8()).object();
}

} // namespace

void TestChordFiles::matrix()
{
    QCOMPARE(matrixJson(sampleChords()), QByteArray("[[0,0.5,0],[0.25,0.125,0],[0,0.125,0]]"));
    ChordData thirds{{{QStringLiteral("A"), Qt::red}}, {{1.0 / 3}}};
    QCOMPARE(matrixJson(thirds), QByteArray("[[0.333333]]"));
    QCOMPARE(matrixJson({}), QByteArray("[]"));
}

void TestChordFiles::matrixOfNothing()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QCOMPARE(matrixJson({{{QStringLiteral("A"), Qt::red}}, {{nan}}}), QByteArray("[[nan]]"));
}

void TestChordFiles::cities()
{
    QCOMPARE(citiesCsv(sampleChords()), QByteArray("name,latitude,longitude,population,color\n"
                                                   "\"Door, \"\"left\"\"\",37.7244,-122.421,1,#ff0000\n"
                                                   "</script><b>,37.7244,-122.421,1,#00a000\n"
                                                   "Sky,37.7244,-122.421,1,#0000ff\n"));
}

void TestChordFiles::pageHoldsItsData()
{
    const QByteArray page = standalonePage(sampleChords());
    const QJsonObject data = dataOf(page);
    QCOMPARE(data[QStringLiteral("alone")].toBool(), true);
    QCOMPARE(data[QStringLiteral("matrix")].toString().toUtf8(), matrixJson(sampleChords()));
    QCOMPARE(data[QStringLiteral("cities")].toString().toUtf8(), citiesCsv(sampleChords()));
    QVERIFY(page.size() > 100000); // the drawing library is inside
    QVERIFY(!page.contains("src=") && !page.contains("href="));
}

void TestChordFiles::namesAreNoMarkup()
{
    const QByteArray page = standalonePage(sampleChords());
    QVERIFY(!page.contains("</script><b>"));
    QCOMPARE(page.count("</script>"), 3); // data, library, ours
}

void TestChordFiles::filesBesideEachOther()
{
    const QTemporaryDir root;
    const QString folder = root.filePath(QStringLiteral("made/if missing"));
    QVERIFY(!writeChordFiles(sampleChords(), folder));
    QCOMPARE(QDir(folder).entryList(QDir::Files).join(u' '),
             QStringLiteral("chord.js cities.csv d3.min.js index.htm matrix.json"));
    QCOMPARE(contents(folder + QStringLiteral("/matrix.json")), matrixJson(sampleChords()));
    QCOMPARE(contents(folder + QStringLiteral("/cities.csv")), citiesCsv(sampleChords()));
    const QByteArray page = contents(folder + QStringLiteral("/index.htm"));
    QVERIFY(page.contains("src=\"d3.min.js\"") && page.contains("src=\"chord.js\""));
    QCOMPARE(dataOf(page)[QStringLiteral("alone")].toBool(), false); // for browsers that may not read files
    QVERIFY(!writeChordFiles({}, folder));                           // in place of the older ones
    QCOMPARE(contents(folder + QStringLiteral("/matrix.json")), QByteArray("[]"));
}

void TestChordFiles::unwritableFolder_data()
{
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("problem");
    QTest::newRow("matrix") << "matrix.json"
                            << "Can't write json";
    QTest::newRow("cities") << "cities.csv"
                            << "Can't write cites";
    QTest::newRow("page") << "index.htm"
                          << "The page of the diagram cannot be written to ";
}

/// A folder stands in the place of the file.
void TestChordFiles::unwritableFolder()
{
    QFETCH(QString, taken);
    QFETCH(QString, problem);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(taken));
    const auto told = writeChordFiles(sampleChords(), folder.path());
    QVERIFY(told && told->text.startsWith(problem));
    QVERIFY(told->reason.contains(folder.filePath(taken)) &&
            told->reason.contains(QStringLiteral("not a regular file")));
}

void TestChordFiles::folderThatCannotBeMade()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("taken"));
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    const auto told = writeChordFiles(sampleChords(), file + QStringLiteral("/below"));
    QVERIFY(told);
    QCOMPARE(told->text, QStringLiteral("Can't write json"));
    QVERIFY2(told->reason.contains(QStringLiteral("the folder cannot be made: Not a directory")),
             qPrintable(told->reason));
}

QTEST_GUILESS_MAIN(TestChordFiles)
#include "TestChordFiles.moc"
