// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/AngleStarExport.h"
#include "export/MeasureExport.h"
#include "export/StatisticsExport.h"
#include "export/TransitionExport.h"
#include "ExportSamples.h"
#include "PlainMeasures.h"
#include "settings/StoredKeys.h"
#include "SimulatedStudy.h"
#include "TestMessages.h"
#include "TestSettings.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr const char *words[] = {"left", "right", "dominant", "mean"};
constexpr const char *stems[] = {"left", "right", "dom", "mean"};
constexpr Eye eyes[] = {Eye::Left, Eye::Right, Eye::Dominant, Eye::Mean};
constexpr EyeMode modes[] = {EyeMode::showLeft, EyeMode::showRight, EyeMode::showDominant, EyeMode::showMean};

bool areClose(double a, double b)
{
    return std::abs(a - b) <= 1e-9 * std::max({1.0, std::abs(a), std::abs(b)});
}

/// The numbers of a tidy table by the text of its first columns; fields with a comma are in quotes.
QMap<QStringList, plain::Row> rowsOf(const QList<QStringList> &table, qsizetype keys)
{
    QMap<QStringList, plain::Row> rows;
    for (const QStringList &fields : table.mid(1)) {
        plain::Row &row = rows[fields.first(keys)];
        for (qsizetype i = keys; i < fields.size(); ++i) {
            if (!fields[i].isEmpty())
                row[table[0][i]] = fields[i].toDouble();
        }
    }
    return rows;
}

QList<QStringList> fieldsOf(const QString &text)
{
    QList<QStringList> table{{QString()}};
    bool isQuoted = false;
    for (const QChar character : text.chopped(1)) {
        if (character == u'"')
            isQuoted = !isQuoted; // a doubled one opens anew
        if (!isQuoted && character == u'\n')
            table << QStringList(QString());
        else if (!isQuoted && character == u',')
            table.last() << QString();
        else
            table.last().last() += character;
    }
    for (QStringList &row : table) {
        for (QString &field : row) {
            if (field.startsWith(u'"'))
                field = field.mid(1, field.size() - 2).replace(QStringLiteral("\"\""), QStringLiteral("\""));
        }
    }
    return table;
}

void compareRows(const QMap<QStringList, plain::Row> &found, const QMap<QStringList, plain::Row> &expected)
{
    QCOMPARE(found.keys(), expected.keys());
    for (auto row = found.cbegin(); row != found.cend(); ++row) {
        const plain::Row &plain = expected[row.key()];
        QCOMPARE(row->keys(), plain.keys());
        for (auto value = row->cbegin(); value != row->cend(); ++value)
            QVERIFY2(areClose(*value, plain[value.key()]), qPrintable(QStringLiteral("%1 %2: %3 instead of %4")
                                                                          .arg(row.key().join(u' '), value.key())
                                                                          .arg(*value, 0, 'g', 17)
                                                                          .arg(plain[value.key()], 0, 'g', 17)));
    }
}

} // namespace

/// All tables of statistics of simulated recordings, beside the same tables written plainly.
class TestSimulatedStatistics : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void hasSomethingToMeasure();
    void eyes_data();
    void general_data() { eyes_data(); }
    void general();
    void areas_data() { eyes_data(); }
    void areas();
    void angleStar_data() { eyes_data(); }
    void angleStar();
    void clusterTransitions_data();
    void clusterTransitions();
    void areaTransitions();
    void aoiMeasures();
    void scanpathMeasures();
    void groupComparison();
    void anyNumberOfThreads();

private:
    ExportTarget target(EyeMode mode) const { return {m_folder.path(), QStringLiteral("p"), mode}; }
    QString written(const QString &end) const
    {
        return QString::fromUtf8(samples::bytesOf(m_folder.filePath(QStringLiteral("p") + end)));
    }
    QMap<QStringList, plain::Row> aoiRows(bool withArea) const;

    QTemporaryDir m_folder;
    std::unique_ptr<TemporarySettings> m_settings;
    std::unique_ptr<RecordedMessages> m_messages;
    DataModel m_model;
    const double m_pixel = 0.28 / 650;
};

void TestSimulatedStatistics::initTestCase()
{
    m_settings = std::make_unique<TemporarySettings>();
    m_messages = std::make_unique<RecordedMessages>();
    for (const auto &key :
         {keys::horizontalActivity, keys::verticalActivity, keys::averageSpeed, keys::maximumSpeed, keys::minimumSpeed,
          keys::glanceFrequency, keys::glanceProportion, keys::maximumGlanceDuration, keys::meanGlanceDuration,
          keys::minimumGlanceDuration, keys::numberOfFixations, keys::numberOfGlances, keys::timeOfFirstGlance,
          keys::totalGlanceTime})
        writeStored(key, true);
    m_model = study::model();
}

void TestSimulatedStatistics::cleanupTestCase()
{
    m_messages.reset();
    m_settings.reset();
}

void TestSimulatedStatistics::hasSomethingToMeasure()
{
    for (const Examination *examination : m_model.checkedExaminations()) {
        QVERIFY(examination->leftEye.scanpath.size() > 10);
        QVERIFY(examination->leftEye.fixationClusters.size() > 1);
    }
    QVERIFY(m_model.pooled(Eye::Left).fixationClusters.size() > 1);
    QVERIFY(m_model.pooled(Eye::Dominant).fixationClusters.size() > 1);
}

void TestSimulatedStatistics::eyes_data()
{
    QTest::addColumn<int>("eye");
    for (int eye = 0; eye < 4; ++eye)
        QTest::newRow(words[eye]) << eye;
}

void TestSimulatedStatistics::general()
{
    QFETCH(int, eye);
    const QString word = QString::fromLatin1(words[eye]);
    exportGeneralStatistics(m_model, target(modes[eye]), storedFlags());
    QCOMPARE(written(QStringLiteral("_generalstatistics_%1.csv").arg(word)), plain::generalTable(m_model, eye, word));
}

void TestSimulatedStatistics::areas()
{
    QFETCH(int, eye);
    exportAoiStatistics(m_model, target(modes[eye]), storedFlags());
    QCOMPARE(written(QStringLiteral("_AOIstatistics_%1.csv").arg(QLatin1StringView(words[eye]))),
             plain::aoiTable(m_model, eye));
    // By their corners; the knot goes round its two halves in opposite directions.
    QCOMPARE(written(QStringLiteral("_AOIArea_.csv")),
             samples::lines({QStringLiteral("AOI;Area(pixel)"), QStringLiteral("far;40.5"),
                             QStringLiteral("inner;74200"), QStringLiteral("knot;0"), QStringLiteral("left.1;221000"),
                             QStringLiteral("right, \"2\";234000")}));
}

void TestSimulatedStatistics::angleStar()
{
    QFETCH(int, eye);
    exportAngleStar(m_model, m_folder.filePath(QStringLiteral("p")), {.bins = 7, .offsetDegrees = 30});
    QCOMPARE(written(QStringLiteral("_%1_anglestar.csv").arg(QLatin1StringView(stems[eye]))),
             plain::angleStarTable(m_model, eye, 7, 30));
}

void TestSimulatedStatistics::clusterTransitions_data()
{
    QTest::addColumn<int>("flavour");
    QTest::addColumn<int>("eye");
    const char *flavours[] = {"own", "pooled", "own and pooled"};
    for (int flavour = 0; flavour < 3; ++flavour) {
        for (int eye = 0; eye < 4; ++eye)
            QTest::addRow("%s, %s", flavours[flavour], words[eye]) << flavour << eye;
    }
}

void TestSimulatedStatistics::clusterTransitions()
{
    QFETCH(int, flavour);
    QFETCH(int, eye);
    exportTransitions(m_model, m_folder.filePath(QStringLiteral("p")), modes[eye],
                      {.flavours = {static_cast<TransitionFlavour>(flavour)}}, nullptr);
    const char *infixes[] = {"", "cumm_", "cumm_and_"};
    const char *contents[] = {"absolut", "relative_to_all_transitions", "relative_to_cluster_transitions",
                              "mtpm_mtbt_stdtbt_ml_stdl"};
    for (int content = 0; content < 4; ++content)
        QCOMPARE(written(QStringLiteral("_%1_%2cluster_transitions_%3.csv")
                             .arg(QLatin1StringView(stems[eye]), QLatin1StringView(infixes[flavour]),
                                  QLatin1StringView(contents[content]))),
                 plain::clusterTransitionTable(m_model, flavour, eye, content));
}

void TestSimulatedStatistics::areaTransitions()
{
    exportTransitions(m_model, m_folder.filePath(QStringLiteral("p")), EyeMode::showAll,
                      {.flavours = {}, .areas = true}, nullptr);
    QCOMPARE(written(QStringLiteral("_transitionmatrix.csv")), plain::areaTransitionTable(m_model, {0, 1}));
}

QMap<QStringList, plain::Row> TestSimulatedStatistics::aoiRows(bool withArea) const
{
    QMap<QStringList, plain::Row> rows;
    for (const Examination *examination : m_model.checkedExaminations()) {
        for (int eye = 0; eye < 2; ++eye) {
            const EyeData &stream = plain::streamOf(*examination, eye);
            const QStringList key{examination->baseName, examination->subjectId, QString::fromLatin1(words[eye])};
            if (!withArea)
                rows[key] = plain::scanpathRow(stream, m_model.aoiList(), m_model.timeFrame(), m_pixel);
            for (const AreaOfInterest &area : withArea ? m_model.aoiList() : QList<AreaOfInterest>())
                rows[key + QStringList(area.name)] = plain::aoiRow(stream, area.polygon, m_model.timeFrame());
        }
    }
    return rows;
}

void TestSimulatedStatistics::aoiMeasures()
{
    exportAoiMeasures(m_model, target(EyeMode::showAll));
    compareRows(rowsOf(fieldsOf(written(QStringLiteral("_aoi_measures.csv"))), 4), aoiRows(true));
}

void TestSimulatedStatistics::scanpathMeasures()
{
    exportScanpathMeasures(m_model, target(EyeMode::showAll), {.pixelPerDistance = m_pixel});
    compareRows(rowsOf(fieldsOf(written(QStringLiteral("_scanpath_measures.csv"))), 3), aoiRows(false));
}

/// Two subjects in each group: the resampled means are the values themselves and their mean, and there are six splits.
void TestSimulatedStatistics::groupComparison()
{
    exportGroupComparison(m_model, target(EyeMode::showLeft), {.pixelPerDistance = m_pixel});
    const QList<QStringList> table = fieldsOf(written(QStringLiteral("_group_comparison.csv")));
    const auto found = rowsOf(table, 4);
    QMap<QStringList, QMap<QString, QList<double>>> values; // eye, measure, area: by group
    const auto take = [&](const QMap<QStringList, plain::Row> &rows) {
        for (auto row = rows.cbegin(); row != rows.cend(); ++row) {
            const QString group = row.key()[1].toInt() % 2 ? QStringLiteral("a") : QStringLiteral("b");
            for (auto value = row->cbegin(); row.key()[2] == QLatin1StringView("left") && value != row->cend(); ++value)
                values[{row.key()[2], value.key(), row.key().value(3)}][group] << *value;
        }
    };
    take(aoiRows(true));
    take(aoiRows(false));
    qsizetype rows = 0;
    for (auto question = values.cbegin(); question != values.cend(); ++question) {
        for (auto group = question->cbegin(); group != question->cend(); ++group, ++rows) {
            const plain::Row row = found[question.key() + QStringList(group.key())];
            const QList<double> &own = *group;
            QCOMPARE(row[QStringLiteral("subjects")], double(own.size()));
            const double mean = (own.first() + own.last()) / 2;
            QVERIFY(areClose(row[QStringLiteral("mean")], mean) && areClose(row[QStringLiteral("median")], mean));
            if (own.size() == 2) {
                const double half = std::abs(own[0] - own[1]) / 2;
                QVERIFY(areClose(row[QStringLiteral("standard_deviation")], half * std::sqrt(2)));
                QVERIFY(areClose(row[QStringLiteral("mean_ci95_low")], mean - half));
                QVERIFY(areClose(row[QStringLiteral("mean_ci95_high")], mean + half));
            }
            if (question->size() < 2)
                continue;
            const QList<double> other =
                *(group == question->cbegin() ? std::prev(question->cend()) : question->cbegin());
            const double difference = mean - (other.first() + other.last()) / 2;
            QVERIFY(areClose(row[QStringLiteral("mean_difference")], difference));
            if (own.size() < 2 || other.size() < 2)
                continue;
            const QList<double> pool = own + other;
            int extreme = 0;
            for (const auto &[i, j] : {std::pair(0, 1), {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}}) {
                const double first = pool[i] + pool[j];
                const double rest = pool[0] + pool[1] + pool[2] + pool[3] - first;
                extreme += std::abs(first - rest) / 2 >= std::abs(difference) - 1e-9 * std::abs(first);
            }
            QCOMPARE(row[QStringLiteral("p_permutation")], extreme / 6.0);
            int above = 0;
            for (const double a : own) {
                for (const double b : other)
                    above += a > b ? 1 : a < b ? -1 : 0;
            }
            QCOMPARE(row[QStringLiteral("cliffs_delta")], above / 4.0);
        }
    }
    QCOMPARE(table.size() - 1, rows);
}

void TestSimulatedStatistics::anyNumberOfThreads()
{
    const auto texts = [&](int threads) {
        DataModel model = m_model;
        for (Examination &examination : model.examinations()) {
            for (EyeData *stream : examination.streams()) {
                stream->generalStatistics.reset();
                stream->aoiStatistics.clear();
            }
        }
        calculateGeneralStatistics(model, nullptr, threads);
        calculateAoiStatistics(model, nullptr, threads);
        const MeasureForm form{.pixelPerDistance = m_pixel, .threads = threads};
        const ExportTarget all = target(EyeMode::showAll);
        QStringList written = exportGeneralStatistics(model, all, storedFlags()).written;
        written << exportAoiStatistics(model, all, storedFlags()).written << exportAoiMeasures(model, all, form).written
                << exportScanpathMeasures(model, all, form).written << exportGroupComparison(model, all, form).written;
        QMap<QString, QByteArray> files;
        for (const QString &path : written)
            files[path] = samples::bytesOf(path);
        return files;
    };
    const auto one = texts(1);
    QCOMPARE(one.size(), 8);
    for (const int threads : {2, 3, 16})
        QCOMPARE(texts(threads), one);
}

QTEST_GUILESS_MAIN(TestSimulatedStatistics)
#include "TestSimulatedStatistics.moc"
