// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToyData.h"
#include "visualization/selection/DataSelection.h"

#include <QTest>

class TestDataSelection : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void frameIncludesItsLimits_data();
    void frameIncludesItsLimits();
    void eyesAndTheirColors_data();
    void eyesAndTheirColors();
    void passes_data();
    void passes();
    void sections_data();
    void sections();
};

void TestDataSelection::frameIncludesItsLimits_data()
{
    QTest::addColumn<qint64>("time");
    QTest::addColumn<int>("validity");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("before the frame") << qint64(99) << 1 << false;
    QTest::newRow("at its start") << qint64(100) << 1 << true;
    QTest::newRow("at its end") << qint64(200) << 1 << true;
    QTest::newRow("after it") << qint64(201) << 1 << false;
    QTest::newRow("inside but invalid") << qint64(150) << 0 << false;
}

void TestDataSelection::frameIncludesItsLimits()
{
    QFETCH(qint64, time);
    QFETCH(int, validity);
    QTEST(isDrawn(toy::sample(time, 0, 0, validity), TimeFrame{100, 200}), "drawn");
}

void TestDataSelection::eyesAndTheirColors_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("dominantEye");
    QTest::addColumn<QString>("expected"); // stream:colour, in drawing order
    const auto row = [](const char *name, EyeMode mode, const char *dominant, const char *expected) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(dominant) << QString::fromLatin1(expected);
    };
    row("all: left before right", EyeMode::showAll, "right", "left:Left right:Right");
    row("left", EyeMode::showLeft, "right", "left:Left");
    row("right", EyeMode::showRight, "left", "right:Right");
    row("a left dominant eye has the dominant colour", EyeMode::showDominant, "left", "left:Dominant");
    row("so has a right one", EyeMode::showDominant, "right", "right:Dominant");
    row("an unknown dominant eye is the right one", EyeMode::showDominant, "x", "right:Dominant");
    row("the mean has the dominant colour", EyeMode::showMean, "left", "mean:Dominant");
}

void TestDataSelection::eyesAndTheirColors()
{
    QFETCH(int, mode);
    QFETCH(QString, dominantEye);
    Examination examination;
    examination.dominantEye = dominantEye;
    QStringList found;
    for (const ExaminationEye &each : eyesToDraw(examination, static_cast<EyeMode>(mode))) {
        const char *stream = &each.stream() == &examination.leftEye    ? "left"
                             : &each.stream() == &examination.rightEye ? "right"
                                                                       : "mean";
        const char *color = each.eye == Eye::Left ? "Left" : each.eye == Eye::Right ? "Right" : "Dominant";
        found << QString::fromLatin1(stream) + u':' + QString::fromLatin1(color);
    }
    QTEST(found.join(u' '), "expected");
}

void TestDataSelection::passes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("expected"); // examination and its stream; passes are separated by a bar
    const auto row = [](const char *name, EyeMode mode, const char *expected) {
        QTest::newRow(name) << static_cast<int>(mode) << QString::fromLatin1(expected);
    };
    row("left eyes of all, then right ones", EyeMode::showAll, "0 left, 1 left | 0 right, 1 right");
    row("left", EyeMode::showLeft, "0 left, 1 left");
    row("the dominant one of each", EyeMode::showDominant, "0 left, 1 right");
    row("mean", EyeMode::showMean, "0 mean, 1 mean");
}

void TestDataSelection::passes()
{
    QFETCH(int, mode);
    Examination first;
    first.dominantEye = QStringLiteral("left");
    const Examination second;
    QStringList found;
    for (const QList<ExaminationEye> &pass : passesToDraw({&first, &second}, static_cast<EyeMode>(mode))) {
        QStringList names;
        for (const ExaminationEye &each : pass) {
            const char *stream = &each.stream() == &each.examination->leftEye    ? " left"
                                 : &each.stream() == &each.examination->rightEye ? " right"
                                                                                 : " mean";
            names << (each.examination == &first ? QStringLiteral("0") : QStringLiteral("1")) +
                         QString::fromLatin1(stream);
        }
        found << names.join(QStringLiteral(", "));
    }
    QTEST(found.join(QStringLiteral(" | ")), "expected");
    QVERIFY(passesToDraw({}, static_cast<EyeMode>(mode)).isEmpty());
}

using Span = QPair<qint64, qint64>; // first and last sample in ms; (-1, -1) without samples

void TestDataSelection::sections_data()
{
    QTest::addColumn<QList<Span>>("spans");
    QTest::addColumn<qint64>("start");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<qsizetype>("first");
    QTest::addColumn<qsizetype>("stop");
    const QList<Span> three{{0, 100}, {200, 300}, {400, 500}};
    const auto row = [](const char *name, const QList<Span> &spans, qint64 start, qint64 end, qsizetype first,
                        qsizetype stop) { QTest::newRow(name) << spans << start << end << first << stop; };
    row("none", {}, 0, 1000, 0, 0);
    row("all", three, 0, 1000, 0, 3);
    row("one that ends at the start is in", three, 100, 1000, 0, 3);
    row("one that ends before the start is out", three, 101, 1000, 1, 3);
    row("one that begins at the end is in", three, 0, 400, 0, 3);
    row("one that begins after the end is out", three, 0, 399, 0, 2);
    row("a frame between two sections", three, 120, 180, 1, 1);
    row("a frame after the last", three, 501, 600, 3, 3);
    row("one without samples at the beginning is passed over", {{-1, -1}, {10, 20}}, 0, 100, 1, 2);
    row("one without samples in between is taken along", {{10, 20}, {-1, -1}, {30, 40}}, 0, 100, 0, 3);
    row("the walk ends at the first later one", {{10, 20}, {500, 600}, {30, 40}}, 0, 100, 0, 1);
}

void TestDataSelection::sections()
{
    QFETCH(QList<Span>, spans);
    QFETCH(qint64, start);
    QFETCH(qint64, end);
    QFETCH(qsizetype, first);
    QFETCH(qsizetype, stop);
    QList<Fixation> fixations;
    for (const auto &[from, to] : spans) {
        Fixation fixation;
        if (from >= 0)
            fixation.samples = {toy::sample(from, 1, 1), toy::sample(to, 1, 1)};
        fixations << fixation;
    }
    const SectionRange range = sectionsInFrame(fixations, {start, end});
    QCOMPARE(range.begin, first);
    QCOMPARE(range.end, stop);
}

QTEST_GUILESS_MAIN(TestDataSelection)
#include "TestDataSelection.moc"
