// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/SetFile.h"

#include <QDir>
#include <QFile>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

namespace {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

Examination parsed(const QByteArray &bytes)
{
    return parseSetFile(bytes, RecordingPath(QStringLiteral("/nowhere/p01.data"))).examination;
}

using Properties = QHash<QString, QString>;

Properties defaultProperties()
{
    return {{QStringLiteral("group"), QStringLiteral("None")}};
}

} // namespace

class TestSetFile : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void paths_data();
    void paths();
    void textsAreKeptAndCopied();
    void withoutSubjectLine();
    void subjectLines_data();
    void subjectLines();
    void shortLinesOfTheSubject();
    void dominantEye_data();
    void dominantEye();
    void encodings_data();
    void encodings();
    void imageFound();
    void imageBySecondPlace();
    void imageByAbsolutePath();
    void imageMissing();
    void imageNameComesLater();
    void folderIsNoImage();
    void missingFile();
    void folderInPlaceOfTheFile();

private:
    QString inFolder(const char *name) const { return m_folder->filePath(QString::fromUtf8(name)); }
    DescribedExamination read(const QByteArray &setFile) const
    {
        writeFile(inFolder("p01.set"), setFile);
        return readSetFile(inFolder("p01.data"));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSetFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestSetFile::paths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("baseName");
    const auto row = [](const char *name, const char *path, const char *directory, const char *baseName) {
        QTest::newRow(name) << QString::fromUtf8(path) << QString::fromUtf8(directory) << QString::fromUtf8(baseName);
    };
    row("folder and extension", "/a/b/p01.data", "/a/b/", "p01");
    row("only the last point ends the name", "/a/p01.run2.data", "/a/", "p01.run2");
    row("a point in the folder is no extension", "/a.b/p01", "/a.b/", "p01");
    row("no folder", "p01.data", "", "p01");
    row("no extension", "p01", "", "p01");
    row("a name of an extension only", "/a/.data", "/a/", "");
    row("a folder only", "/a/", "/a/", "");
    row("nothing", "", "", "");
}

void TestSetFile::paths()
{
    QFETCH(QString, path);
    QFETCH(QString, directory);
    QFETCH(QString, baseName);
    const RecordingPath recording(path);
    QCOMPARE(recording.directory, directory);
    QCOMPARE(recording.baseName, baseName);
    QCOMPARE(recording.setFile(), directory + baseName + QStringLiteral(".set"));
}

void TestSetFile::textsAreKeptAndCopied()
{
    const Examination examination = parsed("remark\npicturename=a.jpg\n\n[subject]\nsubjectID=s1;\nage=30\n\nx\n=\n");
    QCOMPARE(examination.setFileText,
             QStringLiteral("remark\npicturename=a.jpg\n\n[subject]\nsubjectID=s1;\nage=30\n\nx\n=\n"));
    // Lines without "=" and the single "=" are no entries.
    QCOMPARE(examination.subjectText, QStringLiteral("subjectID=s1, age=30, "));
    for (const EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye}) {
        QCOMPARE(eye->setFileText, examination.setFileText);
        QCOMPARE(eye->subjectText, examination.subjectText);
    }
    QVERIFY(examination.checked);
    QCOMPARE(examination.number, -1);
    QVERIFY(!examination.importOk);
}

void TestSetFile::withoutSubjectLine()
{
    const Examination examination = parsed("picturename=a.jpg\nsubjectID=s1\n[Subject]\n [subject]\ndominant=left");
    QCOMPARE(examination.properties, defaultProperties());
    QCOMPARE(examination.setFileText,
             QStringLiteral("picturename=a.jpg\nsubjectID=s1\n[Subject]\n [subject]\ndominant=left\n"));
    QCOMPARE(examination.subjectText, QString());
    QCOMPARE(examination.subjectId, QString());
    QCOMPARE(examination.dominantEye, QString());
    QCOMPARE(examination.imageName, QStringLiteral("a.jpg"));
}

void TestSetFile::subjectLines_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<Properties>("added");
    const auto row = [](const char *name, const char *lines, const Properties &added) {
        QTest::newRow(name) << QByteArray(lines) << added;
    };
    const auto one = [](const char *key, const char *value) {
        return Properties{{QString::fromUtf8(key), QString::fromUtf8(value)}};
    };
    row("key and value", "age=30", one("age", "30"));
    row("the value stands behind the last =", "a=b=c", one("a", "c"));
    row("blanks belong to the value", "age = 30 ", one("age ", " 30 "));
    row("a semicolon is dropped", "age=30;", one("age", "30"));
    row("all semicolons are dropped", ";a;ge=3;0;", one("age", "30"));
    row("a value may be empty", "age=", one("age", ""));
    row("a line without = is key and value", "pilot", one("pilot", "pilot"));
    row("a later entry replaces an earlier one", "age=30\nage=31", one("age", "31"));
    row("a group replaces the default", "group=novice", one("group", "novice"));
    row("empty lines are passed over", "\n\nage=30\n\n", one("age", "30"));
    row("a line of semicolons is empty", ";;", {});
    row("no line end at the end", "age=30", one("age", "30"));
    row("lines with carriage returns", "age=30\r\nsex=f\r\n",
        {{QStringLiteral("age"), QStringLiteral("30")}, {QStringLiteral("sex"), QStringLiteral("f")}});
    row("a second subject line is an entry", "[subject]", one("[subject]", "[subject]"));
}

void TestSetFile::subjectLines()
{
    QFETCH(QByteArray, lines);
    QFETCH(Properties, added);
    Properties expected = defaultProperties();
    expected.insert(added);
    QCOMPARE(parsed("[subject]\n" + lines).properties, expected);
    QCOMPARE(parsed("[subject]\r\n" + lines).properties, expected);
}

/// The text of the subject has each line of two characters and more that has an "=".
void TestSetFile::shortLinesOfTheSubject()
{
    QCOMPARE(parsed("[subject]\n=\na=\nb=2\nc\n").subjectText, QStringLiteral("a=, b=2, "));
}

void TestSetFile::dominantEye_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("dominantEye");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const char *line, const char *eye, const char *value) {
        QTest::newRow(name) << QByteArray(line) << QString::fromUtf8(eye) << QString::fromUtf8(value);
    };
    row("left", "dominant=left", "left", "left");
    row("left with a semicolon", "dominant=left;", "left", "left");
    row("l", "dominant=l", "left", "left");
    row("LEFT in capitals", "dominant=LEFT", "left", "left");
    row("right", "dominant=Right", "right", "right");
    row("R", "dominant=R", "right", "right");
    row("both is invalid", "dominant=both", "", "invalid");
    row("x is invalid", "dominant=x", "", "invalid");
    row("nothing is invalid", "dominant=", "", "invalid");
    row("a blank makes it invalid", "dominant= left", "", "invalid");
    row("the last line counts", "dominant=left\ndominant=none", "", "invalid");
}

void TestSetFile::dominantEye()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, dominantEye);
    QFETCH(QString, value);
    const Examination examination = parsed("[subject]\n" + line);
    QCOMPARE(examination.dominantEye, dominantEye);
    QCOMPARE(examination.properties.value(QStringLiteral("dominant")), value);
    QCOMPARE(&examination.stream(Eye::Dominant),
             dominantEye == QLatin1StringView("left") ? &examination.leftEye : &examination.rightEye);
    // Any key that begins with the word is one.
    QCOMPARE(parsed("[subject]\n" + QByteArray(line).replace("dominant=", "dominantEye=")).dominantEye, dominantEye);
}

void TestSetFile::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("UTF-8") << QByteArray("[subject]\nsubjectID=J\xC3\xBCrgen");
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xEF\xBB\xBF[subject]\nsubjectID=J\xC3\xBCrgen");
    QTest::newRow("Latin-1") << QByteArray("[subject]\nsubjectID=J\xFCrgen");
    QTest::newRow("UTF-16 with a byte order mark") << [] {
        QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
        const QByteArray bytes = encoder(QStringLiteral("[subject]\nsubjectID=J\u00FCrgen"));
        return bytes;
    }();
}

void TestSetFile::encodings()
{
    QFETCH(QByteArray, bytes);
    const Examination examination = parsed(bytes);
    QCOMPARE(examination.subjectId, QStringLiteral("J\u00FCrgen"));
    QCOMPARE(examination.properties.value(QStringLiteral("subjectID")), QStringLiteral("J\u00FCrgen"));
}

void TestSetFile::imageFound()
{
    writeFile(inFolder("forest.jpg"), "x");
    const DescribedExamination described = read("picturename=wood\npicturepath=forest.jpg\n");
    const QList<ImageReference> expected{{inFolder("forest.jpg"), QStringLiteral("wood")}};
    QCOMPARE(described.images, expected);
    QCOMPARE(described.examination.imageName, QStringLiteral("wood"));
    QCOMPARE(described.examination.properties.value(QStringLiteral("image")), QStringLiteral("wood"));
    QCOMPARE(described.examination.missingImagePath, QString());
    QCOMPARE(described.error, QString());
    QCOMPARE(described.examination.directory, m_folder->path() + u'/');
}

void TestSetFile::imageBySecondPlace()
{
    // Paths of the machine that recorded are of no use elsewhere: the image beside the recording is taken.
    writeFile(inFolder("forest.jpg"), "x");
    const QList<ImageReference> expected{{inFolder("forest.jpg"), QStringLiteral("forest.jpg")}};
    for (const char *path : {"C:\\study\\forest.jpg", "pictures/forest.jpg", "/pictures/forest.jpg", "C:/forest.jpg"}) {
        const QByteArray text = QByteArray("picturename=forest.jpg\npicturepath=") + path;
        QCOMPARE(read(text).images, expected);
    }
}

void TestSetFile::imageByAbsolutePath()
{
    const QTemporaryDir elsewhere;
    const QString image = elsewhere.filePath(QStringLiteral("forest.jpg"));
    writeFile(image, "x");
    const QByteArray text = "picturename=forest.jpg\npicturepath=" + image.toUtf8() + "\n";
    QCOMPARE(read(text).images, (QList<ImageReference>{{image, QStringLiteral("forest.jpg")}}));
    // Beside the recording it is only looked for where it is not there.
    QVERIFY(QFile::remove(image));
    writeFile(inFolder("forest.jpg"), "x");
    QCOMPARE(read(text).images, (QList<ImageReference>{{inFolder("forest.jpg"), QStringLiteral("forest.jpg")}}));
}

void TestSetFile::imageMissing()
{
    const DescribedExamination described = read("picturename=forest.jpg\npicturepath=a/forest.jpg\n[subject]\n");
    QCOMPARE(described.images, QList<ImageReference>());
    QCOMPARE(described.examination.missingImagePath, inFolder("forest.jpg"));
    QVERIFY(!described.examination.properties.contains(QStringLiteral("image")));
    QCOMPARE(described.examination.imageName, QStringLiteral("forest.jpg"));
}

void TestSetFile::imageNameComesLater()
{
    // The name known when the path is read is used: none yet.
    writeFile(inFolder("forest.jpg"), "x");
    const DescribedExamination described = read("picturepath=forest.jpg\npicturename=forest.jpg\n");
    const QList<ImageReference> expected{{inFolder("forest.jpg"), QString()}};
    QCOMPARE(described.images, expected);
    QCOMPARE(described.examination.imageName, QStringLiteral("forest.jpg"));
}

void TestSetFile::folderIsNoImage()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("forest.jpg")));
    const DescribedExamination described = read("picturename=forest.jpg\npicturepath=forest.jpg\n");
    QCOMPARE(described.examination.missingImagePath, inFolder("forest.jpg"));
    QCOMPARE(read("picturepath=\n").examination.missingImagePath, m_folder->path() + u'/');
}

void TestSetFile::missingFile()
{
    const DescribedExamination described = readSetFile(inFolder("p02.data"));
    QFile file(inFolder("p02.set"));
    QVERIFY(!file.open(QIODevice::ReadOnly));
    QCOMPARE(described.error, file.errorString());
    QVERIFY(!described.error.isEmpty());
    QCOMPARE(described.examination.setFileText, QString());
    QCOMPARE(described.examination.properties, defaultProperties());
    QCOMPARE(described.examination.baseName, QStringLiteral("p02"));
}

void TestSetFile::folderInPlaceOfTheFile()
{
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("p03.set")));
    const DescribedExamination described = readSetFile(inFolder("p03.data"));
    QVERIFY(!described.error.isEmpty());
    QCOMPARE(described.examination.properties, defaultProperties());
}

QTEST_GUILESS_MAIN(TestSetFile)
#include "TestSetFile.moc"
