// SPDX-License-Identifier: GPL-3.0-or-later
#include "clustering/ClusterSettingsModel.h"
#include "detection/FixationSettingsModel.h"
#include "settings/Registry.h"
#include "settings/SettingsFile.h"
#include "settings/StoredKeys.h"
#include "visualization/parameters/AoiVisualizationParameters.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QPalette>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <functional>

namespace {

/// Every table of the program, and nothing else in this file, is to be added to here.
const auto tables = std::tie(keys::all, rows::fixation, rows::cluster, rows::visualization, rows::aoiVisualization);

/// The records whose keys begin with a path of their own.
const QStringList settingsPaths{QStringLiteral("Visualization/Gazepoint"), QStringLiteral("Visualization/Fixation"),
                                QStringLiteral("Visualization/Fixationcluster"),
                                QStringLiteral("Visualization/Saccade")};

QString factoryFile()
{
    return QStringLiteral(VISTRUM_SOURCE_DIR "/data/factory_settings.ini");
}

// One value of each type that is neither 0 nor empty, another one, and the plain reading of a text.

template <class T>
struct Samples;

template <>
struct Samples<int> {
    static int first() { return -37; }
    static int second() { return 2147483647; }
    static bool reads(const QString &text)
    {
        bool ok = false;
        return QString::number(text.toInt(&ok)) == text && ok;
    }
};

template <>
struct Samples<double> {
    static double first() { return 0.1; }
    static double second() { return 1e-300; }
    static bool reads(const QString &text)
    {
        bool ok = false;
        return std::isfinite(text.toDouble(&ok)) && ok;
    }
};

template <>
struct Samples<bool> {
    static bool first() { return true; }
    static bool second() { return false; }
    static bool reads(const QString &text) { return text == QStringLiteral("true") || text == QStringLiteral("false"); }
};

template <>
struct Samples<QColor> {
    static QColor first() { return QColor(1, 2, 3); }
    static QColor second() { return QColor(255, 254, 253); }
    static bool reads(const QString &text) { return QColor(text).name() == text; }
};

template <>
struct Samples<QString> {
    static QString first() { return QStringLiteral("/data/M\u00fcller, A; \"B\"/@1"); }
    static QString second() { return QString(); }
    static bool reads(const QString &) { return true; }
};

/// A row of a table under one key, with its type hidden.
struct Declared {
    QString key;
    std::function<bool(const QString &)> reads;
    std::function<void()> storeFirst;
    std::function<void()> storeSecond;
    std::function<bool()> readsAsFirst;
};

template <class T>
Declared declared(const QString &key)
{
    return {key, [](const QString &text) { return Samples<T>::reads(text); },
            [=] { SettingsStore().setValue(key, toStored(Samples<T>::first())); },
            [=] { SettingsStore().setValue(key, toStored(Samples<T>::second())); },
            [=] { return fromStored<T>(SettingsStore().value(key)) == Samples<T>::first(); }};
}

template <class Row>
QList<Declared> declaredKeys(const Row &row)
{
    using Value = typename Row::Value;
    if constexpr (requires { row.stored; }) // stands in the store in a form of its own
        return {declared<QString>(row.key)};
    if (!row.key.startsWith(u'/'))
        return {declared<Value>(row.key)};
    QList<Declared> all;
    for (const QString &path : settingsPaths)
        all.append(declared<Value>(path + row.key));
    return all;
}

QList<Declared> allDeclaredKeys()
{
    QList<Declared> all;
    const auto addRows = [&](const auto &...row) { (all.append(declaredKeys(row)), ...); };
    std::apply([&](const auto &...table) { (std::apply(addRows, table), ...); }, tables);
    return all;
}

QHash<QString, QString> factoryValues()
{
    QHash<QString, QString> values;
    const auto lines = readSettingsFile(factoryFile());
    if (lines) {
        for (const SettingsLine &line : *lines)
            values.insert(line.key, line.value);
    }
    return values;
}

void addKeyRows(const QStringList &without = {})
{
    QTest::addColumn<int>("index");
    const QList<Declared> all = allDeclaredKeys();
    for (int i = 0; i < all.size(); ++i) {
        if (!without.contains(all.at(i).key))
            QTest::newRow(qPrintable(all.at(i).key)) << i;
    }
}

} // namespace

class TestParameterTables : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void everyKeyIsDeclaredOnce();
    void everyKeyHasAFactoryValueOfItsType_data() { addKeyRows(); }
    void everyKeyHasAFactoryValueOfItsType();
    void everyFactoryValueHasAKeyInATable();
    void everyLineOfTheFactoryFileIsUsed();
    void factoryBordersFollowFromTheFillColors_data();
    void factoryBordersFollowFromTheFillColors();
    void everyValueSurvivesSavingAndLoading_data() { addKeyRows({keys::eyetrackerModel.key}); } // not saved
    void everyValueSurvivesSavingAndLoading();
    void initialValues();

private:
    QTemporaryDir m_folder;
};

void TestParameterTables::init()
{
    const QString store = m_folder.filePath(QStringLiteral("store.ini"));
    QFile::remove(store);
    SettingsStore::useFile(store);
}

void TestParameterTables::everyKeyIsDeclaredOnce()
{
    QSet<QString> seen;
    for (const Declared &row : allDeclaredKeys()) {
        QVERIFY2(!seen.contains(row.key), qPrintable(row.key));
        seen.insert(row.key);
    }
    QVERIFY(seen.size() >= 60);
}

void TestParameterTables::everyKeyHasAFactoryValueOfItsType()
{
    QFETCH(int, index);
    const Declared row = allDeclaredKeys().at(index);
    const auto values = factoryValues();
    QVERIFY(values.contains(row.key));
    QVERIFY2(row.reads(values.value(row.key)), qPrintable(values.value(row.key)));
}

void TestParameterTables::everyFactoryValueHasAKeyInATable()
{
    QSet<QString> known;
    for (const Declared &row : allDeclaredKeys())
        known.insert(row.key);
    for (const QString &key : factoryValues().keys()) {
        QVERIFY2(known.contains(key), qPrintable(key));
    }
}

void TestParameterTables::everyLineOfTheFactoryFileIsUsed()
{
    QFile file(factoryFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll().count('\n'), factoryValues().size());
}

void TestParameterTables::factoryBordersFollowFromTheFillColors_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("eye");
    for (const QString &path : settingsPaths) {
        for (const char *eye : {"", "Left", "Right"})
            QTest::addRow("%s %s", qPrintable(path), eye) << path << QString::fromLatin1(eye);
    }
}

void TestParameterTables::factoryBordersFollowFromTheFillColors()
{
    QFETCH(QString, path);
    QFETCH(QString, eye);
    const auto values = factoryValues();
    constexpr auto darker = "2";
    QCOMPARE(values.value(path + QStringLiteral("/BorderType")), QString::fromLatin1(darker));
    const QPalette palette(QColor(values.value(path + QStringLiteral("/FillColor") + eye)));
    QCOMPARE(values.value(path + QStringLiteral("/BorderColor") + eye), palette.dark().color().name());
}

void TestParameterTables::everyValueSurvivesSavingAndLoading()
{
    QFETCH(int, index);
    const Declared row = allDeclaredKeys().at(index);
    const Registry registry(Log(m_folder.filePath(QStringLiteral("log"))));
    const QString file = m_folder.filePath(QStringLiteral("saved.ini"));

    row.storeFirst();
    registry.saveSettings(file);
    row.storeSecond();
    QVERIFY(!row.readsAsFirst());
    QVERIFY(registry.loadSettings(file));
    QVERIFY(row.readsAsFirst());
}

void TestParameterTables::initialValues()
{
    ClusterSettingsModel cluster;
    setInitialValues(cluster, rows::cluster);
    QCOMPARE(cluster, (ClusterSettingsModel{0, 5, 0, 100, 100.0, 0.1, 100, 3}));

    AoiVisualizationParameters aoi;
    setInitialValues(aoi, rows::aoiVisualization);
    AoiVisualizationParameters expected;
    expected.displayNames = true;
    expected.lineSize = 50;
    expected.fillOpacity = 50;
    expected.borderWidth = 5;
    expected.color = QColor(255, 0, 0);
    expected.colorLeft = QColor(255, 0, 0);
    expected.colorRight = QColor(0, 255, 0);
    expected.colorAoi = QColor(0, 0, 255);
    QCOMPARE(aoi, expected);
}

QTEST_GUILESS_MAIN(TestParameterTables)
#include "TestParameterTables.moc"
