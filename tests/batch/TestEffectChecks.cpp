// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/EffectChecks.h"
#include "TestSettings.h"

#include <QTest>

namespace {

void row(const char *name, const char *options, std::initializer_list<const char *> lines)
{
    QStringList texts;
    for (const char *line : lines)
        texts << QString::fromUtf8(line);
    QTest::newRow(name) << QString::fromUtf8(options) << texts;
}

void columns()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QStringList>("lines");
}

} // namespace

/// What a run is told to do in vain.
class TestEffectChecks : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void resultsOfNothing_data();
    void resultsOfNothing() { check(); }
    void optionsWithoutUse_data();
    void optionsWithoutUse() { check(); }

private:
    static void check()
    {
        QFETCH(QString, options);
        const TemporarySettings settings;
        const auto parsed = parseBatchOptions(options.split(u' '));
        QVERIFY(std::holds_alternative<BatchOptions>(parsed));
        QTEST(optionsWithoutEffect(std::get<BatchOptions>(parsed)), "lines");
    }
};

void TestEffectChecks::resultsOfNothing_data()
{
    columns();
    row("clusters without fixations", "--calculate clusters,cumulative-clusters a.data",
        {"--calculate clusters: without --calculate fixations it finds nothing.",
         "--calculate cumulative-clusters: without --calculate fixations it finds nothing."});
    row("tables of fixations without any", "--export anglestar,scanpath-measures a.data",
        {"--export anglestar: without --calculate fixations whatever rests on fixations is missing.",
         "--export scanpath-measures: without --calculate fixations whatever rests on fixations is missing."});
    row("transitions of nothing", "--calculate fixations --export transitions a.data",
        {"--export transitions: without --calculate clusters, --calculate cumulative-clusters, --aois or "
         "--generate-aois there is nothing to write."});
    row("transitions of areas", "--calculate fixations --generate-aois grid --export transitions a.data", {});
    row("transitions of clusters", "--calculate fixations,clusters --export transitions a.data", {});
    row("recordings that bring their fixations", "--calculate clusters --export anglestar,scanpath-measures .", {});
}

void TestEffectChecks::optionsWithoutUse_data()
{
    columns();
    row("looks of pictures without one",
        "--image-area picture --image-scale 2 --image-ground white --legend --label-fixations --image-per recording "
        "--append legends a.data",
        {"--image-area: without --image nothing uses it.", "--image-scale: without --image nothing uses it.",
         "--image-ground: without --image nothing uses it.", "--legend: without --image nothing uses it.",
         "--label-fixations: without --image nothing uses it.", "--image-per: without --image nothing uses it.",
         "--append: without --image nothing uses it."});
    row("looks of a picture", "--legend --no-border --draw percent-mode=yes --image a.png a.data", {});
    row("the frame of no picture", "--no-border a.data",
        {"--no-border: without --image, --aoi-images or --video nothing uses it."});
    row("values of no drawing", "--draw percent-mode=yes a.data",
        {"--draw: without --image, --density, --chart, --diagram or --video nothing uses it."});
    row("values of a density", "--draw percent-mode=yes --density-kind gaze --density a.tiff a.data", {});
    row("the kind of no density", "--density-kind fixations a.data",
        {"--density-kind: without --density nothing uses it."});
    row("the step of no video", "--video-step 50 a.data", {"--video-step: without --video nothing uses it."});
    row("kinds of transitions without their table",
        "--calculate fixations --export fixations --transitions own --transition-values absolute a.data",
        {"--transitions: without --export transitions nothing uses it.",
         "--transition-values: without --export transitions nothing uses it."});
    row("kinds of transitions",
        "--calculate fixations,clusters --export fixations,transitions --transitions own a.data", {});
    row("similarity of nothing", "--similarity grid-columns=9 a.data",
        {"--similarity: without --export scanpath-similarity nothing uses it."});
    row("groups of nothing", "--calculate fixations --export fixations --group-by expertise a.data",
        {"--group-by: without --export tidy, --export tidy-samples, --export scanpath-measures, --export "
         "group-comparison, --export scanpath-similarity or --export quality nothing uses it."});
    row("groups", "--export quality --group-by expertise a.data", {});
    row("a beginning of no names", "--prefix pilot a.data", {"--prefix: without --export nothing uses it."});
}

QTEST_GUILESS_MAIN(TestEffectChecks)
#include "TestEffectChecks.moc"
