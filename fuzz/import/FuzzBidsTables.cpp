// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind as the descriptions and tables of one eye: two objects in JSON, samples and events, with a zero
// between each two. What the descriptions allow is read, and never more than there is.

#include "import/bids/BidsEvents.h"
#include "TableChecks.h"

#include <QJsonDocument>

namespace {

QJsonObject objectOf(const QByteArray &bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

EyeData readSamples(const TableLayout &layout, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    check(buffer.open(QIODevice::ReadOnly));
    auto read = readTable(buffer, QStringLiteral("eye1"), layout, {.pieceBytes = wholePiece});
    Examination examination;
    if (auto *content = std::get_if<TableContent>(&read)) {
        for (TableRecording &recording : content->recordings)
            putSamples(recording, examination);
    }
    return examination.leftEye;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QList<QByteArray> parts = bytes.split('\0');
    const QJsonObject description = objectOf(parts.value(0));
    const auto table = bidsEyeTable(description, description, QStringLiteral("physio.json"));
    if (const auto *problem = std::get_if<TableProblem>(&table)) {
        check(!problem->text().isEmpty() && !problem->remedy.isEmpty());
        return 0;
    }
    const TableLayout &layout = std::get<BidsEyeTable>(table).layout;
    const auto columns = bidsEventColumns(objectOf(parts.value(1)), layout.timeUnit, QStringLiteral("events.json"));
    EyeData eye = readSamples(layout, parts.value(2));
    if (std::holds_alternative<TableProblem>(columns))
        return 0;
    const BidsEventList list = bidsEvents(parts.value(3), std::get<BidsEventColumns>(columns));
    const auto made = putSections(list.events, 0, eye);
    check(made ? made->fixations + made->saccades + made->losses + made->others == list.events.size()
               : eye.scanpath.isEmpty() && eye.saccades.isEmpty() && eye.invalids.isEmpty());
    for (const Fixation &fixation : eye.scanpath)
        check(!fixation.samples.isEmpty() && fixation.samples.size() <= eye.gazePoints.size());
    return 0;
}
