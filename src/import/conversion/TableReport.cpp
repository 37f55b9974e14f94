// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/TableReport.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

using namespace Qt::Literals::StringLiterals;

QJsonArray reportedOddities(const QList<TableOddity> &oddities)
{
    QJsonArray array;
    for (const TableOddity &oddity : oddities)
        array << QJsonObject{{u"kind"_s, oddityWord(oddity.kind)},
                             {u"count"_s, oddity.count},
                             {u"firstLine"_s, oddity.firstLine},
                             {u"text"_s, oddity.sentence}};
    return array;
}

QJsonObject reportedRecording(const TableRecording &recording)
{
    const TableFacts &facts = recording.facts;
    return {{u"name"_s, recording.name},
            {u"samples"_s, facts.samples},
            {u"firstLine"_s, facts.firstLine},
            {u"firstTimeMs"_s, facts.firstTimeMs},
            {u"lastTimeMs"_s, facts.lastTimeMs},
            {u"rateHz"_s, facts.rateHz},
            {u"leftValid"_s, facts.leftValid},
            {u"rightValid"_s, facts.rightValid},
            {u"oddities"_s, reportedOddities(recording.oddities)}};
}

} // namespace

QJsonObject reportedTable(const ChosenLayout &chosen, const TableContent &content)
{
    QJsonArray recordings;
    for (const TableRecording &recording : content.recordings)
        recordings << reportedRecording(recording);
    return {{u"layout"_s, QJsonDocument::fromJson(layoutJson(chosen.layout)).object()},
            {u"layoutName"_s, chosen.name},
            {u"certainty"_s, chosen.certainty},
            {u"choices"_s, QJsonArray::fromStringList(chosen.choices)},
            {u"recordings"_s, recordings},
            {u"oddities"_s, reportedOddities(content.oddities)}};
}

QString recordingLine(const QString &table, const TableContent &content, const TableRecording &recording,
                      const QString &sentence)
{
    return content.recordings.size() == 1 ? u"%1: %2"_s.arg(table, sentence)
                                          : u"%1, recording %2: %3"_s.arg(table, recording.name, sentence);
}
