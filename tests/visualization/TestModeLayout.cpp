// SPDX-License-Identifier: GPL-3.0-or-later
#include "visualization/modes/ModeLayout.h"
#include "visualization/parameters/VisualizationParameters.h"

#include <QTest>

namespace {

using Option = DrawingOption;

/// The options that rows below name, as they name them.
const QMap<Option, QString> &optionNames()
{
    static const QMap<Option, QString> names{
        {Option::Size, QStringLiteral("size")},
        {Option::StepSize, QStringLiteral("step")},
        {Option::DurationDependent, QStringLiteral("durationDependent")},
        {Option::ArrowTip, QStringLiteral("arrowTip")},
        {Option::FillOpacity, QStringLiteral("opacity")},
        {Option::BorderWidth, QStringLiteral("borderWidth")},
        {Option::BorderType, QStringLiteral("borderType")},
        {Option::Colors, QStringLiteral("color")},
        {Option::ColorLeft, QStringLiteral("colorLeft")},
        {Option::ColorRight, QStringLiteral("colorRight")},
        {Option::NameColor, QStringLiteral("nameColor")},
        {Option::ClusterShare, QStringLiteral("contained")},
        {Option::GazePoints, QStringLiteral("gazePoints")},
        {Option::OriginalSize, QStringLiteral("originalSize")},
        {Option::TransitionsOnly, QStringLiteral("transitionsOnly")},
        {Option::LineSizeAbsolute, QStringLiteral("lineSizeAbsolute")},
        {Option::TransitionType, QStringLiteral("transitionType")},
        {Option::Colormap, QStringLiteral("colormap")},
        {Option::KernelWidth, QStringLiteral("width")},
        {Option::KernelSigma, QStringLiteral("sigma")},
        {Option::Power, QStringLiteral("power")},
        {Option::ShadowTransparency, QStringLiteral("transparency")},
        {Option::Threshold, QStringLiteral("threshold")},
        {Option::HeatmapScale, QStringLiteral("scale")},
        {Option::FixationClasses, QStringLiteral("classes")},
        {Option::PercentMode, QStringLiteral("percentage")},
        {Option::AdjustableColormap, QStringLiteral("adjustable")},
        {Option::AngleStar, QStringLiteral("star")},
        {Option::StarBins, QStringLiteral("bins")},
        {Option::QuantityArcs, QStringLiteral("quantity")},
        {Option::SolidArcs, QStringLiteral("solid")},
        {Option::DurationArcs, QStringLiteral("duration")},
        {Option::LengthArcs, QStringLiteral("length")},
        {Option::GaussianSaccades, QStringLiteral("gaussian")},
        {Option::FixationTimeDependent, QStringLiteral("fixationTime")},
        {Option::LengthDependent, QStringLiteral("lengthDependent")},
    };
    return names;
}

/// An option as the user sees it: "power 'Time window' ' ms' 10-1000000000 at 1000". What the mode leaves open is that
/// of the option before any mode.
QString written(const ShownOption &shown)
{
    const ShownOption plain = plainOption(shown.option);
    QString line = optionNames().value(shown.option);
    const QString text = shown.text.isEmpty() ? plain.text : shown.text;
    if (!text.isEmpty() || !shown.suffix.isEmpty())
        line += QStringLiteral(" '%1'").arg(text);
    if (!shown.suffix.isEmpty())
        line += QStringLiteral(" '%1'").arg(shown.suffix);
    if (const auto range = shown.range ? shown.range : plain.range)
        line += QStringLiteral(" %1-%2").arg(range->minimum).arg(range->maximum);
    if (shown.start)
        line += QStringLiteral(" at %1").arg(*shown.start);
    return line;
}

QStringList written(const QList<ShownOption> &layout)
{
    QStringList lines;
    for (const ShownOption &shown : layout)
        lines << written(shown);
    lines.sort();
    return lines;
}

VisualizationParameters record(const QString &name, int mode)
{
    VisualizationParameters parameters;
    parameters.settingsName = name;
    parameters.visualizationMode = mode;
    return parameters;
}

const QString gazePoints = QStringLiteral("GazepointVisualization");
const QString fixations = QStringLiteral("FixationVisualization");
const QString clusters = QStringLiteral("FixationclusterVisualization");
const QString saccades = QStringLiteral("SaccadeVisualization");

// Parts that rows have in common; options are separated by "; ".
constexpr char colors[] = "color 'dominant'; colorLeft 'left'; colorRight 'right'; ";
constexpr char shadow[] = "power 'Shadow power' ' /100 -> exponent' 10-100; transparency; width; sigma; ";
constexpr char percent[] = "threshold 'Threshold' ' %' 0-10000000 at 0";
constexpr char border[] = "borderWidth; opacity; borderType; gazePoints 'Show Cluster points'; ";
constexpr char clusterNames[] = "originalSize 'Show names'; nameColor; contained; ";
constexpr char circle[] = "size 'Sizefactor'; durationDependent";
constexpr char kernel[] = "colormap; width; sigma; ";
constexpr char selection[] = "star 'Selection'; duration 'Duration'; length 'only Fixations in AOIs'; percentage; ";
constexpr char chart[] = "power 'Time window' ' ms' 10-1000000000 at 1000; originalSize 'Use curves'; "
                         "gazePoints 'Use splines'; transitionsOnly 'Lines only'; ";
constexpr char transition[] = "size 'Cluster size'; step 'Maximal line size' ' px' 1-1000; color 'cluster'; "
                              "colorLeft 'to left'; colorRight 'to right'; gazePoints 'Draw cluster elliptical'; "
                              "originalSize 'Show names'; threshold 'Threshold' ' trans/min' 0-10000000; ";

void addRow(const char *title, const QString &name, int mode, std::initializer_list<const char *> parts,
            bool percentMode = false)
{
    QString expected;
    for (const char *part : parts)
        expected += QString::fromLatin1(part);
    QTest::newRow(title) << name << mode << percentMode << expected;
}

QStringList sortedOptions(const QString &text)
{
    QStringList options = text.split(QStringLiteral("; "), Qt::SkipEmptyParts);
    options.sort();
    return options;
}

} // namespace

class TestModeLayout : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyOptionHasAName();
    void shownOptions_data();
    void shownOptions();
    void nothingIsShownTwice();
    void percentageIsOfNoMatterElsewhere();
    void customColormap_data();
    void customColormap();
    void optionsBeforeAnyMode_data();
    void optionsBeforeAnyMode();
    void shadowModes_data();
    void shadowModes();
    void anUnknownKindIsThatOfGazePoints();
};

void TestModeLayout::everyOptionHasAName()
{
    QCOMPARE(optionNames().size(), static_cast<qsizetype>(Option::Count));
}

void addGazePointRows()
{
    addRow("gaze points, none", gazePoints, 0, {});
    addRow("gaze points, points", gazePoints, 1, {colors, "size 'Sizefactor'; step 'Step size' 1-1000"});
    addRow("gaze points, heatmap", gazePoints, 2,
           {kernel, "scale; power 'Absolut maxima' ' GP' 0-1000000 at 0; "
                    "threshold 'Threshold' ' GP/min' 0-10000000 at 0"});
    addRow("gaze points, shadowmap", gazePoints, 3, {shadow, percent});
    addRow("gaze points, beyond their modes", gazePoints, 4, {});
    addRow("gaze points, below their modes", gazePoints, -1, {});
}

void addFixationRows()
{
    addRow("fixations, none", fixations, 0, {});
    addRow("fixations, elliptic", fixations, 1, {border, colors, "originalSize 'Original size'"});
    addRow("fixations, circular", fixations, 2, {border, colors, "originalSize 'Original size'; ", circle});
    addRow("fixations, heatmap of counts", fixations, 3,
           {kernel, selection, "classes; power 'Absolut maxima' ' Fixations/min' 0-1000000 at 0; ",
            "threshold 'Threshold' ' Fixations/min' 0-1000000 at 0"});
    addRow(
        "fixations, heatmap of shares", fixations, 3,
        {kernel, selection, "classes; power 'Absolut maxima' ' %' 0-100 at 0; threshold 'Threshold' ' %' 0-100 at 0"},
        true);
    addRow("fixations, shadowmap", fixations, 4, {shadow, percent});
    addRow("fixations, histogram", fixations, 5, {chart, "color 'Color'"});
    addRow("fixations, histogram seperated", fixations, 6, {chart, "lineSizeAbsolute 'Use groupes'"});
    addRow("fixations, beyond their modes", fixations, 7, {});
}

void addClusterRows()
{
    addRow("clusters, none", clusters, 0, {});
    addRow("clusters, elliptic", clusters, 1, {border, colors, clusterNames});
    addRow("clusters, circular", clusters, 2, {border, colors, clusterNames, circle});
    addRow("clusters, heatmap of counts", clusters, 3,
           {kernel, selection, "scale; power 'Absolut maxima' ' Clusters/min' 0-1000000 at 0; ",
            "threshold 'Threshold' ' Clusters/min' 0-1000000 at 0"});
    addRow("clusters, heatmap of shares", clusters, 3,
           {kernel, selection, "scale; power 'Absolut maxima' ' %' 0-100 at 0; threshold 'Threshold' ' %' 0-100 at 0"},
           true);
    addRow("clusters, shadowmap", clusters, 4, {shadow, percent});
    addRow("clusters, cumulative elliptic", clusters, 5, {border, colors, clusterNames});
    addRow("clusters, cumulative circle", clusters, 6, {border, colors, clusterNames, circle});
    addRow("clusters, transitions", clusters, 7,
           {transition, "transitionsOnly 'Transitions only'; lineSizeAbsolute 'Line size absolute'; transitionType"});
    addRow("clusters, cumulative transitions", clusters, 8, {transition});
    addRow("clusters, cluster + cumulative transitions", clusters, 9, {transition});
    addRow("clusters, beyond their modes", clusters, 10, {});
}

void addSaccadeRows()
{
    addRow("saccades, none", saccades, 0, {});
    addRow("saccades, arrows", saccades, 1, {colors, "size 'Sizefactor'; arrowTip; step 'Step size' 1-1000"});
    addRow("saccades, anglestar", saccades, 2,
           {colors, "borderWidth; opacity; borderType; star 'Anglestar'; bins; quantity; duration; length 'Length'; ",
            "solid"});
    addRow("saccades, heatmap", saccades, 3,
           {kernel, "scale; gaussian; lengthDependent; power 'Absolut maxima' ' Saccades' 0-1000000 at 0; ",
            "threshold 'Threshold' ' Saccades' 0-10000000 at 0"});
    addRow("saccades, shadowmap", saccades, 4, {shadow, "threshold 'Length threshold' ' px' 0-10000000 at 0"});
    addRow("saccades, histogram", saccades, 5, {chart, "lengthDependent; color 'Color'"});
    addRow("saccades, histogram seperated", saccades, 6, {chart, "lengthDependent; lineSizeAbsolute 'Use groupes'"});
    addRow("saccades, histogram sac vs fix", saccades, 7,
           {chart, "lengthDependent; color 'Saccade'; colorLeft 'Fixation'"});
    addRow("saccades, beyond their modes", saccades, 8, {});
}

void TestModeLayout::shownOptions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("percentMode");
    QTest::addColumn<QString>("expected");
    addGazePointRows();
    addFixationRows();
    addClusterRows();
    addSaccadeRows();
}

void TestModeLayout::shownOptions()
{
    QFETCH(QString, name);
    QFETCH(int, mode);
    QFETCH(bool, percentMode);
    QFETCH(QString, expected);
    VisualizationParameters parameters = record(name, mode);
    parameters.percentMode = percentMode;
    QCOMPARE(written(modeLayout(parameters)), sortedOptions(expected));
}

void TestModeLayout::nothingIsShownTwice()
{
    for (const QString &name : {gazePoints, fixations, clusters, saccades}) {
        for (int mode = 0; mode < 10; ++mode) {
            QList<Option> options;
            for (const ShownOption &shown : modeLayout(record(name, mode))) {
                QVERIFY2(!options.contains(shown.option), qPrintable(optionNames().value(shown.option)));
                options << shown.option;
            }
        }
    }
}

void TestModeLayout::percentageIsOfNoMatterElsewhere()
{
    for (const QString &name : {gazePoints, fixations, clusters, saccades}) {
        for (int mode = 0; mode < 10; ++mode) {
            VisualizationParameters parameters = record(name, mode);
            const QList<ShownOption> before = modeLayout(parameters);
            parameters.percentMode = true;
            QCOMPARE(modeLayout(parameters) == before, mode != 3 || (name != fixations && name != clusters));
        }
    }
}

void TestModeLayout::customColormap_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("expected");
    QTest::newRow("gaze points, heatmap") << gazePoints << 2 << true;
    QTest::newRow("fixations, heatmap") << fixations << 3 << true;
    QTest::newRow("clusters, heatmap") << clusters << 3 << true;
    QTest::newRow("saccades, heatmap") << saccades << 3 << true;
    QTest::newRow("no mode") << gazePoints << 0 << false;
    QTest::newRow("points have no colour map") << gazePoints << 1 << false;
    QTest::newRow("shadow maps have no colour map") << fixations << 4 << false;
}

void TestModeLayout::customColormap()
{
    QFETCH(QString, name);
    QFETCH(int, mode);
    QFETCH(bool, expected);
    VisualizationParameters parameters = record(name, mode);
    const QList<ShownOption> plain = modeLayout(parameters);
    constexpr int custom = 5;
    for (const int colormap : {-1, 0, 1, 2, 3, 4, custom, 6}) {
        parameters.heatmapColormap = colormap;
        QStringList options = written(plain);
        if (expected && colormap == custom)
            options << QStringLiteral("adjustable");
        options.sort();
        QCOMPARE(written(modeLayout(parameters)), options);
    }
}

void TestModeLayout::optionsBeforeAnyMode_data()
{
    QTest::addColumn<Option>("option");
    QTest::addColumn<QString>("expected");
    QTest::newRow("power") << Option::Power << QStringLiteral("power 'Shadow power' ' /100 -> exponent' 10-100");
    QTest::newRow("gaze points") << Option::GazePoints << QStringLiteral("gazePoints 'Show Gazepoints'");
    QTest::newRow("threshold") << Option::Threshold << QStringLiteral("threshold 'Threshold' 0-10000000");
    QTest::newRow("transitions") << Option::TransitionsOnly << QStringLiteral("transitionsOnly 'Transitions only'");
    QTest::newRow("lines") << Option::LineSizeAbsolute << QStringLiteral("lineSizeAbsolute 'Line size absolute'");
    QTest::newRow("original size") << Option::OriginalSize << QStringLiteral("originalSize 'Original size'");
    QTest::newRow("step") << Option::StepSize << QStringLiteral("step 'Step size' 1-1000");
    QTest::newRow("size") << Option::Size << QStringLiteral("size 'Sizefactor'");
    QTest::newRow("dominant") << Option::Colors << QStringLiteral("color 'dominant'");
    QTest::newRow("left") << Option::ColorLeft << QStringLiteral("colorLeft 'left'");
    QTest::newRow("right") << Option::ColorRight << QStringLiteral("colorRight 'right'");
    QTest::newRow("a caption that never changes") << Option::ArrowTip << QStringLiteral("arrowTip");
}

void TestModeLayout::optionsBeforeAnyMode()
{
    QFETCH(Option, option);
    QTEST(written(plainOption(option)), "expected");
    QCOMPARE(plainOption(option).option, option);
}

void TestModeLayout::shadowModes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("shadowMode");
    QTest::newRow("gaze points") << gazePoints << 3;
    QTest::newRow("fixations") << fixations << 4;
    QTest::newRow("clusters") << clusters << 4;
    QTest::newRow("saccades") << saccades << 4;
}

void TestModeLayout::shadowModes()
{
    QFETCH(QString, name);
    QFETCH(int, shadowMode);
    for (int mode = -1; mode < 11; ++mode)
        QCOMPARE(isShadowMode(record(name, mode)), mode == shadowMode);
}

void TestModeLayout::anUnknownKindIsThatOfGazePoints()
{
    QCOMPARE(modeLayout(record(QString(), 1)), modeLayout(record(gazePoints, 1)));
}

QTEST_GUILESS_MAIN(TestModeLayout)
#include "TestModeLayout.moc"
