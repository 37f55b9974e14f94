// SPDX-License-Identifier: GPL-3.0-or-later
#include "gaze-simulator/RecordingWriter.h"
#include "import/SetFileEntries.h"
#include "TestMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestRecordingText : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void line_data();
    void line();
    void setFile();
    void setFileWithoutPicture();
    void setFileFaults_data();
    void setFileFaults();
    void property_data();
    void property();
    void aFolderThatIsMissingIsReported();
    void aFailureKeepsTheFormerFile();
};

void TestRecordingText::line_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("pupil");
    QTest::addColumn<QByteArray>("fields");
    QTest::newRow("plain") << 12.5 << 20.0 << QByteArray("12.5000\t7.0000\t20.00\t1.00");
    QTest::newRow("zeros in the middle stay") << 3.0507 << 9.05 << QByteArray("3.0507\t7.0000\t9.05\t1.00");
    QTest::newRow("rounded up over the whole part") << 9.99996 << 9.999 << QByteArray("10.0000\t7.0000\t10.00\t1.00");
    QTest::newRow("a half goes away from zero") << 0.03125 << 0.125 << QByteArray("0.0313\t7.0000\t0.13\t1.00");
    QTest::newRow("negative") << -0.25 << 1.0 << QByteArray("-0.2500\t7.0000\t1.00\t1.00");
    QTest::newRow("negative and nothing left has no sign")
        << -0.00001 << 1.0 << QByteArray("0.0000\t7.0000\t1.00\t1.00");
}

void TestRecordingText::line()
{
    QFETCH(double, x);
    QFETCH(double, pupil);
    QFETCH(QByteArray, fields);
    SimulatedSample sample;
    sample.timeMs = 5000000000;
    sample.left = {QPointF(x, 7), pupil, 1, true};
    QByteArray text;
    recording::appendLine(text, sample);
    QCOMPARE(text, "5000000000\t" + fields + "\t1\t0\t0\t0\t0\t0\n");
}

void TestRecordingText::setFile()
{
    SetFileEntries entries;
    entries.picturePath = QStringLiteral("../pictures/bay.png");
    entries.subjectId = QStringLiteral(u"M\u00fcller");
    entries.dominantEye = QStringLiteral("left");
    entries.group = QStringLiteral("expert");
    entries.properties = {{QStringLiteral("age"), QStringLiteral("31")}, {QStringLiteral("remark"), {}}};
    QCOMPARE(setFileFault(entries), QString());
    QCOMPARE(setFileText(entries),
             QByteArray("picturename=bay.png\npicturepath=../pictures/bay.png\n[subject]\n"
                        "subjectID=M\xc3\xbcller\ndominant=left\ngroup=expert\nage=31\nremark=\n"));
}

void TestRecordingText::setFileWithoutPicture()
{
    SetFileEntries entries;
    entries.subjectId = QStringLiteral("a");
    QCOMPARE(setFileText(entries), QByteArray("[subject]\nsubjectID=a\ndominant=right\ngroup=None\n"));
}

void TestRecordingText::setFileFaults_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("subject");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("named");
    const QString none;
    QTest::newRow("a picture path with a colon is taken for absolute") << "a:b.png" << none << none << "a:b.png";
    QTest::newRow("a picture path is cut at '='") << "a=b.png" << none << none << "a=b.png";
    QTest::newRow("a subject with a semicolon loses it") << none << "a;b" << none << "a;b";
    QTest::newRow("a subject of two lines") << none << "a\nb" << none << "the subject";
    QTest::newRow("a property without '='") << none << none << "age"
                                            << "KEY=VALUE";
    QTest::newRow("a property without a name") << none << none << "=3"
                                               << "KEY=VALUE";
    QTest::newRow("a property with a second '='") << none << none << "formula=a=b"
                                                  << "formula";
    QTest::newRow("a property that has an option") << none << none << "group=a"
                                                   << "group";
    QTest::newRow("a property that is read as the dominant eye") << none << none << "dominantHand=left"
                                                                 << "dominant eye";
    QTest::newRow("a property that looks like a section") << none << none << "[subject]=1"
                                                          << "[subject]";
}

void TestRecordingText::setFileFaults()
{
    QFETCH(QString, picture);
    QFETCH(QString, subject);
    QFETCH(QString, property);
    QFETCH(QString, named);
    SetFileEntries entries;
    entries.picturePath = picture;
    entries.subjectId = subject;
    if (!property.isNull())
        entries.properties << propertyFromText(property);
    const QString fault = setFileFault(entries);
    QVERIFY2(fault.contains(named), qPrintable(fault));
}

void TestRecordingText::property_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << "age=31"
                           << "age"
                           << "31";
    QTest::newRow("empty value") << "age="
                                 << "age"
                                 << "";
    QTest::newRow("no equals sign") << "age"
                                    << ""
                                    << "";
    QTest::newRow("the first equals sign parts") << "a=b=c"
                                                 << "a"
                                                 << "b=c";
}

void TestRecordingText::property()
{
    QFETCH(QString, text);
    const SetFileEntries::Property property = propertyFromText(text);
    QTEST(property.key, "key");
    QTEST(property.value, "value");
}

void TestRecordingText::aFolderThatIsMissingIsReported()
{
    QTemporaryDir folder;
    const RecordedMessages messages;
    SimulationParameters parameters;
    parameters.durationS = 0.1;
    GazeSimulator simulator(parameters, plainSaliency({100, 100}));
    const QString name = folder.filePath(QStringLiteral("missing/a"));
    QVERIFY(!recording::write(name, {}, simulator, recording::Truth::Leave));
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().constFirst().contains(name + QStringLiteral(".data: ")));
}

void TestRecordingText::aFailureKeepsTheFormerFile()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("a"));
    QFile former(name + QStringLiteral(".data"));
    QVERIFY(former.open(QIODevice::WriteOnly) && former.write("former") == 6);
    former.close();
    // a folder stands where the truth should go
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("a.labels.csv")));
    const RecordedMessages messages;
    SimulationParameters parameters;
    parameters.durationS = 0.1;
    GazeSimulator simulator(parameters, plainSaliency({100, 100}));
    QVERIFY(!recording::write(name, {}, simulator, recording::Truth::Write));
    QVERIFY(messages.texts().value(0).contains(QStringLiteral("a.labels.csv")));
    QVERIFY(former.open(QIODevice::ReadOnly));
    QCOMPARE(former.readAll(), QByteArray("former"));
}

QTEST_GUILESS_MAIN(TestRecordingText)
#include "TestRecordingText.moc"
