// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ChordFiles.h"

#include "base/FileReplacement.h"
#include "base/TextFormat.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

QByteArray shipped(const char *name)
{
    QFile file(QStringLiteral(":/chord/") + QLatin1StringView(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString quoted(QString field)
{
    const bool isPlain =
        !field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n') && !field.contains(u'\r');
    return isPlain ? field : u'"' + field.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

enum class Alone { No, Yes };

/// The data within the page. "<" is escaped: no name can end the element or begin another.
QByteArray dataElement(const ChordData &data, Alone alone)
{
    const QJsonObject object{{QStringLiteral("alone"), alone == Alone::Yes},
                             {QStringLiteral("matrix"), QString::fromUtf8(matrixJson(data))},
                             {QStringLiteral("cities"), QString::fromUtf8(citiesCsv(data))}};
    QByteArray json = QJsonDocument(object).toJson(QJsonDocument::Compact);
    return "<script type=\"application/json\" id=\"data\">" + json.replace("<", "\\u003c") + "</script>";
}

QByteArray page(const ChordData &data, Alone alone)
{
    return shipped("index.htm").replace("<!--DATA-->", dataElement(data, alone));
}

} // namespace

QByteArray matrixJson(const ChordData &data)
{
    QStringList rows;
    for (const QList<double> &row : data.shares) {
        QStringList values;
        for (const double share : row)
            values << text::general6(share);
        rows << u'[' + values.join(u',') + u']';
    }
    return (u'[' + rows.join(u',') + u']').toUtf8();
}

QByteArray citiesCsv(const ChordData &data)
{
    QString table = QStringLiteral("name,latitude,longitude,population,color\n");
    for (const ChordData::Area &area : data.areas)
        table += quoted(area.name) + QStringLiteral(",37.7244,-122.421,1,") + area.color.name() + u'\n';
    return table.toUtf8();
}

QByteArray standalonePage(const ChordData &data)
{
    const auto inlined = [](const char *script) { return "<script>\n" + shipped(script) + "\n</script>"; };
    return page(data, Alone::Yes)
        .replace("<script src=\"d3.min.js\"></script>", inlined("d3.min.js"))
        .replace("<script src=\"chord.js\"></script>", inlined("chord.js"));
}

std::optional<ChordFilesProblem> writeChordFiles(const ChordData &data, const QString &folder)
{
    const QString noMatrix = QStringLiteral("Can't write json");
    const QString noCities = QStringLiteral("Can't write cites"); // sic
    const QString noPage = QStringLiteral("The page of the diagram cannot be written to %1").arg(folder);
    if (const auto problem = makeFolder(folder))
        return ChordFilesProblem{noMatrix, writeFailure(folder, *problem)};
    struct File {
        const char *name;
        QByteArray bytes;
        QString complaint;
    };
    for (const File &file :
         {File{"matrix.json", matrixJson(data), noMatrix}, File{"cities.csv", citiesCsv(data), noCities},
          File{"index.htm", page(data, Alone::No), noPage}, File{"d3.min.js", shipped("d3.min.js"), noPage},
          File{"chord.js", shipped("chord.js"), noPage}})
    {
        const QString path = folder + u'/' + QLatin1StringView(file.name);
        if (const auto problem = replaceFile(path, file.bytes))
            return ChordFilesProblem{file.complaint, writeFailure(path, *problem)};
    }
    return std::nullopt;
}

QString chordFolder()
{
    const QString program = QCoreApplication::applicationFilePath();
    const QString folder = program.left(program.lastIndexOf(u'/'));
    return QFileInfo(folder).isWritable() ? folder : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}
