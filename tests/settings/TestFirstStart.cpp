// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FirstStart.h"
#include "settings/StoredKeys.h"
#include "TestMessages.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestFirstStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void anEmptyStoreGetsAllFactoryValues();
    void theSecondStartChangesNothing();
    void anotherVersionGetsTheFactoryValuesAnew_data();
    void anotherVersionGetsTheFactoryValuesAnew();
    void theExamplesArePutWhereNoFolderIs_data();
    void theExamplesArePutWhereNoFolderIs();
    void aMissingFactoryFileIsReportedOnce();
    void theShippedFactoryFileHoldsThisVersion();
    void dataIsSought_data();
    void dataIsSought();
    void dataInTheSourceTreeIsFound();
    void examplesAreSought();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void write(const QString &name, const QByteArray &bytes) const;
    QString factory(const QByteArray &bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFirstStart::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    SettingsStore::useFile(path(QStringLiteral("store.ini")));
}

void TestFirstStart::write(const QString &name, const QByteArray &bytes) const
{
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QString TestFirstStart::factory(const QByteArray &bytes) const
{
    write(QStringLiteral("factory.ini"), bytes);
    return path(QStringLiteral("factory.ini"));
}

void TestFirstStart::anEmptyStoreGetsAllFactoryValues()
{
    const QString file = factory("Visualization/EyeMode=3\nNew/Key=a,b\nEmpty/Key=\nVersion=none\n");
    QTest::ignoreMessage(QtDebugMsg, "Loaded default settings");
    QVERIFY(applyFactorySettings(file, QString()));
    QCOMPARE(eyeMode(), EyeMode::showRight);
    QCOMPARE(SettingsStore().value(QStringLiteral("New/Key")).toString(), QStringLiteral("a,b"));
    QVERIFY(SettingsStore().contains(QStringLiteral("Empty/Key")));
    QCOMPARE(readStored(keys::version), QStringLiteral("2014r3.1"));
}

void TestFirstStart::theSecondStartChangesNothing()
{
    const QString file = factory("Visualization/EyeMode=3\n");
    QVERIFY(applyFactorySettings(file, QString()));
    writeStored(keys::eyeMode, 1);
    QVERIFY(!applyFactorySettings(file, m_folder->path()));
    QCOMPARE(readStored(keys::eyeMode), 1);
    QCOMPARE(readStored(keys::lastRecordingFolder), QString());
}

void TestFirstStart::anotherVersionGetsTheFactoryValuesAnew_data()
{
    QTest::addColumn<QString>("version");
    QTest::newRow("older") << QStringLiteral("2013r1");
    QTest::newRow("newer") << QStringLiteral("2014r3.10");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank behind it") << QStringLiteral("2014r3.1 ");
}

void TestFirstStart::anotherVersionGetsTheFactoryValuesAnew()
{
    QFETCH(QString, version);
    writeStored(keys::version, version);
    writeStored(keys::eyeMode, 1);
    writeStored(keys::heatmapIntensity, 5);
    QVERIFY(applyFactorySettings(factory("Visualization/EyeMode=3\n"), QString()));
    QCOMPARE(readStored(keys::eyeMode), 3);
    QCOMPARE(readStored(keys::heatmapIntensity), 5); // not in the file
    QCOMPARE(readStored(keys::version), QStringLiteral("2014r3.1"));
}

void TestFirstStart::theExamplesArePutWhereNoFolderIs_data()
{
    QTest::addColumn<QByteArray>("factoryText");
    QTest::addColumn<QString>("examples");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty key") << QByteArray("ImportModule/lastbasepath=\n") << QStringLiteral("examples")
                               << QStringLiteral("examples");
    QTest::newRow("no key") << QByteArray() << QStringLiteral("examples") << QStringLiteral("examples");
    QTest::newRow("a folder already") << QByteArray("ImportModule/lastbasepath=/data\n") << QStringLiteral("examples")
                                      << QStringLiteral("/data");
    QTest::newRow("no such examples") << QByteArray() << QStringLiteral("missing") << QString();
    QTest::newRow("examples are no folder") << QByteArray() << QStringLiteral("factory.ini") << QString();
}

void TestFirstStart::theExamplesArePutWhereNoFolderIs()
{
    QFETCH(QByteArray, factoryText);
    QFETCH(QString, examples);
    QFETCH(QString, expected);
    QVERIFY(QDir().mkpath(path(QStringLiteral("examples"))));
    QVERIFY(applyFactorySettings(factory(factoryText), path(examples)));
    const bool isExamples = expected == examples;
    QCOMPARE(readStored(keys::lastRecordingFolder), isExamples ? path(expected) : expected);
}

void TestFirstStart::aMissingFactoryFileIsReportedOnce()
{
    const RecordedMessages messages;
    const QString missing = path(QStringLiteral("missing.ini"));
    QVERIFY(applyFactorySettings(missing, QString()));
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(messages.texts().first().contains(missing));
    QCOMPARE(readStored(keys::version), QStringLiteral("2014r3.1"));
    QVERIFY(!applyFactorySettings(missing, QString()));
    QCOMPARE(messages.texts().size(), 1);
}

void TestFirstStart::theShippedFactoryFileHoldsThisVersion()
{
    // A reset of the settings in the window loads the same file; it must not make the next start a first one.
    QVERIFY(applyFactorySettings(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"), QString()));
    QFile file(QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("\nVersion=2014r3.1\n"));
    QCOMPARE(eyeMode(), EyeMode::showAll);
}

void TestFirstStart::dataIsSought_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("expected");
    const QString beside = QStringLiteral("bin/data/own.ini");
    const QString installed = QStringLiteral("share/vistrum/own.ini");
    QTest::newRow("beside the program") << QStringList{beside} << beside;
    QTest::newRow("in the installed data folder") << QStringList{installed} << installed;
    QTest::newRow("beside the program comes first") << QStringList{installed, beside} << beside;
    QTest::newRow("nowhere: the place for messages") << QStringList() << beside;
}

void TestFirstStart::dataIsSought()
{
    QFETCH(QStringList, files);
    QFETCH(QString, expected);
    QVERIFY(QDir().mkpath(path(QStringLiteral("bin"))));
    for (const QString &file : files)
        write(file, "x");
    QCOMPARE(findDataFile(QStringLiteral("own.ini"), path(QStringLiteral("bin"))), path(expected));
}

void TestFirstStart::dataInTheSourceTreeIsFound()
{
    QCOMPARE(findDataFile(QStringLiteral("factory_settings.ini"), path(QStringLiteral("bin"))),
             QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini"));
}

void TestFirstStart::examplesAreSought()
{
    const QString bin = path(QStringLiteral("bin"));
    QVERIFY(QDir().mkpath(bin));
    QVERIFY(QDir().mkpath(path(QStringLiteral("share/vistrum/examples/study"))));
    QCOMPARE(findExamplesFolder(bin), path(QStringLiteral("share/vistrum/examples/study")));
    QVERIFY(QDir().mkpath(path(QStringLiteral("bin/examples/study"))));
    QCOMPARE(findExamplesFolder(bin), path(QStringLiteral("bin/examples/study")));
}

QTEST_GUILESS_MAIN(TestFirstStart)
#include "TestFirstStart.moc"
