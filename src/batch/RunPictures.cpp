#include "batch/RunPictures.h"

#include "batch/RunState.h"
#include "batch/StoredRecords.h"
#include "density/DensityTiff.h"
#include "visualization/heatmap/Heatmap.h"
#include "visualization/scene/Background.h"
#include "visualization/scene/DrawingPass.h"
#include "visualization/scene/ImageExport.h"

#include <QGraphicsScene>

void exportImages(RunState &run)
{
    if (run.options.images.isEmpty())
        return;
    QGraphicsScene scene;
    const StoredRecords parameters(run.options.drawValues);
    const Border border = run.options.noBorder ? Border::None : Border::Black;
    runDrawingPass(scene, run.model, parameters.context(run.model),
                   {backgroundPixmap(run.options.background, border), QImage(),
                    saccadeClusterArrows(run.saccadeClusters.distanceClusters(), run.options.saccadeClusters.mode,
                                         run.options.saccadeClusters.style)});
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
    const StoredRecords parameters(run.options.drawValues);
    const std::optional<HeatmapDensity> density =
        heatmapDensity(run.options.densityKind, parameters.context(run.model));
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
