// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Messages.h"
#include "clustering/ClusterCalculation.h"
#include "clustering/ClusterOrder.h"
#include "clustering/CumulativeClusters.h"
#include "detection/FixationCalculation.h"
#include "gaze-simulator/RecordingWriter.h"
#include "import/DataImporter.h"
#include "model/DataModel.h"
#include "statistics/StatisticsCalculation.h"

/// A study of simulated people: their recordings went through the reader, a detector and the clustering.
namespace study {

inline SimulationParameters person(int number)
{
    SimulationParameters parameters;
    parameters.seed = static_cast<quint64>(100 + number);
    parameters.durationS = 8;
    parameters.lossesPerMin = 10;
    return parameters;
}

inline QByteArray recorded(const SimulationParameters &person, const QSize &canvas)
{
    GazeSimulator simulator(person, plainSaliency(canvas));
    QByteArray text = recording::header();
    for (qint64 i = 0; i < simulator.sampleCount(); ++i)
        recording::appendLine(text, simulator.next());
    return text;
}

/// Areas that touch, lie in each other, cross themselves and lie where nobody looks.
inline QList<AreaOfInterest> areas()
{
    return {{QStringLiteral("left.1"), QPolygon({{300, 150}, {640, 150}, {640, 800}, {300, 800}})},
            {QStringLiteral("right, \"2\""), QPolygon({{640, 150}, {1000, 150}, {1000, 800}, {640, 800}})},
            {QStringLiteral("inner"), QPolygon({{500, 350}, {800, 340}, {780, 600}, {520, 620}})},
            {QStringLiteral("knot"), QPolygon({{400, 300}, {900, 700}, {900, 300}, {400, 700}})},
            {QStringLiteral("far"), QPolygon({{1270, 1010}, {1279, 1010}, {1279, 1019}})}};
}

/// Five people in two groups, the last one unchecked; the frame cuts the recordings at both ends.
inline DataModel model()
{
    const QSize canvas(1280, 1024);
    DataModel model;
    for (int number = 1; number <= 5; ++number) {
        Examination examination;
        if (!DataImporter({}, &examination, nullptr).readBytes(recorded(person(number), canvas)))
            qFatal("a simulated recording was not read");
        examination.baseName = QStringLiteral("person%1").arg(number);
        examination.subjectId = QString::number(number);
        examination.subjectText = QStringLiteral("age=2%1.5, ").arg(number);
        examination.properties.insert(QStringLiteral("group"), number % 2 ? QStringLiteral("a") : QStringLiteral("b"));
        examination.dominantEye = number % 2 ? QStringLiteral("left") : QStringLiteral("right");
        examination.checked = number < 5;
        model.examinations() << examination;
    }
    for (const AreaOfInterest &area : areas())
        model.insertAoi(area);
    model.setTimeFrame({500, 7200});
    calculateFixations(model, StandardParameters{.minimumDurationMs = 80, .maximumRadiusPx = 30, .allowedOutliers = 1},
                       nullptr, 1);
    const StandardClusterParameters clusters{.minimumFixations = 2, .overlapAllowed = 0, .maximumRadiusPx = 120};
    calculateClusters(model, clusters, 1);
    calculateCumulativeClusters(
        model, MeanShiftClusterParameters{.radiusPx = 90, .rate = 1, .iterations = 100, .minimumFixations = 3});
    orderClusters(model, model.timeFrame());
    calculateGeneralStatistics(model, nullptr);
    calculateAoiStatistics(model, nullptr);
    return model;
}

} // namespace study
