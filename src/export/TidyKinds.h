// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/ExportedStreams.h"
#include "export/MeasureExport.h"
#include "statistics/AoiIndex.h"

#include <span>

/// What the rows of tidy tables need beside a stream; made once for all streams.
struct TidyContext {
    TidyContext(const DataModel &model, const MeasureForm &form)
        : areas(model.aoiList())
        , index(areas)
        , frame(model.timeFrame())
        , groupColumn(model.comparedBy)
        , pixelPerDistance(form.pixelPerDistance)
    {
    }

    QList<AreaOfInterest> areas;
    AoiIndex index; ///< of the areas, in their order
    TimeFrame frame;
    QString groupColumn;                    ///< property that names the groups
    std::optional<double> pixelPerDistance; ///< as `MeasureForm` has it
};

/// A kind of tidy table: a file with a row for each of what a stream has of this kind.
struct TidyKind {
    QLatin1StringView word;    ///< in the name of the file
    QLatin1StringView columns; ///< behind those that all kinds begin with; with commas in between
    /// The rows of one stream, in UTF-8. Called in several threads.
    QByteArray (*rows)(const ExportedStream &, const TidyContext &);
};

/// The columns that all kinds begin with, with commas in between.
QLatin1StringView tidyLead();

/// Fixations, saccades, losses, clusters and visits of areas, in the order in which they are written.
std::span<const TidyKind> tidyEvents();

/// The samples themselves.
const TidyKind &tidySamples();
