// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchHelp.h"
#include "batch/BatchOptions.h"
#include "batch/OptionTable.h"

#include <QTest>

class TestBatchOptions : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void accepted_data();
    void accepted();
    void blanksInAList();
    void refused_data();
    void refused();
    void helpNamesAllOptions();
    void helpIsInColumns();
    void namesAreUnique();
    void whatIsNeededIsKnown();
    void exitCodes();
};

namespace {

using O = BatchOptions;
using Change = std::function<void(BatchOptions &)>;

/// The options of a command line that names one recording, with a change on top.
BatchOptions expected(const Change &change)
{
    BatchOptions options;
    options.recordings = QStringList{QStringLiteral("a.data")};
    change(options);
    return options;
}

/// The arguments of a command line without quotes.
QStringList arguments(const QString &line)
{
    return line.isEmpty() ? QStringList() : line.split(u' ');
}

QStringList listed(const char *words)
{
    return QString::fromLatin1(words).split(u' ');
}

void acceptedRow(const char *name, const char *line, const Change &change)
{
    QTest::newRow(name) << QString::fromLatin1(line) << change;
}

void acceptedArguments()
{
    acceptedRow("one recording and defaults", "a.data", [](O &) {});
    acceptedRow("several recordings in their order", "a.data c.data b.data",
                [](O &o) { o.recordings << QStringLiteral("c.data") << QStringLiteral("b.data"); });
    acceptedRow("options may follow recordings", "a.data --quiet", [](O &o) { o.quiet = true; });
    acceptedRow("after two dashes all are recordings", "a.data -- --quiet -x",
                [](O &o) { o.recordings << QStringLiteral("--quiet") << QStringLiteral("-x"); });
    acceptedRow("a single dash is a name", "a.data -", [](O &o) { o.recordings << QStringLiteral("-"); });
    acceptedRow("settings files in their order", "--settings 2.ini --settings=1.ini a.data", [](O &o) {
        o.settingsFiles = QStringList{QStringLiteral("2.ini"), QStringLiteral("1.ini")};
    });
    acceptedRow("single settings in their order", "--set K=2 --set K=1 a.data", [](O &o) {
        o.settings = {{QStringLiteral("K"), QStringLiteral("2")}, {QStringLiteral("K"), QStringLiteral("1")}};
    });
    acceptedRow("a setting's value may hold equals signs", "--set=A/B=c=d a.data", [](O &o) {
        o.settings = {{QStringLiteral("A/B"), QStringLiteral("c=d")}};
    });
    acceptedRow("a setting may be emptied", "--set K= a.data", [](O &o) {
        o.settings = {{QStringLiteral("K"), QString()}};
    });
    acceptedRow("help needs no recording", "--help", [](O &o) {
        o.recordings.clear();
        o.help = true;
    });
    acceptedRow("what follows help is not read", "a.data --help --nonsense", [](O &o) { o.help = true; });
    acceptedRow("version needs no recording", "--version", [](O &o) {
        o.recordings.clear();
        o.version = true;
    });
}

void acceptedChoices()
{
    acceptedRow("detector", "--detector standard a.data", [](O &o) { o.detector = O::Detector::Standard; });
    acceptedRow("mixture detector", "--detector gaussian a.data", [](O &o) { o.detector = O::Detector::Gaussian; });
    acceptedRow("velocity detector", "--detector velocity a.data", [](O &o) { o.detector = O::Detector::Velocity; });
    const auto unit = [](const char *name, const char *line, O::VelocityUnit meaning) {
        acceptedRow(name, line, [meaning](O &o) {
            o.detector = O::Detector::Velocity;
            o.velocityUnit = meaning;
        });
    };
    unit("unit of pixels", "--detector velocity --velocity-unit pixel-per-ms a.data", O::VelocityUnit::PixelPerMs);
    unit("unit of degrees", "--detector velocity --velocity-unit=degree-per-s a.data", O::VelocityUnit::DegreePerS);
    unit("unit before the detector", "--velocity-unit percentile --detector velocity a.data",
         O::VelocityUnit::Percentile);
    acceptedRow("background", "--background p.png a.data", [](O &o) { o.background = QStringLiteral("p.png"); });
    acceptedRow("areas of interest in their order", "--aois 2.aoi --aois=1.aoi a.data", [](O &o) {
        o.aoiFiles = QStringList{QStringLiteral("2.aoi"), QStringLiteral("1.aoi")};
    });
    acceptedRow("calculation", "--calculate fixations a.data", [](O &o) { o.calculations = listed("fixations"); });
    acceptedRow("a calculation named twice runs once", "--calculate fixations,fixations a.data",
                [](O &o) { o.calculations = listed("fixations"); });
    acceptedRow("calculations in the order in which they run",
                "--calculate saccade-clusters,cumulative-clusters,clusters,fixations a.data",
                [](O &o) { o.calculations = listed("fixations clusters cumulative-clusters saccade-clusters"); });
    acceptedRow("exports in the order in which they are written",
                "--export cumulative-clusters,events,fixations,clusters a.data",
                [](O &o) { o.tables = listed("fixations clusters events cumulative-clusters"); });
    acceptedRow("minimum of the overlap method", "--overlap-fixations 500 a.data",
                [](O &o) { o.overlapFixations = 500; });
    acceptedRow("outliers of the overlap method", "--overlap-outliers 0 a.data", [](O &o) { o.overlapOutliers = 0; });
    acceptedRow("values of saccade clusters",
                "--saccade-cluster minimum-length=10000 --saccade-cluster distance-linkage=maximum "
                "--saccade-cluster=mode=single-line --saccade-cluster direction-dependent=no --saccade-cluster "
                "arrow-tips=yes a.data",
                [](O &o) {
                    o.saccadeClusters.parameters.minimumLength = 10'000;
                    o.saccadeClusters.parameters.distanceLinkage = 1;
                    o.saccadeClusters.parameters.directionDependent = false;
                    o.saccadeClusters.style.showArrowTips = true;
                    o.saccadeClusters.mode = SaccadeClusterMode::SingleLine;
                });
    acceptedRow("of two values the later one counts",
                "--saccade-cluster angle-cutoff=1 --saccade-cluster angle-cutoff=180 a.data",
                [](O &o) { o.saccadeClusters.parameters.angleCutoff = 180; });
    acceptedRow("one export", "--export events a.data", [](O &o) { o.tables = listed("events"); });
    acceptedRow("all eyes", "--eyes all a.data", [](O &o) { o.eyes = EyeMode::showAll; });
    acceptedRow("dominant eye", "--eyes dominant a.data", [](O &o) { o.eyes = EyeMode::showDominant; });
    acceptedRow("left eye", "--eyes left a.data", [](O &o) { o.eyes = EyeMode::showLeft; });
    acceptedRow("right eye", "--eyes right a.data", [](O &o) { o.eyes = EyeMode::showRight; });
    acceptedRow("mean of the eyes", "--eyes=mean a.data", [](O &o) { o.eyes = EyeMode::showMean; });
}

void acceptedFilesAndNumbers()
{
    acceptedRow("time frame", "--time 100:2000 a.data", [](O &o) { o.time = TimeFrame{100, 2000}; });
    acceptedRow("time frame of one moment", "--time 5:5 a.data", [](O &o) { o.time = TimeFrame{5, 5}; });
    acceptedRow("time before zero", "--time -5:-1 a.data", [](O &o) { o.time = TimeFrame{-5, -1}; });
    acceptedRow("time beyond 32 bits", "--time 0:9000000000 a.data", [](O &o) { o.time = TimeFrame{0, 9000000000}; });
    acceptedRow("folder and prefix", "--out results --prefix study a.data", [](O &o) {
        o.outputFolder = QStringLiteral("results");
        o.prefix = QStringLiteral("study");
    });
    acceptedRow("no prefix", "--prefix= a.data", [](O &o) { o.prefix.clear(); });
    acceptedRow("a value may begin with a dash", "--prefix -x- a.data", [](O &o) { o.prefix = QStringLiteral("-x-"); });
    acceptedRow("a value behind an equals sign may look like an option", "--prefix=--quiet a.data",
                [](O &o) { o.prefix = QStringLiteral("--quiet"); });
    acceptedRow("images in all formats", "--image a.png --image b.svg --image c.tiff --image d.JPG a.data",
                [](O &o) { o.images = QStringLiteral("a.png b.svg c.tiff d.JPG").split(u' '); });
    acceptedRow("a density of gaze points", "--density d.tiff a.data",
                [](O &o) { o.densityFile = QStringLiteral("d.tiff"); });
    acceptedRow("a density of fixations", "--density=d.TIFF --density-kind fixations a.data", [](O &o) {
        o.densityFile = QStringLiteral("d.TIFF");
        o.densityKind = DataKind::Fixations;
    });
    acceptedRow("picture of recordings in millimetres",
                "--millimetre-image p.png --millimetre-size 1920,1080,531,299 a.data", [](O &o) {
                    o.millimetres.imagePath = QStringLiteral("p.png");
                    o.millimetres.size = {1920, 1080, 531, 299};
                });
    acceptedRow("parameters of similarity",
                "--similarity recurrence-radius=80.5 --similarity grid-columns=8 --similarity grid-columns=9 a.data",
                [](O &o) {
                    o.similarity.recurrenceRadiusPx = 80.5;
                    o.similarity.gridColumns = 9;
                });
    acceptedRow("methods", "--methods m.TXT a.data", [](O &o) { o.methodsFile = QStringLiteral("m.TXT"); });
    acceptedRow("report", "--report r.json a.data", [](O &o) { o.reportFile = QStringLiteral("r.json"); });
    acceptedRow("one job", "--jobs 1 a.data", [](O &o) { o.jobs = 1; });
    acceptedRow("many jobs", "--jobs=64 a.data", [](O &o) { o.jobs = 64; });
    acceptedRow("quiet may be said again", "--quiet --quiet a.data", [](O &o) { o.quiet = true; });
}

void refusedRow(const char *name, const char *line, const char *text)
{
    QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(text);
}

void refusedArguments()
{
    refusedRow("nothing at all", "", "no recording given");
    refusedRow("options alone", "--quiet", "no recording given");
    refusedRow("two dashes alone", "--", "no recording given");

    refusedRow("unknown option", "--frobnicate a.data", "unknown option --frobnicate");
    refusedRow("unknown option near a known one", "--exprot fixations a.data",
               "unknown option --exprot; did you mean --export?");
    refusedRow("unknown option that begins a known one", "--calc=fixations a.data",
               "unknown option --calc; did you mean --calculate?");
    refusedRow("one dash where two belong", "-quiet a.data", "unknown option -quiet; did you mean --quiet?");
    refusedRow("the case counts", "--Eyes left a.data", "unknown option --Eyes; did you mean --eyes?");
    refusedRow("a short option", "-h", "unknown option -h");

    refusedRow("value missing at the end", "a.data --out", "--out: needs a value, DIR");
    refusedRow("value missing before an option", "--out --quiet a.data", "--out: needs a value, DIR");
    refusedRow("empty value", "--out= a.data", "--out: the value is empty");
    refusedRow("areas of interest without a file", "a.data --aois", "--aois: needs a value, FILE");
    refusedRow("areas of interest with an empty name", "--aois= a.data", "--aois: the value is empty");
    refusedRow("recipe beside a calculation", "--recipe r.json --calculate fixations",
               "--calculate: a recipe has its own steps; with --recipe there are only --out, --report, --methods, "
               "--jobs, --quiet");
    refusedRow("methods in an unknown form", "--methods m.pdf a.data",
               "--methods m.pdf: the name has to end with .md or .txt");
    refusedRow("empty report name", "--report= a.data", "--report: the value is empty");
    refusedRow("value for a flag", "--quiet=1 a.data", "--quiet: takes no value");
    refusedRow("folder given twice", "--out a --out b a.data", "--out: given twice");
    refusedRow("eyes given twice, the same", "--eyes left --eyes left a.data", "--eyes: given twice");
    refusedRow("list given twice", "--export events --export fixations a.data", "--export: given twice");
}

void refusedChoices()
{
    refusedRow("a parameter of similarity without a value", "--similarity grid-rows a.data",
               "--similarity grid-rows: not of the form NAME=VALUE");
    refusedRow("an unknown parameter of similarity", "--similarity grid-row=3 a.data",
               "--similarity grid-row=3: grid-row is not one of grid-columns, grid-rows, scanmatch-columns, "
               "scanmatch-rows, scanmatch-bin, scanmatch-threshold, scanmatch-gap, multimatch-direction, "
               "multimatch-duration, multimatch-amplitude, recurrence-radius, recurrence-line; did you mean "
               "grid-rows?");
    refusedRow("a broken number of rows", "--similarity grid-rows=2.5 a.data",
               "--similarity grid-rows=2.5: not a whole number from 1 to 50");
    refusedRow("a threshold of nothing", "--similarity scanmatch-threshold=0 a.data",
               "--similarity scanmatch-threshold=0: not a number from 0.1 to 70");
    refusedRow("three sizes", "--millimetre-image p.png --millimetre-size 1,2,3 a.txt",
               "--millimetre-size 1,2,3: not of the form WPX,HPX,WMM,HMM: width and height in pixels, then in "
               "millimetres");
    refusedRow("a size of nothing", "--millimetre-image p.png --millimetre-size 1,2,0,4 a.txt",
               "--millimetre-size 0: not a whole number from 1 to 5000000");
    refusedRow("a picture without its size", "--millimetre-image p.png a.txt",
               "--millimetre-image: needs --millimetre-size, too");
    refusedRow("a size without its picture", "--millimetre-size 1,2,3,4 a.txt",
               "--millimetre-size: needs --millimetre-image, too");
    refusedRow("setting without equals sign", "--set KEY a.data", "--set KEY: not of the form KEY=VALUE");
    refusedRow("setting without key", "--set =1 a.data", "--set =1: not of the form KEY=VALUE");
    refusedRow("unknown eye", "--eyes both a.data", "--eyes both: not one of all, dominant, left, right, mean");
    refusedRow("nearly an eye", "--eyes domnant a.data",
               "--eyes domnant: not one of all, dominant, left, right, mean; did you mean dominant?");
    refusedRow("unknown detector", "--detector best a.data",
               "--detector best: not one of standard, gaussian, velocity");
    refusedRow("unknown unit", "--detector velocity --velocity-unit percent a.data",
               "--velocity-unit percent: not one of pixel-per-ms, degree-per-s, percentile; did you mean percentile?");
    refusedRow("unit for the standard detector", "--velocity-unit percentile --detector standard a.data",
               "--velocity-unit: only with --detector velocity");
    refusedRow("unit for the mixture detector", "--detector gaussian --velocity-unit percentile a.data",
               "--velocity-unit: only with --detector velocity");
    refusedRow("unit without a detector", "a.data --velocity-unit percentile",
               "--velocity-unit: only with --detector velocity");
    refusedRow("saccade clusters without value", "--saccade-cluster mode a.data",
               "--saccade-cluster mode: not of the form NAME=VALUE");
    refusedRow("saccade clusters without name", "--saccade-cluster =1 a.data",
               "--saccade-cluster =1: not of the form NAME=VALUE");
    refusedRow("saccade clusters in an unknown mode", "--saccade-cluster mode=line a.data",
               "--saccade-cluster mode=line: line is not one of none, lines, single-line; did you mean lines?");
    for (const char *value : {"-1", "181", "1.5", "none"})
        QTest::addRow("angle cutoff: %s", value)
            << u"--saccade-cluster angle-cutoff=%1 a.data"_qs.arg(QLatin1StringView(value))
            << u"--saccade-cluster angle-cutoff=%1: not a whole number from 0 to 180"_qs.arg(QLatin1StringView(value));
    refusedRow("unknown value of saccade clusters", "--saccade-cluster mod=lines a.data",
               "--saccade-cluster mod=lines: mod is not one of minimum-length, minimum-angle-difference, "
               "direction-dependent, angle-linkage, angle-cutoff, minimum-angle-quantity, distance, distance-linkage, "
               "distance-cutoff, minimum-distance-quantity, mode, line-width, arrow-tips, minimum-quantity; did you "
               "mean mode?");
    refusedRow("unknown calculation", "--calculate fixation a.data",
               "--calculate fixation: not one of fixations, clusters, cumulative-clusters, saccade-clusters, "
               "general-statistics, aoi-statistics; did you mean fixations?");
    refusedRow(
        "empty list entry", "--export fixations,,events a.data",
        "--export : not one of fixations, clusters, events, cumulative-clusters, general-statistics, aoi-statistics, "
        "transitions, anglestar, tidy, tidy-samples, aoi-measures, scanpath-measures, group-comparison, "
        "scanpath-similarity, quality, bids");
}

void refusedTimes()
{
    const char *form = "not of the form START:END in whole milliseconds";
    const auto badTime = [&](const char *name, const QString &value) {
        QTest::newRow(name) << u"--time %1 a.data"_qs.arg(value)
                            << u"--time %1: %2"_qs.arg(value, QLatin1StringView(form));
    };
    badTime("time without colon", QStringLiteral("100"));
    badTime("time without start", QStringLiteral(":100"));
    badTime("time without end", QStringLiteral("100:"));
    badTime("time of three parts", QStringLiteral("1:2:3"));
    badTime("time with decimals", QStringLiteral("0.5:1"));
    badTime("time in words", QStringLiteral("start:end"));
    badTime("time beyond 64 bits", QStringLiteral("0:99999999999999999999"));
    refusedRow("start after end", "--time 2:1 a.data", "--time 2:1: the start is after the end");
}

void refusedNumbersAndNames()
{
    for (const char *jobs : {"0", "-1", "2.5", "two", "99999999999"}) {
        QTest::addRow("jobs: %s", jobs) << u"--jobs %1 a.data"_qs.arg(QLatin1StringView(jobs))
                                        << u"--jobs %1: not a whole number from 1 on"_qs.arg(QLatin1StringView(jobs));
    }
    const auto badNumber = [](const char *option, const char *value, const char *range) {
        QTest::addRow("%s: %s", option, value)
            << u"--%1 %2 a.data"_qs.arg(QLatin1StringView(option), QLatin1StringView(value))
            << u"--%1 %2: not a whole number from %3"_qs.arg(QLatin1StringView(option), QLatin1StringView(value),
                                                             QLatin1StringView(range));
    };
    for (const char *value : {"0", "501", "1.5", "many"})
        badNumber("overlap-fixations", value, "1 to 500");
    for (const char *value : {"-1", "501", "none"})
        badNumber("overlap-outliers", value, "0 to 500");
    for (const char *image : {"a.bmp", "a", "png", "a.png.gz"}) {
        QTest::addRow("image: %s", image)
            << u"--image %1 a.data"_qs.arg(QLatin1StringView(image))
            << u"--image %1: the name does not end in .png, .svg, .tiff or .jpg"_qs.arg(QLatin1StringView(image));
    }
    refusedRow("a density that is no .tiff", "--density d.png a.data",
               "--density d.png: the name does not end in .tiff");
}

} // namespace

void TestBatchOptions::accepted_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<Change>("change");
    acceptedArguments();
    acceptedChoices();
    acceptedFilesAndNumbers();
}

void TestBatchOptions::accepted()
{
    QFETCH(QString, line);
    QFETCH(Change, change);
    const auto parsed = parseBatchOptions(arguments(line));
    const auto *error = std::get_if<UsageError>(&parsed);
    QVERIFY2(!error, error ? qPrintable(error->text) : "");
    QVERIFY(std::get<BatchOptions>(parsed) == expected(change));
}

void TestBatchOptions::blanksInAList()
{
    const auto parsed = parseBatchOptions(
        {QStringLiteral("--calculate"), QStringLiteral("fixations, clusters "), QStringLiteral("a.data")});
    QVERIFY(std::holds_alternative<BatchOptions>(parsed));
    QVERIFY(std::get<BatchOptions>(parsed) == expected([](O &o) { o.calculations = listed("fixations clusters"); }));
}

void TestBatchOptions::refused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("text");
    refusedArguments();
    refusedChoices();
    refusedTimes();
    refusedNumbersAndNames();
}

void TestBatchOptions::refused()
{
    QFETCH(QString, line);
    QFETCH(QString, text);
    const auto parsed = parseBatchOptions(arguments(line));
    QVERIFY(std::holds_alternative<UsageError>(parsed));
    QCOMPARE(std::get<UsageError>(parsed).text, text);
}

void TestBatchOptions::helpNamesAllOptions()
{
    const QString help = batchHelp();
    for (const OptionGroup &group : optionGroups()) {
        for (const OptionRow &row : group.rows)
            QVERIFY2(help.contains(u"\n  --%1 "_qs.arg(row.name)), row.name.data());
    }
    for (const char *words :
         {"of fixations, clusters, cumulative-clusters, saccade-clusters", "of standard, gaussian, velocity (default",
          "of all, dominant, left, right, mean, in tables", "of gaze, fixations, clusters, saccades (default: gaze)"})
        QVERIFY2(help.contains(QLatin1StringView(words)), words);
    for (const QString &line : help.split(u'\n'))
        QVERIFY2(line.size() < 100, qPrintable(line));
}

/// A name that reaches into the column of the help stands on a line of its own; subjects are told apart.
void TestBatchOptions::helpIsInColumns()
{
    const QStringList lines = batchHelp().split(u'\n');
    for (const char *subject : {"Input:", "Parameters:", "Calculations:", "Tables:", "Pictures:", "Run:"})
        QVERIFY2(lines.contains(QLatin1StringView(subject)), subject);
    for (const QString &line : lines) {
        const qsizetype gap = line.indexOf(QLatin1StringView("  "), 2);
        if (line.startsWith(QLatin1StringView("  --")) && gap > 0)
            QCOMPARE(line.size() - line.mid(gap).trimmed().size(), 28);
    }
    QVERIFY(lines.contains(QStringLiteral("  --saccade-cluster NAME=VALUE")));
}

/// Each option is known once.
void TestBatchOptions::namesAreUnique()
{
    QStringList names;
    for (const OptionGroup &group : optionGroups()) {
        for (const OptionRow &row : group.rows)
            names << row.name;
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

/// An option that is needed by another names it, or one of its words, as the command line has them.
void TestBatchOptions::whatIsNeededIsKnown()
{
    QStringList known;
    QStringList needed;
    for (const OptionGroup &group : optionGroups()) {
        for (const OptionRow &row : group.rows) {
            known << row.name;
            for (const QString &word : row.value->words ? row.value->words() : QStringList())
                known << row.name + u' ' + word;
            if (!row.neededBy.isEmpty())
                needed += QString(row.neededBy).split(u',');
        }
    }
    QVERIFY(!needed.isEmpty());
    for (const QString &each : needed)
        QVERIFY2(known.contains(each), qPrintable(each));
}

void TestBatchOptions::exitCodes()
{
    QCOMPARE(static_cast<int>(ExitCode::AllDone), 0);
    QCOMPARE(static_cast<int>(ExitCode::SomethingFailed), 1);
    QCOMPARE(static_cast<int>(ExitCode::Usage), 2);
}

QTEST_GUILESS_MAIN(TestBatchOptions)
#include "TestBatchOptions.moc"
