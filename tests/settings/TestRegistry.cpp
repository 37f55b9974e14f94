// SPDX-License-Identifier: GPL-3.0-or-later
#include "FullDisk.h"
#include "settings/Registry.h"
#include "settings/StoredKeys.h"
#include "TestMessages.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestRegistry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void writesALineForEachKeyInOrder();
    void replacesWhatTheFileHeldBefore();
    void writesValuesAsText_data();
    void writesValuesAsText();
    void tellsWhatItCannotWrite();
    void keepsTheOlderFileOnAFullDisk();
    void loadsALine_data();
    void loadsALine();
    void loadsWhateverTheLineEnds_data();
    void loadsWhateverTheLineEnds();
    void logsWhatItLoads();
    void reportsAFileThatCannotBeOpened_data();
    void reportsAFileThatCannotBeOpened();
    void keepsKeysAndTextsOfAllKinds_data();
    void keepsKeysAndTextsOfAllKinds();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1StringView(name)); }
    QByteArray content(const char *name) const;
    void write(const char *name, const QByteArray &bytes) const;
    Registry registry() const { return Registry(Log(path("log"))); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestRegistry::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    SettingsStore::useFile(path("store.ini"));
}

QByteArray TestRegistry::content(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

void TestRegistry::write(const char *name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void TestRegistry::writesALineForEachKeyInOrder()
{
    writeStored(keys::lastRecordingFolder, QStringLiteral("/data/M\u00fcller, first"));
    writeStored(keys::eyetrackerModel, QStringLiteral("kept at home"));
    writeStored(keys::version, QStringLiteral("1"));
    writeStored(keys::saveAoiFolder, QString());
    writeStored(keys::numberOfFixations, true);
    SettingsStore().setValue(QStringLiteral("Calculation/Fixation/Velocity/ImageSizePixel"), 1024.5);
    writeStored(keys::eyeMode, 3);
    writeStored(keys::clusterOptionsFillColor, QColor(255, 128, 0));
    registry().saveSettings(path("saved.ini"));
    QCOMPARE(content("saved.ini"), QByteArray("AOIModule/SAVEAOIDIR=\n"
                                              "Calculation/Fixation/Velocity/ImageSizePixel=1024.5\n"
                                              "ImportModule/lastbasepath=/data/M\xc3\xbcller, first\n"
                                              "Statistics/AOI/NumberOfFixations=true\n"
                                              "Version=1\n"
                                              "Visualization/Cluster/FillColor=#ff8000\n"
                                              "Visualization/EyeMode=3\n"));
}

void TestRegistry::replacesWhatTheFileHeldBefore()
{
    write("saved.ini", QByteArray(10000, 'x'));
    writeStored(keys::version, QStringLiteral("1"));
    registry().saveSettings(path("saved.ini"));
    QCOMPARE(content("saved.ini"), QByteArray("Version=1\n"));
}

void TestRegistry::writesValuesAsText_data()
{
    QTest::addColumn<QByteArray>("storeText");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("quoted text with a comma") << QByteArray("Version=\"a,b\"") << QByteArray("Version=a,b\n");
    QTest::newRow("text with a comma without quotes does not vanish")
        << QByteArray("Version=a, b") << QByteArray("Version=a, b\n");
    QTest::newRow("text that begins with @") << QByteArray("Version=@@home") << QByteArray("Version=@home\n");
    QTest::newRow("bytes") << QByteArray("Version=@ByteArray(abc)") << QByteArray("Version=abc\n");
    QTest::newRow("a value of no type") << QByteArray("Version=@Invalid()") << QByteArray("Version=\n");
    QTest::newRow("text with an equals sign") << QByteArray("Version=\"a=b\"") << QByteArray("Version=a=b\n");
}

void TestRegistry::writesValuesAsText()
{
    QFETCH(QByteArray, storeText);
    write("store.ini", "[General]\n" + storeText + '\n');
    registry().saveSettings(path("saved.ini"));
    QTEST(content("saved.ini"), "saved");
}

void TestRegistry::tellsWhatItCannotWrite()
{
    const RecordedMessages messages;
    writeStored(keys::version, QStringLiteral("1"));
    registry().saveSettings(path("no such folder/saved.ini"));
    registry().saveSettings(m_folder->path());
    QCOMPARE(messages.texts().size(), 2);
    const QString first = QStringLiteral("Settings|") + path("no such folder/saved.ini");
    QVERIFY2(messages.texts()[0].startsWith(first + QStringLiteral(" could not be written: ")),
             qPrintable(messages.texts()[0]));
    QCOMPARE(messages.texts()[1], QStringLiteral("Settings|") + m_folder->path() +
                                      QStringLiteral(" could not be written: it is not a regular file"));
    QVERIFY(!QFile::exists(path("no such folder")));
    QCOMPARE(readStored(keys::version), QStringLiteral("1"));
}

/// A limit on the size of files stands for a full disk.
void TestRegistry::keepsTheOlderFileOnAFullDisk()
{
    const RecordedMessages messages;
    writeStored(keys::version, QStringLiteral("older"));
    registry().saveSettings(path("saved.ini"));
    const QByteArray older = content("saved.ini");
    writeStored(keys::version, QString(5000, u'x'));
    {
        const FullDisk disk(1000);
        registry().saveSettings(path("saved.ini"));
    }
    QCOMPARE(content("saved.ini"), older);
    QCOMPARE(messages.texts().size(), 1);
}

void TestRegistry::loadsALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected"); // the key held "old" before
    QTest::newRow("a value") << QByteArray("Version=new") << QStringLiteral("new");
    QTest::newRow("an empty value") << QByteArray("Version=") << QString();
    QTest::newRow("nothing is trimmed") << QByteArray("Version= new ") << QStringLiteral(" new ");
    QTest::newRow("a key with a blank is another key") << QByteArray("Version =new") << QStringLiteral("old");
    QTest::newRow("two equals signs") << QByteArray("Version=a=b") << QStringLiteral("old");
    QTest::newRow("two equals signs at the end") << QByteArray("Version=a=") << QStringLiteral("old");
    QTest::newRow("no equals sign") << QByteArray("Version") << QStringLiteral("old");
    QTest::newRow("no key") << QByteArray("=new") << QStringLiteral("old");
    QTest::newRow("nothing but an equals sign") << QByteArray("=") << QStringLiteral("old");
    QTest::newRow("an empty line") << QByteArray("") << QStringLiteral("old");
    QTest::newRow("a section is a line like others") << QByteArray("[General]") << QStringLiteral("old");
    QTest::newRow("keys differ by case") << QByteArray("version=new") << QStringLiteral("old");
    QTest::newRow("the last of two wins") << QByteArray("Version=a\nVersion=b") << QStringLiteral("b");
    QTest::newRow("utf-8") << QByteArray("Version=\xc3\xbc") << QStringLiteral("\u00fc");
    QTest::newRow("latin-1") << QByteArray("Version=\xfc") << QStringLiteral("\u00fc");
    QTest::newRow("text of a typed value stays text")
        << QByteArray("Version=@Size(1 2)") << QStringLiteral("@Size(1 2)");
}

void TestRegistry::loadsALine()
{
    QFETCH(QByteArray, line);
    writeStored(keys::version, QStringLiteral("old"));
    write("saved.ini", line + "\nVisualization/EyeMode=2\n");
    QVERIFY(registry().loadSettings(path("saved.ini")));
    QTEST(readStored(keys::version), "expected");
    QVERIFY2(!SettingsStore().contains(keys::eyeMode.key), "a file must not add a key");
    QCOMPARE(SettingsStore().allKeys(), QStringList{keys::version.key});
}

void TestRegistry::loadsWhateverTheLineEnds_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("line feed") << QByteArray("Version=new\nVisualization/EyeMode=2\n");
    QTest::newRow("carriage return and line feed") << QByteArray("Version=new\r\nVisualization/EyeMode=2\r\n");
    QTest::newRow("converted twice") << QByteArray("Version=new\r\r\nVisualization/EyeMode=2\r\r\n");
    QTest::newRow("nothing at the end") << QByteArray("Version=new\nVisualization/EyeMode=2");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbfVersion=new\nVisualization/EyeMode=2");
}

void TestRegistry::loadsWhateverTheLineEnds()
{
    QFETCH(QByteArray, bytes);
    writeStored(keys::version, QStringLiteral("old"));
    writeStored(keys::eyeMode, 1);
    write("saved.ini", bytes);
    QVERIFY(registry().loadSettings(path("saved.ini")));
    QCOMPARE(readStored(keys::version), QStringLiteral("new"));
    QCOMPARE(readStored(keys::eyeMode), 2);
}

void TestRegistry::logsWhatItLoads()
{
    writeStored(keys::version, QStringLiteral("old"));
    writeStored(keys::eyeMode, 1);
    write("saved.ini", "Visualization/EyeMode=2\nUnknown/Key=5\nVersion=\n");
    QVERIFY(registry().loadSettings(path("saved.ini")));
    QCOMPARE(content("log"), QByteArray("RegistryImport: Visualization/EyeMode -> 2\n"
                                        "RegistryImport: Version -> \n"));
}

void TestRegistry::reportsAFileThatCannotBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no such file") << QStringLiteral("missing.ini");
    QTest::newRow("a folder") << QStringLiteral(".");
    QTest::newRow("no name") << QString();
}

void TestRegistry::reportsAFileThatCannotBeOpened()
{
    QFETCH(QString, name);
    const RecordedMessages messages;
    writeStored(keys::version, QStringLiteral("old"));
    QVERIFY(!registry().loadSettings(name.isEmpty() ? name : m_folder->filePath(name)));
    QCOMPARE(messages.texts(), QStringList{QStringLiteral("Information|Error: The file could not be opened!")});
    QCOMPARE(content("log"), QByteArray("ERROR: Could not open registry file!\n"));
    QCOMPARE(readStored(keys::version), QStringLiteral("old"));
}

void TestRegistry::keepsKeysAndTextsOfAllKinds_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::newRow("a key with a percent sign") << QStringLiteral("A/50%") << QStringLiteral("x");
    QTest::newRow("a key with a blank and an umlaut") << QStringLiteral("A/B c/\u00fc") << QStringLiteral("x");
    QTest::newRow("a key without a folder") << QStringLiteral("General") << QStringLiteral("x");
    QTest::newRow("a key that begins like a byte order mark") << QStringLiteral("\ufeffK") << QStringLiteral("x");
    QTest::newRow("commas") << QStringLiteral("K") << QStringLiteral("a,b, c");
    QTest::newRow("semicolon, quote, backslash") << QStringLiteral("K") << QStringLiteral("C:\\a;\"b\"");
    QTest::newRow("blanks around") << QStringLiteral("K") << QStringLiteral("  x  ");
    QTest::newRow("beyond latin-1") << QStringLiteral("K") << QStringLiteral("\u89c6\u7ebf");
    QTest::newRow("at sign") << QStringLiteral("K") << QStringLiteral("@Variant(x)");
    QTest::newRow("hexadecimal look") << QStringLiteral("K") << QStringLiteral("\\x41");
}

void TestRegistry::keepsKeysAndTextsOfAllKinds()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    SettingsStore().setValue(key, value);
    registry().saveSettings(path("saved.ini"));
    SettingsStore().setValue(key, QStringLiteral("other"));
    QVERIFY(registry().loadSettings(path("saved.ini")));
    QCOMPARE(SettingsStore().value(key).toString(), value);
}

QTEST_GUILESS_MAIN(TestRegistry)
#include "TestRegistry.moc"
