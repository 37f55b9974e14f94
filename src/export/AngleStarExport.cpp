// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/AngleStarExport.h"

#include "base/Progress.h"
#include "base/TextFormat.h"
#include "export/TextTable.h"
#include "statistics/SaccadeVectors.h"

namespace {

struct Block {
    QLatin1StringView title;
    QLatin1StringView leftTitle; ///< in the file of the left eye
    QList<double> AngleStarBins::*values;
};

constexpr Block blocks[] = {
    {QLatin1StringView("Quantity: \n"), QLatin1StringView("Quantity: \n"), &AngleStarBins::quantity},
    {QLatin1StringView("Duration: \n"), QLatin1StringView("Duration(ms): \n"), &AngleStarBins::meanDuration},
    {QLatin1StringView("Length: \n"), QLatin1StringView("Length(px): \n"), &AngleStarBins::meanLength},
};

struct Row {
    QString lead;
    AngleStarBins bins;
};

QString angleHeader(qsizetype bins)
{
    constexpr double fullTurn = 360.0;
    const auto angle = [bins](qsizetype bin) {
        return text::general6(static_cast<double>(bin) * fullTurn / static_cast<double>(bins));
    };
    QString header = QStringLiteral("Subject ID;Subject INFO;Dominant;");
    for (qsizetype bin = 0; bin < bins; ++bin)
        header += QLatin1StringView("Angle:") + angle(bin) + u'-' + angle((bin + 1) % bins) + u';';
    return header + u'\n';
}

/// Only the files of the left and the right eye say whether it is the dominant one; all of them have the header.
QString dominance(const Examination &examination, Eye eye)
{
    if (eye == Eye::Dominant || eye == Eye::Mean)
        return {};
    return examination.isLeftDominant() == (eye == Eye::Left) ? QStringLiteral("YES;") : QStringLiteral("NO;");
}

QString fields(const QList<double> &values)
{
    QString text;
    for (const double value : values)
        text += text::decimalComma(text::general6(value)) + u';';
    return text + u'\n';
}

QList<double> meansOf(const QList<Row> &rows, QList<double> AngleStarBins::*values, qsizetype bins)
{
    QList<double> means(bins);
    for (qsizetype bin = 0; bin < bins; ++bin) {
        for (const Row &row : rows)
            means[bin] += (row.bins.*values)[bin];
        means[bin] /= static_cast<double>(rows.size());
    }
    return means;
}

} // namespace

QString angleStarTable(const DataModel &model, Eye eye, AngleStarForm form)
{
    QList<Row> rows;
    for (const Examination *examination : model.checkedExaminations())
        rows << Row{subjectFields(examination->subjectId, examination->subjectText) + dominance(*examination, eye),
                    angleStarBins(saccadeVectors(examination->stream(eye), model.timeFrame()), form.bins)};
    const qsizetype bins = angleStarBins({}, form.bins).quantity.size();
    QString table = QStringLiteral("Number of histogram bins: %1\nOffset angle: %2\n\n\n\n\n")
                        .arg(QString::number(bins), QString::number(form.offsetDegrees));
    for (const Block &block : blocks) {
        table += (eye == Eye::Left ? block.leftTitle : block.title) + angleHeader(bins);
        for (const Row &row : std::as_const(rows))
            table += row.lead + fields(row.bins.*block.values);
        table += QLatin1StringView("MEAN;;;") + fields(meansOf(rows, block.values, bins));
    }
    return table;
}

ExportResult exportAngleStar(const DataModel &model, const QString &stem, AngleStarForm form)
{
    constexpr QLatin1StringView stems[] = {QLatin1StringView("_left"), QLatin1StringView("_right"),
                                           QLatin1StringView("_dom"), QLatin1StringView("_mean")};
    ExportResult result;
    {
        Progress progress(QStringLiteral("Exporting anglestar. Please wait."), static_cast<int>(allEyes.size()));
        for (const Eye eye : allEyes) {
            writeTable(stem + stems[static_cast<size_t>(eye)] + QLatin1StringView("_anglestar.csv"),
                       angleStarTable(model, eye, form), result);
            progress.advance();
        }
    }
    tellExported(QStringLiteral("Statistics Export"),
                 QStringLiteral("Anglestar statistics exported to: ") + stem +
                     QLatin1StringView("_left/right/dom/mean_anglestar.csv"),
                 result);
    return result;
}
