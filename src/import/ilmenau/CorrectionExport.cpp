// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/ilmenau/CorrectionExport.h"

#include "base/BoundedFile.h"
#include "base/TextDecoding.h"
#include "base/TextFormat.h"
#include "import/ilmenau/CorrectionIni.h"

#include <algorithm>
#include <iterator>

namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1StringView calibrationKeys[] = {
    "LEye_correction_phi"_L1, "REye_correction_phi"_L1, "LEye_correction_theta"_L1, "REye_correction_theta"_L1,
    "m_left_phi"_L1,          "m_left_theta"_L1,        "m_right_phi"_L1,           "m_right_theta"_L1};

QString inMillimetres(const GazePoint &point, const PointSource &source)
{
    const double x = (point.x - 0.5 * source.widthPx) * (source.widthMm / source.widthPx);
    const double y = (point.y - source.heightPx) * -1.0 * (source.heightMm / source.heightPx);
    return text::decimalComma(text::general6(x)) + u';' + text::decimalComma(text::general6(y));
}

bool has(const EllipsePair &pair, const QString &source)
{
    return std::any_of(pair.original.sources.begin(), pair.original.sources.end(),
                       [&](const PointSource &each) { return each.recording == source; });
}

} // namespace

QStringList sourcesOf(const QList<NamedPair> &ellipses)
{
    QStringList sources;
    for (const NamedPair &each : ellipses) {
        for (const PointSource &source : each.pair.original.sources) {
            if (!sources.contains(source.recording))
                sources << source.recording;
        }
    }
    return sources;
}

QString correctionTable(const QList<NamedPair> &ellipses, const QString &source)
{
    QString table = u"line;gp_original_x;gp_original_y;gp_corrected_x;gp_corrected_y\n"_s;
    qsizetype number = 0;
    for (const auto &[text, pair] : ellipses) {
        for (qsizetype i = 0; i < pair.original.points.size(); ++i) {
            const PointSource &from = pair.original.sources[i];
            if (from.recording != source)
                continue;
            table += u"%1;%2;%3\n"_s.arg(QString::number(++number), inMillimetres(pair.original.points[i], from),
                                         inMillimetres(pair.corrected.points[i], from));
        }
    }
    return table;
}

QStringList ellipseLines(const QList<NamedPair> &ellipses, const QString &source)
{
    QStringList lines{ellipseHeader()};
    for (const auto &[text, pair] : ellipses) {
        if (has(pair, source))
            lines << ellipseLine(text, pair);
    }
    return lines;
}

QString calibrationLines(const QString &iniPath)
{
    const std::variant<QByteArray, QString> read = readBounded(iniPath, largestDescription);
    const auto *bytes = std::get_if<QByteArray>(&read);
    if (!bytes)
        return {};
    QString lines;
    for (const QString &line : decodeText(*bytes).split(u'\n')) {
        if (std::any_of(std::begin(calibrationKeys), std::end(calibrationKeys),
                        [&](QLatin1StringView key) { return line.contains(key); }))
            lines += (line.endsWith(u'\r') ? line.chopped(1) : line) + u'\n';
    }
    return lines;
}
