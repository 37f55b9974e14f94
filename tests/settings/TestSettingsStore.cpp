// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsStore.h"
#include "settings/StoredKeys.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

struct Record {
    QString settingsPath = QStringLiteral("A/B");
    int number = 1;
    bool flag = true;
    double real = 1;
    QColor color = Qt::red;
    QString text = QStringLiteral("x");
};

constexpr Parameter numberRow{&Record::number, QLatin1StringView("/Number"), 5};
constexpr Parameter flagRow{&Record::flag, QLatin1StringView("Flag"), true};
constexpr Parameter realRow{&Record::real, QLatin1StringView("Real"), 0.5};
constexpr Parameter colorRow{&Record::color, QLatin1StringView("Color"), QColor(1, 2, 3)};
const Parameter textRow{&Record::text, QLatin1StringView("Text"), QStringLiteral("initial")};
const auto rowsOfRecord = std::tie(numberRow, flagRow, realRow, colorRow, textRow);

} // namespace

class TestSettingsStore : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void theUsersOwnStoreIsThatOfTheApplication();
    void whatOneWritesTheNextReads();
    void whatIsWrittenIsInTheFileAtOnce();
    void whatAnotherProgramWroteIsRead();
    void eyeMode_data();
    void eyeMode();
    void flagsThatAreSet();
    void missingValuesReadAsNothing();
    void initialValuesAndStoredOnes();
    void textReadsAsItsType_data();
    void textReadsAsItsType();
    void aKeyOfItsOwnPathStandsUnderIt();

private:
    QString store() const { return m_folder->filePath(QStringLiteral("folder/store.ini")); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestSettingsStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    SettingsStore::useFile(store());
}

void TestSettingsStore::theUsersOwnStoreIsThatOfTheApplication()
{
    SettingsStore::useFile(QString());
    const QSettings application(QStringLiteral("Brennhaus Institute"), QStringLiteral("Vistrum 2014"));
    QCOMPARE(SettingsStore::path(), application.fileName());
}

void TestSettingsStore::whatOneWritesTheNextReads()
{
    SettingsStore writer;
    const SettingsStore before;
    writer.setValue(QStringLiteral("A/B"), 7);
    QCOMPARE(SettingsStore().value(QStringLiteral("A/B")).toInt(), 7);
    QCOMPARE(before.value(QStringLiteral("A/B")).toInt(), 7);
}

void TestSettingsStore::whatIsWrittenIsInTheFileAtOnce()
{
    SettingsStore().setValue(QStringLiteral("A/B"), 7);
    QFile file(store());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("[A]\nB=7\n"));
}

void TestSettingsStore::whatAnotherProgramWroteIsRead()
{
    SettingsStore ours;
    ours.setValue(QStringLiteral("A/B"), 7);
    ours.sync();
    QFile file(store());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[A]\nB=12345\n");
    file.close();
    ours.sync();
    QCOMPARE(ours.value(QStringLiteral("A/B")).toInt(), 12345);
    QCOMPARE(SettingsStore().value(QStringLiteral("A/B")).toInt(), 12345);
}

void TestSettingsStore::eyeMode_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<EyeMode>("expected");
    QTest::newRow("first") << QVariant(0) << EyeMode::showAll;
    QTest::newRow("text, as after loading a file") << QVariant(QStringLiteral("2")) << EyeMode::showLeft;
    QTest::newRow("last") << QVariant(4) << EyeMode::showMean;
    QTest::newRow("beyond the last") << QVariant(5) << EyeMode::showAll;
    QTest::newRow("below the first") << QVariant(-1) << EyeMode::showAll;
    QTest::newRow("no number") << QVariant(QStringLiteral("left")) << EyeMode::showAll;
}

void TestSettingsStore::eyeMode()
{
    QFETCH(QVariant, stored);
    QCOMPARE(::eyeMode(), EyeMode::showAll); // nothing stored
    SettingsStore().setValue(keys::eyeMode.key, stored);
    QTEST(::eyeMode(), "expected");
}

void TestSettingsStore::flagsThatAreSet()
{
    QVERIFY(storedFlags().isEmpty()); // nothing stored
    writeStored(keys::verticalActivity, true);
    writeStored(keys::horizontalActivity, false);
    writeCheckState(keys::glanceFrequency, Qt::Checked);
    writeCheckState(keys::glanceProportion, Qt::Unchecked);
    writeStored(keys::exportAppendInfo, 2); // a number, no flag
    QCOMPARE(storedFlags(), QSet({keys::verticalActivity.key, keys::glanceFrequency.key}));
}

void TestSettingsStore::missingValuesReadAsNothing()
{
    Record record;
    loadParameters(record, rowsOfRecord);
    QCOMPARE(record.number, 0);
    QCOMPARE(record.flag, false);
    QCOMPARE(record.real, 0.0);
    QVERIFY(!record.color.isValid());
    QCOMPARE(record.text, QString());
    QVERIFY(!SettingsStore().contains(flagRow.key));
}

void TestSettingsStore::initialValuesAndStoredOnes()
{
    Record record;
    setInitialValues(record, rowsOfRecord);
    QCOMPARE(record.number, 5);
    QCOMPARE(record.text, QStringLiteral("initial"));
    QVERIFY2(SettingsStore().allKeys().isEmpty(), "a value at construction is not stored");

    setParameter(record, realRow, 0.25);
    QCOMPARE(record.real, 0.25);
    QCOMPARE(SettingsStore().value(realRow.key).toString(), QStringLiteral("0.25"));
    setParameter(record, colorRow, QColor(16, 32, 48));
    QCOMPARE(SettingsStore().value(colorRow.key).toString(), QStringLiteral("#102030"));
    Record other;
    loadParameters(other, rowsOfRecord);
    QCOMPARE(other.real, 0.25);
    QCOMPARE(other.color, QColor(16, 32, 48));
}

void TestSettingsStore::textReadsAsItsType_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<double>("real");
    QTest::newRow("number") << QStringLiteral("12") << 12 << true << 12.0;
    QTest::newRow("fraction is no whole number") << QStringLiteral("2.5") << 0 << true << 2.5;
    QTest::newRow("true") << QStringLiteral("true") << 0 << true << 0.0;
    QTest::newRow("false") << QStringLiteral("false") << 0 << false << 0.0;
    QTest::newRow("zero") << QStringLiteral("0") << 0 << false << 0.0;
    QTest::newRow("empty") << QString() << 0 << false << 0.0;
    QTest::newRow("beyond int") << QStringLiteral("99999999999") << 0 << true << 99999999999.0;
    QTest::newRow("largest whole number") << QStringLiteral("2147483647") << 2147483647 << true << 2147483647.0;
    QTest::newRow("not a number") << QStringLiteral("x") << 0 << true << 0.0;
    QTest::newRow("decimal comma is no number") << QStringLiteral("0,6") << 0 << true << 0.0;
}

void TestSettingsStore::textReadsAsItsType()
{
    QFETCH(QString, stored);
    SettingsStore().setValue(flagRow.key, stored);
    SettingsStore().setValue(realRow.key, stored);
    Record record;
    SettingsStore().setValue(storedKey(record, numberRow), stored);
    loadParameters(record, rowsOfRecord);
    QTEST(record.number, "number");
    QTEST(record.flag, "flag");
    QTEST(record.real, "real");
}

void TestSettingsStore::aKeyOfItsOwnPathStandsUnderIt()
{
    Record record;
    setParameter(record, numberRow, 9);
    QCOMPARE(SettingsStore().allKeys(), QStringList{QStringLiteral("A/B/Number")});
}

QTEST_GUILESS_MAIN(TestSettingsStore)
#include "TestSettingsStore.moc"
