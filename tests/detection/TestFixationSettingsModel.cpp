// SPDX-License-Identifier: GPL-3.0-or-later
#include "detection/FixationSettingsModel.h"
#include "detection/StoredGeometry.h"
#include "TestSettings.h"

#include <QTest>

namespace {

const QString typeKey = QStringLiteral("Calculation/Fixation/CalculationType");
const QString unitKey = QStringLiteral("Calculation/Fixation/Velocity/Unit");

} // namespace

class TestFixationSettingsModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initialValues();
    void emptyStoreReadsAsZeroAndIsFilled();
    void storedValuesAreLoaded();
    void calculationTypeFromText_data();
    void calculationTypeFromText();
    void unknownTypeStaysInTheStore();
    void calculationTypeIsStoredAsText_data();
    void calculationTypeIsStoredAsText();
    void velocityUnitFromText_data();
    void velocityUnitFromText();
    void chosenVelocityUnitIsLost();
    void lostChoices_data();
    void lostChoices();
    void geometryRemembersTheUnit();
    void typeNames_data();
    void typeNames();
};

void TestFixationSettingsModel::initialValues()
{
    const FixationSettingsModel model = initialFixationSettings();
    QCOMPARE(model.calculationType, 0);
    QCOMPARE(model.standardMinimumDuration, 30);
    QCOMPARE(model.standardMaximumRadius, 40);
    QCOMPARE(model.standardOutliers, 4);
    QCOMPARE(model.gaussianMinimumDuration, 200);
    QCOMPARE(model.gaussianMergeSequential, true);
    QCOMPARE(model.velocityMinimumDuration, 200);
    QCOMPARE(model.velocityThreshold, 10.0);
    QCOMPARE(model.velocityScreenDistance, 0.6);
    QCOMPARE(model.velocityImageSize, 0.2);
    QCOMPARE(model.velocityUnit, 0);
}

void TestFixationSettingsModel::emptyStoreReadsAsZeroAndIsFilled()
{
    const TemporarySettings settings;
    FixationSettingsModel model = initialFixationSettings();
    loadFixationSettings(model);
    QCOMPARE(model.calculationType, 3);
    QCOMPARE(model.standardMinimumDuration, 0);
    QCOMPARE(model.standardMaximumRadius, 0);
    QCOMPARE(model.gaussianMergeSequential, false);
    QCOMPARE(model.velocityScreenDistance, 0.0);
    QCOMPARE(model.velocityUnit, 2);
    const SettingsStore store;
    QCOMPARE(store.allKeys().size(), 12);
    QCOMPARE(store.value(typeKey).toString(), QString());
    QCOMPARE(store.value(QStringLiteral("Calculation/Fixation/Standard/Outlier")).toString(), QStringLiteral("0"));
    QCOMPARE(store.value(QStringLiteral("Calculation/Fixation/Gaussian/MergeSequential")).toString(),
             QStringLiteral("false"));
    QCOMPARE(store.value(unitKey).toInt(), 2);
}

void TestFixationSettingsModel::storedValuesAreLoaded()
{
    const TemporarySettings settings;
    SettingsStore store;
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/MinimumDuration"), QStringLiteral("120"));
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/MaximumRadius"), QStringLiteral("33"));
    store.setValue(QStringLiteral("Calculation/Fixation/Standard/Outlier"), QStringLiteral("7"));
    store.setValue(QStringLiteral("Calculation/Fixation/Gaussian/MinimumDuration"), QStringLiteral("90"));
    store.setValue(QStringLiteral("Calculation/Fixation/Gaussian/MergeSequential"), QStringLiteral("true"));
    store.setValue(QStringLiteral("Calculation/Fixation/Velocity/MinimumDuration"), QStringLiteral("80"));
    store.setValue(QStringLiteral("Calculation/Fixation/Velocity/VelocityThreshold"), QStringLiteral("10.75"));
    store.setValue(QStringLiteral("Calculation/Fixation/Velocity/ScreenDistance"), QStringLiteral("0.65"));
    store.setValue(QStringLiteral("Calculation/Fixation/Velocity/ImageSize"), QStringLiteral("0.3"));
    store.setValue(QStringLiteral("Calculation/Fixation/Velocity/ImageSizePixel"), QStringLiteral("1024"));
    FixationSettingsModel model;
    loadFixationSettings(model);
    QCOMPARE(model.standardMinimumDuration, 120);
    QCOMPARE(model.standardMaximumRadius, 33);
    QCOMPARE(model.standardOutliers, 7);
    QCOMPARE(model.gaussianMinimumDuration, 90);
    QCOMPARE(model.gaussianMergeSequential, true);
    QCOMPARE(model.velocityMinimumDuration, 80);
    QCOMPARE(model.velocityThreshold, 10.75);
    QCOMPARE(model.velocityScreenDistance, 0.65);
    QCOMPARE(model.velocityImageSize, 0.3);
    QCOMPARE(model.velocityImageSizePixels, 1024);
}

void TestFixationSettingsModel::calculationTypeFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("type");
    QTest::newRow("Standard") << QStringLiteral("Standard") << 0;
    QTest::newRow("Gaussian Mixture Model") << QStringLiteral("Gaussian Mixture Model") << 1;
    QTest::newRow("Velocity based is not recognised") << QStringLiteral("Velocity based") << 3;
    QTest::newRow("an index is no name") << QStringLiteral("0") << 3;
    QTest::newRow("other case") << QStringLiteral("standard") << 3;
    QTest::newRow("empty") << QString() << 3;
}

void TestFixationSettingsModel::calculationTypeFromText()
{
    QFETCH(QString, text);
    const TemporarySettings settings;
    SettingsStore().setValue(typeKey, text);
    FixationSettingsModel model;
    loadFixationSettings(model);
    QTEST(model.calculationType, "type");
}

void TestFixationSettingsModel::unknownTypeStaysInTheStore()
{
    const TemporarySettings settings;
    SettingsStore().setValue(typeKey, QStringLiteral("Velocity based"));
    FixationSettingsModel model;
    loadFixationSettings(model);
    QCOMPARE(SettingsStore().value(typeKey).toString(), QStringLiteral("Velocity based"));
}

void TestFixationSettingsModel::calculationTypeIsStoredAsText_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << QStringLiteral("Standard");
    QTest::newRow("1") << 1 << QStringLiteral("Gaussian Mixture Model");
    QTest::newRow("2") << 2 << QStringLiteral("Velocity based");
    QTest::newRow("unknown") << 3 << QString();
    QTest::newRow("no current item") << -1 << QString();
}

void TestFixationSettingsModel::calculationTypeIsStoredAsText()
{
    QFETCH(int, type);
    const TemporarySettings settings;
    FixationSettingsModel model;
    setParameter(model, rows::calculationType, type);
    QCOMPARE(model.calculationType, type);
    QTEST(SettingsStore().value(typeKey).toString(), "text");
}

void TestFixationSettingsModel::velocityUnitFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("unit");
    QTest::newRow("with blanks") << QStringLiteral("[Pixel / ms]") << 0;
    QTest::newRow("degrees") << QString::fromUtf8("[\xC2\xB0/s]") << 1;
    QTest::newRow("as in the combo box") << QStringLiteral("[Pixel/ms]") << 2;
    QTest::newRow("index 0") << QStringLiteral("0") << 2;
    QTest::newRow("index 1") << QStringLiteral("1") << 2;
}

void TestFixationSettingsModel::velocityUnitFromText()
{
    QFETCH(QString, text);
    const TemporarySettings settings;
    SettingsStore().setValue(unitKey, text);
    FixationSettingsModel model;
    loadFixationSettings(model);
    QTEST(model.velocityUnit, "unit");
    QCOMPARE(SettingsStore().value(unitKey).toInt(), model.velocityUnit);
}

void TestFixationSettingsModel::chosenVelocityUnitIsLost()
{
    const TemporarySettings settings;
    FixationSettingsModel model;
    setParameter(model, rows::velocityUnit, 1);
    QCOMPARE(SettingsStore().value(unitKey).toInt(), 1);
    loadFixationSettings(model);
    QCOMPARE(model.velocityUnit, 2);
}

void TestFixationSettingsModel::lostChoices_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("lostDetector");
    QTest::addColumn<QString>("lostUnit");
    const auto row = [](const char *name, const char *type, const char *unit, const char *lostDetector,
                        const char *lostUnit) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(unit)
                            << QString::fromLatin1(lostDetector) << QString::fromLatin1(lostUnit);
    };
    row("nothing is stored", "", "", "", "");
    row("what is read as it was stored", "Standard", "2", "", "");
    row("the texts that are read", "Gaussian Mixture Model", "[Pixel / ms]", "", "");
    row("a detector", "Velocity based", "2",
        "The stored detector \"Velocity based\" is not recognised: the standard detector runs until another is chosen.",
        "");
    row("pixels", "Standard", "0", "", "The stored unit of the velocity threshold, [Pixel/ms], is read as Percentile.");
    row("degrees", "Standard", "1", "", "The stored unit of the velocity threshold, [\xB0/s], is read as Percentile.");
    row("no unit at all", "Standard", "abc", "", "");
    row("a number of no unit", "Standard", "3", "", "");
}

void TestFixationSettingsModel::lostChoices()
{
    QFETCH(QString, type);
    QFETCH(QString, unit);
    const TemporarySettings settings;
    SettingsStore().setValue(typeKey, type);
    SettingsStore().setValue(unitKey, unit);
    const LostFixationChoices lost = lostFixationChoices();
    QTEST(lost.detector, "lostDetector");
    QTEST(lost.velocityUnit, "lostUnit");
    QCOMPARE(SettingsStore().value(unitKey).toString(), unit); // asking changes nothing
    FixationSettingsModel model;
    loadFixationSettings(model);
    // By then the unit that is in force stands in the store, as a number: the next start can lose one that was a text.
    QCOMPARE(lostFixationChoices().velocityUnit.isEmpty(), SettingsStore().value(unitKey).toString() == u"2");
}

/// 0.4 m are 2560 px wide, 0.6 m away.
void TestFixationSettingsModel::geometryRemembersTheUnit()
{
    const TemporarySettings settings;
    FixationSettingsModel model;
    setParameter(model, rows::velocityImageSize, 0.4);
    setParameter(model, rows::velocityImageSizePixels, 2560);
    setParameter(model, rows::velocityScreenDistance, 0.6);
    setParameter(model, rows::velocityUnit, 2);
    QCOMPARE(storedPixelPerDistance(), std::nullopt);
    QVERIFY(!storedGeometry());
    setParameter(model, rows::velocityUnit, 1);
    const std::optional<ViewingGeometry> geometry = storedGeometry();
    QVERIFY(geometry);
    QCOMPARE(geometry->screenDistanceM, 0.6);
    QCOMPARE(geometry->imageSizeM, 0.4);
    QCOMPARE(geometry->imageWidthPx, 2560.0);
    QCOMPARE(storedPixelPerDistance(), std::optional(0.4 / 2560 / 0.6));
    QCOMPARE(storedPixelPerDistance(), std::optional(0.4 / 2560 / 0.6)); // asking changes nothing
    SettingsStore().setValue(unitKey, QString::fromUtf8("[\xC2\xB0/s]"));
    QCOMPARE(storedPixelPerDistance(), std::optional(0.4 / 2560 / 0.6));
}

void TestFixationSettingsModel::typeNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("Standard") << QStringLiteral("Standard") << 0;
    QTest::newRow("Gaussian Mixture Model") << QStringLiteral("Gaussian Mixture Model") << 1;
    QTest::newRow("Velocity based") << QStringLiteral("Velocity based") << 2;
    QTest::newRow("no current item") << QString() << 0;
    QTest::newRow("every other text") << QStringLiteral("x") << 0;
}

void TestFixationSettingsModel::typeNames()
{
    QFETCH(QString, name);
    QTEST(calculationTypeNamed(name), "type");
}

QTEST_GUILESS_MAIN(TestFixationSettingsModel)
#include "TestFixationSettingsModel.moc"
