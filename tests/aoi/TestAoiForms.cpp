// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFiles.h"
#include "aoi/AoiJson.h"
#include "aoi/AoiTable.h"
#include "TestMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

AreaOfInterest area(const QString &name, const QPolygon &polygon, const QColor &color = {1, 2, 3, 150},
                    bool enabled = true)
{
    AreaOfInterest aoi(name, polygon);
    aoi.color = color;
    aoi.enabled = enabled;
    return aoi;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

/// Areas as tables and as JSON, and files told apart by their ending.
class TestAoiForms : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void table();
    void tableComesBack();
    void tablesThatAreNotQuiteRight_data();
    void tablesThatAreNotQuiteRight();
    void json();
    void jsonComesBack();
    void jsonThatIsNotQuiteRight_data();
    void jsonThatIsNotQuiteRight();
    void brokenJsonTellsWhere();
    void endingChoosesTheForm_data();
    void endingChoosesTheForm();
    void problemsAreTold_data();
    void problemsAreTold();
    void noAreaIsNotWritten();
};

void TestAoiForms::table()
{
    const QList<AreaOfInterest> aois{area(QStringLiteral("A"), {{1, -2}, {3, 4}}),
                                     area(QStringLiteral("a,\"b\""), {{5, 6}}), area(QStringLiteral("none"), {})};
    QCOMPARE(aoiTable(aois), "name,x,y\nA,1,-2\nA,3,4\n\"a,\"\"b\"\"\",5,6\n");
}

void TestAoiForms::tableComesBack()
{
    const QList<AreaOfInterest> aois{area(QStringLiteral("Spiegel, \"links\""), {{1, -2}, {3, 4}, {0, 9}}),
                                     area(QStringLiteral("two\nlines"), {{5, 6}}),
                                     area(QStringLiteral("Übung"), {{7, 8}})};
    const AoiFileContents contents = parseAoiTable(aoiTable(aois));
    QCOMPARE(contents.aois.size(), aois.size());
    for (qsizetype i = 0; i < aois.size(); ++i) {
        QCOMPARE(contents.aois[i].name, aois[i].name);
        QCOMPARE(contents.aois[i].polygon, aois[i].polygon);
    }
    QVERIFY(contents.remarks.isEmpty());
}

void TestAoiForms::tablesThatAreNotQuiteRight_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("read"); // as it is written again
    QTest::addColumn<qsizetype>("bad");
    QTest::newRow("empty") << QByteArray() << QByteArray("name,x,y\n") << qsizetype(0);
    QTest::newRow("only headings") << QByteArray("Name, X, Y\r\n") << QByteArray("name,x,y\n") << qsizetype(0);
    QTest::newRow("no headings") << QByteArray("A,1,2") << QByteArray("name,x,y\nA,1,2\n") << qsizetype(0);
    QTest::newRow("vertices apart") << QByteArray("A,1,2\nB,3,4\nA,5,6\n")
                                    << QByteArray("name,x,y\nA,1,2\nA,5,6\nB,3,4\n") << qsizetype(0);
    QTest::newRow("decimals") << QByteArray("A,1.4, 2.5 \n") << QByteArray("name,x,y\nA,1,3\n") << qsizetype(0);
    QTest::newRow("lines that are no vertex") << QByteArray("A,1,2\n,3,4\nA,5\nA,x,6\nA,7,8,9\nA,nan,1\nA,1,2e9\n")
                                              << QByteArray("name,x,y\nA,1,2\n") << qsizetype(6);
    QTest::newRow("blank lines") << QByteArray("\nA,1,2\n\n") << QByteArray("name,x,y\nA,1,2\n") << qsizetype(0);
}

void TestAoiForms::tablesThatAreNotQuiteRight()
{
    QFETCH(QByteArray, bytes);
    const AoiFileContents contents = parseAoiTable(bytes);
    QTEST(aoiTable(contents.aois), "read");
    QTEST(contents.badVertexLines, "bad");
    QCOMPARE(contents.remarks.isEmpty(), contents.badVertexLines == 0);
}

void TestAoiForms::json()
{
    QByteArray text = aoiJson({area(QStringLiteral("A"), {{1, -2}, {3, 4}}, {255, 0, 7, 150}, false)});
    text.replace("\n", "").replace(" ", "");
    QCOMPARE(text, R"({"aois":[{"color":[255,0,7,150],"enabled":false,"name":"A","polygon":[[1,-2],[3,4]]}]})");
}

void TestAoiForms::jsonComesBack()
{
    const QList<AreaOfInterest> aois{area(QStringLiteral("A \"1\"\n"), {{1, -2}, {3, 4}}, {255, 0, 7, 150}, false),
                                     area(QStringLiteral("Übung"), {{5, 6}})};
    QCOMPARE(parseAoiJson(aoiJson(aois)).aois, aois);
}

void TestAoiForms::jsonThatIsNotQuiteRight_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("vertices"); // as a table
    QTest::addColumn<qsizetype>("unfinished");
    QTest::addColumn<qsizetype>("bad");
    const QByteArray headings("name,x,y\n");
    QTest::newRow("empty list") << QByteArray("[]") << headings << qsizetype(0) << qsizetype(0);
    QTest::newRow("other things") << QByteArray(R"({"a":[1]})") << headings << qsizetype(0) << qsizetype(0);
    QTest::newRow("the list alone, decimals")
        << QByteArray(R"([{"name":"A","polygon":[[1,2.6]]}])") << headings + "A,1,3\n"
        << qsizetype(0) << qsizetype(0);
    QTest::newRow("no name") << QByteArray(R"([{"polygon":[[1,2]]},{"name":"A","polygon":[[3,4]]}])")
                             << headings + "A,3,4\n"
                             << qsizetype(1) << qsizetype(0);
    QTest::newRow("no vertices, no object")
        << QByteArray(R"([{"name":"A"},7,{"name":"B","polygon":5}])") << headings << qsizetype(3) << qsizetype(0);
    QTest::newRow("vertices that are none")
        << QByteArray(R"([{"name":"A","polygon":[[1],[1,"2"],[1,2,3],[8,9],[1,9e9]]}])") << headings + "A,8,9\n"
        << qsizetype(0) << qsizetype(4);
}

void TestAoiForms::jsonThatIsNotQuiteRight()
{
    QFETCH(QByteArray, bytes);
    const AoiFileContents contents = parseAoiJson(bytes);
    QVERIFY(contents.error.isEmpty());
    QTEST(aoiTable(contents.aois), "vertices");
    QTEST(contents.unfinishedBlocks, "unfinished");
    QTEST(contents.badVertexLines, "bad");
    for (const AreaOfInterest &aoi : contents.aois)
        QVERIFY(aoi.color.isValid() && aoi.enabled);
}

void TestAoiForms::brokenJsonTellsWhere()
{
    const AoiFileContents contents = parseAoiJson("[{]");
    QVERIFY(contents.aois.isEmpty());
    QVERIFY2(contents.error.contains(QStringLiteral("at byte ")), qPrintable(contents.error));
}

void TestAoiForms::endingChoosesTheForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("begin");
    QTest::newRow("table") << QStringLiteral("a.csv") << QByteArray("name,x,y\n");
    QTest::newRow("table in capitals") << QStringLiteral("a.CSV") << QByteArray("name,x,y\n");
    QTest::newRow("json") << QStringLiteral("a.json") << QByteArray("{\n");
    QTest::newRow("aoi") << QStringLiteral("a.aoi") << QByteArray("AOI FILE\n");
    QTest::newRow("any other") << QStringLiteral("a.txt") << QByteArray("AOI FILE\n");
    QTest::newRow("none") << QStringLiteral("a") << QByteArray("AOI FILE\n");
}

void TestAoiForms::endingChoosesTheForm()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, begin);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    const RecordedMessages messages;
    const QList<AreaOfInterest> aois{area(QStringLiteral("A"), {{1, -2}, {3, 4}})};
    QVERIFY(writeAois(aois, path));
    QVERIFY(contentOf(path).startsWith(begin));
    const AoiFileContents contents = readAois(path);
    QCOMPARE(contents.aois.size(), 1);
    QCOMPARE(contents.aois.first().name, QStringLiteral("A"));
    QCOMPARE(contents.aois.first().polygon, aois.first().polygon);
    QVERIFY(messages.texts().isEmpty());
}

void TestAoiForms::problemsAreTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title");
    const QString partly = QStringLiteral("Problems importing the AOI file detected!|");
    const QString notAtAll = QStringLiteral("Cannot read file!|");
    QTest::newRow("table") << QStringLiteral("a.csv") << QByteArray("A,1\n") << partly;
    QTest::newRow("json") << QStringLiteral("a.json") << QByteArray("[5]") << partly;
    QTest::newRow("no json") << QStringLiteral("a.json") << QByteArray("5,") << notAtAll;
    QTest::newRow("no picture") << QStringLiteral("a.png") << QByteArray("PNG") << notAtAll;
    QTest::newRow("no file") << QStringLiteral("b/a.csv") << QByteArray() << notAtAll;
}

void TestAoiForms::problemsAreTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, title);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    if (!name.contains(u'/'))
        write(path, bytes);
    const RecordedMessages messages;
    QVERIFY(readAois(path).aois.isEmpty());
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY2(messages.texts().first().startsWith(title), qPrintable(messages.texts().first()));
}

void TestAoiForms::noAreaIsNotWritten()
{
    const QTemporaryDir folder;
    const RecordedMessages messages;
    QVERIFY(!writeAois({}, folder.filePath(QStringLiteral("a.json"))));
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral("AOIs are empty!|You are trying to save an empty AOI. Aborted.")});
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("a.json"))));
}

QTEST_GUILESS_MAIN(TestAoiForms)
#include "TestAoiForms.moc"
