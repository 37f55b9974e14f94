// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFile.h"
#include "TestMessages.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>
#include <limits>
#include <random>

#include <sys/stat.h>

namespace {

const QString unreadable = QStringLiteral(
    "Cannot read file!|Error when trying read the specified file. Please make sure you have selected the correct file "
    "and path and have reading privileges.");
const QString unwritable = QStringLiteral(
    "Cannot write to file!|Error when trying to write to the specified file. Please make sure you have selected the "
    "correct file and path and have writing privileges.");
const QString noAois = QStringLiteral("AOIs are empty!|You are trying to save an empty AOI. Aborted.");
const QString noHeader = QStringLiteral("AOI header not intact!|The file does not seem to be in correct AOI file "
                                        "format. It cannot be imported.");
const QString noName = QStringLiteral("AOI structure not correct!|AOI without name. Abort.");
const QString lateName =
    QStringLiteral("AOI structure not correct!|The AOI named already contains polygon points. Abort.");
const QString lateColor = QStringLiteral("AOI structure not correct!|The AOI already contains polygon points. Abort.");
const QString badColor = QStringLiteral("AOI color undefined!|The AOI color was not specified correctly.");
const QString badLines = QStringLiteral(
    "Problems importing the AOI file detected!|Some lines of the AOI file are not compatible with the file format "
    "specification. The import may have worked, but individual points may be missing.");

/// Keeps the lines of the warning channel while it lives.
class WarningChannel {
public:
    WarningChannel()
    {
        s_lines.clear();
        m_before = qInstallMessageHandler(&WarningChannel::keep);
    }
    ~WarningChannel() { qInstallMessageHandler(m_before); }
    WarningChannel(const WarningChannel &) = delete;
    WarningChannel &operator=(const WarningChannel &) = delete;

    static QStringList lines() { return s_lines; }

private:
    static void keep(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        if (type == QtWarningMsg)
            s_lines << text;
    }

    inline static QStringList s_lines;
    QtMessageHandler m_before;
};

/// Everything a file says about an area, on one line: "name r;g;b;a x,y x,y".
QString described(const AreaOfInterest &aoi)
{
    const QColor &color = aoi.color;
    QString text =
        aoi.name + u' ' + u"%1;%2;%3;%4"_qs.arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha());
    for (const QPoint &vertex : aoi.polygon)
        text += u" %1,%2"_qs.arg(vertex.x()).arg(vertex.y());
    return text;
}

QStringList described(const QList<AreaOfInterest> &aois)
{
    QStringList texts;
    for (const AreaOfInterest &aoi : aois)
        texts << described(aoi);
    return texts;
}

AreaOfInterest area(const QString &name, QColor color, const QPolygon &polygon)
{
    AreaOfInterest aoi(name, polygon);
    aoi.color = color;
    return aoi;
}

/// What stands in three_areas.aoi.
QList<AreaOfInterest> threeAreas()
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    return {area(QStringLiteral("Left mirror"), QColor(255, 128, 0, 150), QPolygon({{10, 20}, {110, 20}, {110, 90}})),
            area(QStringLiteral("Stra\u00dfe; 5 \u20ac = \"x\" "), QColor(0, 0, 0, 0), QPolygon({{-5, 0}})),
            area(QString(), QColor(1, 2, 3), QPolygon({{lowest, highest}, {0, 0}, {0, 1}, {0, 0}}))};
}

const QString threeAreasFile = QStringLiteral(VISTRUM_SOURCE_DIR "/tests/aoi/three_areas.aoi");

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// A name as somebody could type it, from all of Unicode, without line ends.
QString randomName(std::mt19937 &random)
{
    std::uniform_int_distribution<int> length(0, 20);
    std::uniform_int_distribution<char32_t> character(1, 0x10FFFF);
    QString name;
    for (int left = length(random); left > 0; --left) {
        const char32_t drawn = character(random) >> (random() % 15); // as many short codes as long ones
        if (!QChar::isSurrogate(drawn) && drawn != U'\n' && drawn != U'\r')
            name += QString::fromUcs4(&drawn, 1);
    }
    return name.remove(QStringLiteral("name="));
}

AreaOfInterest randomArea(std::mt19937 &random)
{
    const auto level = [&random] { return static_cast<int>(random() % 256); };
    const auto coordinate = [&random] { return static_cast<int>(random()) >> (random() % 32); };
    AreaOfInterest aoi(randomName(random), {});
    const int red = level();
    const int green = level();
    const int blue = level();
    aoi.color = QColor(red, green, blue, level());
    for (auto vertices = 1 + random() % 9; vertices > 0; --vertices) {
        const int x = coordinate();
        aoi.polygon << QPoint(x, coordinate());
    }
    return aoi;
}

double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

class TestAoiFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void writesTheGoldenFile();
    void readsTheGoldenFile();
    void nothingToWrite();
    void unwritablePaths_data();
    void unwritablePaths();
    void aPipeIsNotReplaced();
    void anOldFileIsReplaced();
    void unreadablePaths_data();
    void unreadablePaths();
    void blocks_data();
    void blocks();
    void headers_data();
    void headers();
    void colors_data();
    void colors();
    void vertices_data();
    void vertices();
    void aborts_data();
    void aborts();
    void badLinesAreCountedAndLogged();
    void freshBlocksHaveFreshColours();
    void statisticsAndCheckAreNotInTheFile();
    void roundTrip_data();
    void roundTrip();
    void cutAnywhere();
    void hostileFilesTakeLinearTime_data();
    void hostileFilesTakeLinearTime();

private:
    QTemporaryDir m_folder;
};

void TestAoiFile::writesTheGoldenFile()
{
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("written.aoi"));
    QVERIFY(writeAoiFile(threeAreas(), path));
    QCOMPARE(contentsOf(path), contentsOf(threeAreasFile));
    QCOMPARE(messages.texts(), QStringList());
}

void TestAoiFile::readsTheGoldenFile()
{
    const RecordedMessages messages;
    const AoiFileContents contents = readAoiFile(threeAreasFile);
    QCOMPARE(described(contents.aois), described(threeAreas()));
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(contents.stoppedAtLine, 0);
    QCOMPARE(contents.unfinishedBlocks, 0);
    QVERIFY(!contents.aois.last().name.isNull()); // it stands in the file, though empty
}

void TestAoiFile::nothingToWrite()
{
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("nothing.aoi"));
    QVERIFY(!writeAoiFile({}, path));
    QVERIFY(!QFile::exists(path));
    QCOMPARE(messages.texts(), QStringList{noAois});
}

void TestAoiFile::unwritablePaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("a missing folder") << m_folder.filePath(QStringLiteral("missing/a.aoi"));
    QTest::newRow("a folder") << m_folder.path();
    QTest::newRow("no name") << QString();
}

void TestAoiFile::unwritablePaths()
{
    QFETCH(QString, path);
    const RecordedMessages messages;
    QVERIFY(!writeAoiFile(threeAreas(), path));
    QCOMPARE(messages.texts().size(), 1);
    const QString beginning = unwritable + u'\n' + path + QStringLiteral(" could not be written: ");
    QVERIFY2(messages.texts()[0].startsWith(beginning), qPrintable(messages.texts()[0]));
    QVERIFY(messages.texts()[0].size() > beginning.size()); // the reason
}

void TestAoiFile::aPipeIsNotReplaced()
{
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QVERIFY(!writeAoiFile(threeAreas(), path));
    QVERIFY(QFileInfo::exists(path));
    QVERIFY(!QFileInfo(path).isFile());
    QCOMPARE(messages.texts(), QStringList{unwritable + u'\n' + path +
                                           QStringLiteral(" could not be written: it is not a regular file")});
}

void TestAoiFile::anOldFileIsReplaced()
{
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("old.aoi"));
    QVERIFY(writeAoiFile(threeAreas(), path));
    QVERIFY(writeAoiFile({threeAreas()[1]}, path));
    QCOMPARE(described(readAoiFile(path).aois), QStringList{described(threeAreas()[1])});
    QCOMPARE(messages.texts(), QStringList());
}

void TestAoiFile::unreadablePaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no such file") << m_folder.filePath(QStringLiteral("missing.aoi"));
    QTest::newRow("a folder") << m_folder.path();
    QTest::newRow("no name") << QString();
}

void TestAoiFile::unreadablePaths()
{
    QFETCH(QString, path);
    const RecordedMessages messages;
    const AoiFileContents contents = readAoiFile(path);
    QVERIFY(contents.aois.isEmpty());
    QVERIFY(!contents.error.isEmpty());
    QCOMPARE(messages.texts(), QStringList{unreadable});
}

void TestAoiFile::blocks_data()
{
    QTest::addColumn<QByteArray>("lines"); // below the header
    QTest::addColumn<QString>("areas");    // divided by "|"
    QTest::addColumn<int>("unfinished");
    const auto row = [](const char *name, const char *lines, const char *areas, int unfinished = 0) {
        QTest::newRow(name) << QByteArray(lines) << QString::fromUtf8(areas) << unfinished;
    };
    const char *one = "a 1;2;3;4 5,6";
    row("nothing", "", "");
    row("no line end at the end", "type=static\ncolor=1;2;3;4\nname=a\n5 6", one);
    row("name before colour", "type=static\nname=a\ncolor=1;2;3;4\n5 6\n", one);
    row("the later name and colour count", "type=static\nname=b\ncolor=9;9;9;9\nname=a\ncolor=1;2;3;4\n5 6\n", one);
    row("without a type line", "color=1;2;3;4\nname=a\n5 6\n", one);
    row("a type of another kind", "type=\ncolor=1;2;3;4\nname=a\n5 6\n", one);
    row("lines that end in CR LF", "type=static\r\ncolor=1;2;3;4\r\nname=a\r\n5 6\r\n", one);
    row("two blocks", "type=static\ncolor=1;2;3;4\nname=a\n5 6\ntype=static\nname=b\ncolor=0;0;0;0\n7 8\n9 9\n",
        "a 1;2;3;4 5,6|b 0;0;0;0 7,8 9,9");
    row("both of the same name", "color=1;2;3;4\nname=a\n5 6\ntype=static\nname=a\ncolor=0;0;0;0\n7 8\n",
        "a 1;2;3;4 5,6|a 0;0;0;0 7,8");
    row("a name without vertices does not stop", "type=static\nname=b\ntype=static\ncolor=1;2;3;4\nname=a\n5 6\n", one,
        1);
    row("nor at the end", "color=1;2;3;4\nname=a\n5 6\ntype=static\nname=b\n", one, 1);
    row("a last block without name", "color=1;2;3;4\nname=a\n5 6\ntype=static\n7 8\n", one, 1);
    row("a type line at the end", "color=1;2;3;4\nname=a\n5 6\ntype=static\n", one);
    row("two type lines", "type=static\ntype=static\ncolor=1;2;3;4\nname=a\n5 6\n", one);
    row("a name that is there and empty", "color=1;2;3;4\nname=\n5 6\n", " 1;2;3;4 5,6");
    row("a name that has its key in it", "color=1;2;3;4\nname=a name=b\n5 6\n", "a  1;2;3;4 5,6");
    row("a name that begins with its key", "color=1;2;3;4\nname=name=b\n5 6\n", " 1;2;3;4 5,6");
    row("a name with the other keys", "color=1;2;3;4\nname=type=color=x\n5 6\n", "type=color=x 1;2;3;4 5,6");
    row("a name with blanks around it", "color=1;2;3;4\nname=  a\t \n5 6\n", "  a\t  1;2;3;4 5,6");
    row("a name with control characters", "color=1;2;3;4\nname=a\x01\x1b[2Jb\x7f\n5 6\n",
        "a\x01\x1b[2Jb\x7f 1;2;3;4 5,6");
    row("UTF-8", "color=1;2;3;4\nname=\xc3\xa4\n5 6\n", "\xc3\xa4 1;2;3;4 5,6");
    row("Latin-1", "color=1;2;3;4\nname=\xe4\n5 6\n", "\xc3\xa4 1;2;3;4 5,6");
}

void TestAoiFile::blocks()
{
    QFETCH(QByteArray, lines);
    QFETCH(QString, areas);
    QFETCH(int, unfinished);
    const RecordedMessages messages;
    const AoiFileContents contents = parseAoiFile("AOI FILE\n" + lines);
    QCOMPARE(described(contents.aois).join(u'|'), areas);
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(contents.unfinishedBlocks, unfinished);
    QCOMPARE(contents.stoppedAtLine, 0);
    QCOMPARE(contents.badVertexLines, 0);
}

void TestAoiFile::headers_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<bool>("intact");
    QTest::newRow("as written") << QByteArray("AOI FILE\n") << true;
    QTest::newRow("CR LF") << QByteArray("AOI FILE\r\n") << true;
    QTest::newRow("behind a byte order mark") << QByteArray("\xef\xbb\xbf"
                                                            "AOI FILE\n")
                                              << true;
    QTest::newRow("missing") << QByteArray() << false;
    QTest::newRow("an empty line before it") << QByteArray("\nAOI FILE\n") << false;
    QTest::newRow("a blank behind it") << QByteArray("AOI FILE \n") << false;
    QTest::newRow("small letters") << QByteArray("aoi file\n") << false;
    QTest::newRow("only its beginning") << QByteArray("AOI\n") << false;
    QTest::newRow("more than it") << QByteArray("AOI FILE 2\n") << false;
    QTest::newRow("lines that end in CR") << QByteArray("AOI FILE\rtype=static\r") << false;
    QTest::newRow("a binary file") << QByteArray("\x89PNG\r\n\x1a\n\0\0\xff", 11) << false;
}

void TestAoiFile::headers()
{
    QFETCH(QByteArray, header);
    QFETCH(bool, intact);
    const RecordedMessages messages;
    const AoiFileContents contents = parseAoiFile(header + "type=static\nname=a\n1 2\n");
    QCOMPARE(contents.aois.size(), intact ? 1 : 0);
    QCOMPARE(contents.stoppedAtLine, intact ? 0 : 1);
    QCOMPARE(messages.texts(), intact ? QStringList() : QStringList{noHeader});
    QVERIFY(parseAoiFile({}).aois.isEmpty()); // an empty file has no line to compare
    QCOMPARE(messages.texts().size(), intact ? 0 : 1);
}

void TestAoiFile::colors_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QColor>("color"); // invalid: the random one stays, and the user is told
    const auto row = [](const char *name, const char *value, QColor color = {}) {
        QTest::newRow(name) << QByteArray(value) << color;
    };
    row("as written", "1;20;255;0", QColor(1, 20, 255, 0));
    row("blanks and signs", " 1;+2;-0;4 ", QColor(1, 2, 0, 4));
    row("below the range", "-1;-2147483648;3;4", QColor(0, 0, 3, 4));
    row("above it", "256;2147483647;3;1000", QColor(255, 255, 3, 255));
    row("beyond 32 bits counts as no number", "2147483648;-99999999999999999999;3;4", QColor(0, 0, 3, 4));
    row("no numbers", "red;1.5;0x10;1e2", QColor(0, 0, 0, 0));
    row("empty parts", ";;;", QColor(0, 0, 0, 0));
    row("cut at a second key", "1;2;3;4color=5;6;7;8", QColor(1, 2, 3, 4));
    row("three values", "1;2;3");
    row("five", "1;2;3;4;5");
    row("four and an end", "1;2;3;4;");
    row("nothing", "");
    row("commas", "1,2,3,4");
    row("a name of a colour", "#ff0000ff");
    row("a second key first", "color=1;2;3;4");
}

void TestAoiFile::colors()
{
    QFETCH(QByteArray, value);
    QFETCH(QColor, color);
    const RecordedMessages messages;
    std::srand(1);
    const AoiFileContents contents = parseAoiFile("AOI FILE\ncolor=" + value + "\nname=a\n5 6\n");
    std::srand(1);
    const QColor random = AreaOfInterest().color; // that of the block before the first type line
    QCOMPARE(contents.aois.size(), 1);
    QCOMPARE(contents.aois.first().color, color.isValid() ? color : random);
    QCOMPARE(messages.texts(), color.isValid() ? QStringList() : QStringList{badColor});
}

void TestAoiFile::vertices_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("vertex"); // empty: the line is left out
    const auto row = [](const char *name, const QByteArray &line, const char *vertex = "") {
        QTest::newRow(name) << line << QString::fromUtf8(vertex);
    };
    row("as written", "12 -34", "12,-34");
    row("a plus sign", "+1 2", "1,2");
    row("the largest", "2147483647 -2147483648", "2147483647,-2147483648");
    row("one too large", "2147483648 0");
    row("one too small", "0 -2147483649");
    row("far too large", QByteArray(1000, '9') + " 0");
    row("two blanks", "1  2");
    row("a blank before", " 1 2");
    row("a blank behind", "1 2 ");
    row("an empty line", "");
    row("a blank alone", " ");
    row("one number", "1");
    row("three", "1 2 3");
    row("a tab", "1\t2");
    row("a comma", "1,2");
    row("a fraction", "1.5 2");
    row("an exponent", "1e3 2");
    row("hexadecimal", "0x10 2");
    row("no numbers", "nan inf");
    row("two signs", "--1 2");
    row("a sign alone", "- 2");
    row("digits of another script", "\xd9\xa1 \xd9\xa2");
    row("a NUL", QByteArray("1 \0"
                            "2",
                            4));
    row("words", "AOI FILE");
    row("keys in capitals", "NAME=b");
    row("a blank before a key", " name=b");
    row("a key that nobody knows", "shape=circle");
}

void TestAoiFile::vertices()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, vertex);
    const RecordedMessages messages;
    const WarningChannel channel;
    const AoiFileContents contents =
        parseAoiFile("AOI FILE\ntype=static\ncolor=1;2;3;4\nname=a\n5 6\n" + line + "\n7 8\n");
    const bool good = !vertex.isEmpty();
    const QString between = good ? u' ' + vertex : QString();
    QCOMPARE(described(contents.aois), QStringList{QStringLiteral("a 1;2;3;4 5,6") + between + QStringLiteral(" 7,8")});
    QCOMPARE(contents.badVertexLines, good ? 0 : 1);
    QCOMPARE(contents.firstBadVertexLine, good ? 0 : 6);
    QCOMPARE(messages.texts(), good ? QStringList() : QStringList{badLines});
    const QString logged = QStringLiteral("AOI import ancountered a problem at line: ") + QString::fromUtf8(line);
    QCOMPARE(channel.lines(), good ? QStringList() : QStringList{logged});
}

void TestAoiFile::aborts_data()
{
    QTest::addColumn<QByteArray>("lines"); // from the sixth on
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("message");
    QTest::newRow("no name before the next block") << QByteArray("type=static\n7 8\ntype=static\n") << 8 << noName;
    QTest::newRow("a name behind a vertex") << QByteArray("type=static\nname=b\n7 8\nname=c\n") << 9 << lateName;
    QTest::newRow("a first name behind a vertex") << QByteArray("type=static\n7 8\nname=c\n") << 8 << lateName;
    QTest::newRow("a colour behind a vertex")
        << QByteArray("type=static\nname=b\n7 8\ncolor=1;2;3;4\n") << 9 << lateColor;
    QTest::newRow("a colour that is none, too") << QByteArray("type=static\nname=b\n7 8\ncolor=\n") << 9 << lateColor;
}

void TestAoiFile::aborts()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, line);
    QFETCH(QString, message);
    const RecordedMessages messages;
    const WarningChannel channel;
    const QByteArray before = "AOI FILE\ntype=static\ncolor=1;2;3;4\nname=a\n5 6\n";
    const AoiFileContents contents = parseAoiFile(before + lines + "type=static\nname=d\n9 9\n");
    QCOMPARE(described(contents.aois), QStringList{QStringLiteral("a 1;2;3;4 5,6")});
    QCOMPARE(contents.stoppedAtLine, line);
    QCOMPARE(messages.texts(), QStringList{message});

    // What was wrong with single lines before is not told any more.
    QCOMPARE(parseAoiFile(before + "bad\n" + lines).badVertexLines, 1);
    QCOMPARE(messages.texts(), (QStringList{message, message}));
}

void TestAoiFile::badLinesAreCountedAndLogged()
{
    const RecordedMessages messages;
    const WarningChannel channel;
    const AoiFileContents contents = parseAoiFile("AOI FILE\nname=a\nfirst\n1 2\nsecond\n");
    QCOMPARE(contents.badVertexLines, 2);
    QCOMPARE(contents.firstBadVertexLine, 3);
    QCOMPARE(contents.aois.size(), 1);
    QCOMPARE(messages.texts(), QStringList{badLines});
    QCOMPARE(channel.lines(), (QStringList{QStringLiteral("AOI import ancountered a problem at line: first"),
                                           QStringLiteral("AOI import ancountered a problem at line: second")}));
}

void TestAoiFile::freshBlocksHaveFreshColours()
{
    std::srand(1);
    const QList<AreaOfInterest> aois =
        parseAoiFile("AOI FILE\ntype=static\nname=a\n1 2\ntype=static\nname=b\n1 2\n").aois;
    std::srand(1);
    const AreaOfInterest beforeTheFirstBlock;
    QCOMPARE(aois[0].color, AreaOfInterest().color);
    QCOMPARE(aois[1].color, AreaOfInterest().color);
}

void TestAoiFile::statisticsAndCheckAreNotInTheFile()
{
    AreaOfInterest aoi = threeAreas().first();
    const QByteArray plain = aoiFileText({aoi});
    aoi.enabled = false;
    aoi.gazeCount = 5;
    aoi.glanceStarts << 7;
    QCOMPARE(aoiFileText({aoi}), plain);
    QVERIFY(parseAoiFile(plain).aois.first() == threeAreas().first()); // enabled, without results
}

void TestAoiFile::roundTrip_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 200; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestAoiFile::roundTrip()
{
    QFETCH(unsigned, seed);
    std::mt19937 random(seed);
    QList<AreaOfInterest> aois;
    for (auto count = 1 + random() % 8; count > 0; --count)
        aois << randomArea(random);
    const RecordedMessages messages;
    const QString path = m_folder.filePath(QStringLiteral("random.aoi"));
    QVERIFY(writeAoiFile(aois, path));
    const QByteArray first = contentsOf(path);
    const QList<AreaOfInterest> read = readAoiFile(path).aois;
    QCOMPARE(described(read), described(aois));
    QVERIFY(writeAoiFile(read, path));
    QCOMPARE(contentsOf(path), first);
    QCOMPARE(messages.texts(), QStringList());
}

void TestAoiFile::cutAnywhere()
{
    const QByteArray whole = contentsOf(threeAreasFile);
    const QStringList all = described(threeAreas());
    const RecordedMessages messages;
    const WarningChannel channel;
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const AoiFileContents contents = parseAoiFile(whole.first(size));
        const QStringList read = described(contents.aois);
        QVERIFY2(read.size() <= all.size(), qPrintable(QString::number(size)));
        for (qsizetype i = 0; i + 1 < read.size(); ++i) // the last one may have lost vertices
            QCOMPARE(read[i], all[i]);
        QVERIFY(size == 0 || size >= 8 || contents.stoppedAtLine == 1);
    }
}

void TestAoiFile::hostileFilesTakeLinearTime_data()
{
    constexpr qsizetype million = 1'000'000;
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<qsizetype>("areas");
    QTest::addColumn<qsizetype>("vertices"); // of the first
    QTest::addColumn<qsizetype>("nameLength");
    const qsizetype one = 1;
    QTest::newRow("a million vertices") << "name=a\n" + QByteArray("-1234567 7654321\n").repeated(million) << one
                                        << million << one;
    QTest::newRow("a million bad lines") << "name=a\n1 2\n" + QByteArray("x\n").repeated(million) << one << one << one;
    QTest::newRow("a name of a megabyte") << "name=" + QByteArray(million, 'n') + "\n1 2\n" << one << one << million;
    QTest::newRow("a million keys in a name") << "name=a" + QByteArray("name=").repeated(million) + "\n1 2\n"
                                              << one << one << one;
    QTest::newRow("a million colours") << QByteArray("color=1;2;3;4\n").repeated(million) + "name=a\n1 2\n"
                                       << one << one << one;
    QTest::newRow("a colour of a million values") << "color=" + QByteArray("1;").repeated(million) + "\nname=a\n1 2\n"
                                                  << one << one << one;
    QTest::newRow("a number of a million digits") << "name=a\n1 2\n" + QByteArray(million, '9') + " 1\n"
                                                  << one << one << one;
    QTest::newRow("a line of a million blanks") << "name=a\n1 2\n" + QByteArray(million, ' ') + '\n'
                                                << one << one << one;
    QTest::newRow("fifty thousand areas of one name")
        << QByteArray("type=static\nname=a\n1 2\n").repeated(50'000) << qsizetype(50'000) << one << one;
}

void TestAoiFile::hostileFilesTakeLinearTime()
{
    constexpr double longest = 30; // s; quadratic time would be hours, and the sanitizers make it slow
    QFETCH(QByteArray, lines);
    const RecordedMessages messages;
    const WarningChannel channel;
    const double start = processorSeconds();
    const AoiFileContents contents = parseAoiFile("AOI FILE\n" + lines);
    const QByteArray written = aoiFileText(contents.aois);
    const double seconds = processorSeconds() - start;
    QTEST(contents.aois.size(), "areas");
    QTEST(contents.aois.first().polygon.size(), "vertices");
    QTEST(contents.aois.first().name.size(), "nameLength");
    QVERIFY(aoiFileText(parseAoiFile(written).aois) == written);
    QVERIFY2(seconds < longest, qPrintable(QString::number(seconds)));
}

QTEST_GUILESS_MAIN(TestAoiFile)
#include "TestAoiFile.moc"
