#include "batch/RunPictures.h"

#include "batch/DrawValues.h"
#include "batch/RunState.h"
#include "density/DensityTiff.h"
#include "settings/StoredKeys.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/scene/ArrowGroup.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/scene/ImageExport.h"

#include <QGraphicsScene>

namespace {

/// The parameters of drawings as the store has them, and those that it does not keep.
struct DrawingParameters {
    explicit DrawingParameters(const QStringList &drawValues)
    {
        for (VisualizationParameters *each : {&gazePoints, &fixations, &clusters, &saccades})
            drawvalues::apply(drawValues, *each);
    }

    VisualizationParameters gazePoints = gazePointParameters();
    VisualizationParameters fixations = fixationParameters();
    VisualizationParameters clusters = clusterParameters();
    VisualizationParameters saccades = saccadeParameters();
};

/// What the model shows with them in its time frame.
DrawingContext contextOf(const DataModel &model, const DrawingParameters &parameters)
{
    return {.model = model,
            .eyeMode = eyeMode(),
            .frame = model.timeFrame(),
            .gazePoints = parameters.gazePoints,
            .fixations = parameters.fixations,
            .clusters = parameters.clusters,
            .saccades = parameters.saccades};
}

} // namespace

void exportImages(RunState &run)
{
    if (run.options.images.isEmpty())
        return;
    QGraphicsScene scene;
    addBackground(scene, backgroundPixmap(run.options.background, run.options.noBorder ? Border::None : Border::Black));
    const DrawingParameters parameters(run.options.drawValues);
    runDrawingPass(scene, run.model, contextOf(run.model, parameters));
    addArrowGroup(scene, saccadeClusterArrows(run.saccadeClusters.distanceClusters(), run.options.saccadeClusters.mode,
                                              run.options.saccadeClusters.style));
    for (const QString &path : run.options.images) {
        if (const auto problem = exportScene(scene, path))
            run.journal.fail(QStringLiteral("Image"), *problem);
        else
            run.journal.keep(path);
    }
}

QMap<QString, QString> exportDensity(RunState &run)
{
    if (run.options.densityFile.isEmpty())
        return {};
    const DrawingParameters parameters(run.options.drawValues);
    const std::optional<NamedDensity> density =
        heatmapDensity(contextOf(run.model, parameters), run.options.densityKind);
    if (!density) {
        run.journal.fail(QStringLiteral("Density"), QStringLiteral("There is nothing of this kind in the time frame."));
        return {};
    }
    run.journal.write(QStringLiteral("Density"), run.options.densityFile,
                      densityTiff(density->cells, density->unit.toLatin1()));
    return {{QStringLiteral("kind"), densityKindWord(run.options.densityKind)},
            {QStringLiteral("kernelWidthPx"), QString::number(density->kernel.width)},
            {QStringLiteral("kernelSigma"), QString::number(density->kernel.sigma)},
            {QStringLiteral("unit"), density->unit}};
}
