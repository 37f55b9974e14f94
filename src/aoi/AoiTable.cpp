// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiTable.h"

#include "base/TextDecoding.h"

#include <QHash>

#include <cmath>

namespace {

class CsvReader {
public:
    explicit CsvReader(QStringView text) : m_text(text) {}

    QList<QStringList> read()
    {
        while (m_at < m_text.size())
            take(m_text[m_at++]);
        if (!m_field.isEmpty() || !m_record.isEmpty())
            endRecord();
        return std::move(m_records);
    }

private:
    void take(QChar c)
    {
        if (m_quoted)
            takeQuoted(c);
        else if (c == u'"' && m_field.isEmpty())
            m_quoted = true;
        else if (c == u',')
            m_record << std::exchange(m_field, QString());
        else if (c == u'\n')
            endRecord();
        else if (c != u'\r')
            m_field += c;
    }

    void takeQuoted(QChar c)
    {
        if (c != u'"') {
            m_field += c;
            return;
        }
        const bool isDoubled = m_at < m_text.size() && m_text[m_at] == u'"';
        m_quoted = isDoubled;
        if (isDoubled) {
            m_field += c;
            ++m_at;
        }
    }

    void endRecord()
    {
        m_record << std::exchange(m_field, QString());
        m_records << std::exchange(m_record, QStringList());
    }

    QStringView m_text;
    qsizetype m_at = 0;
    bool m_quoted = false;
    QString m_field;
    QStringList m_record;
    QList<QStringList> m_records;
};

bool isBlankRecord(const QStringList &record)
{
    return record.size() == 1 && record.first().trimmed().isEmpty();
}

bool isHeading(const QStringList &record)
{
    return record.size() == 3 && record[1].trimmed().compare(QLatin1StringView("x"), Qt::CaseInsensitive) == 0 &&
           record[2].trimmed().compare(QLatin1StringView("y"), Qt::CaseInsensitive) == 0;
}

std::optional<int> coordinateOf(const QString &text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok ? pixelOf(value) : std::nullopt;
}

std::optional<QPoint> vertexOfRecord(const QStringList &record)
{
    if (record.size() != 3 || record.first().isEmpty())
        return std::nullopt;
    const std::optional<int> x = coordinateOf(record[1]);
    const std::optional<int> y = coordinateOf(record[2]);
    return x && y ? std::optional(QPoint(*x, *y)) : std::nullopt;
}

QString quoted(QString name)
{
    if (!name.contains(u',') && !name.contains(u'"') && !name.contains(u'\n') && !name.contains(u'\r'))
        return name;
    return u'"' + name.replace(u'"', QLatin1StringView("\"\"")) + u'"';
}

} // namespace

QList<QStringList> csvRecords(QStringView text)
{
    return CsvReader(text).read();
}

std::optional<int> pixelOf(double coordinate)
{
    constexpr double farthest = 1e9;
    if (!(std::abs(coordinate) <= farthest))
        return std::nullopt;
    return qRound(coordinate);
}

AoiFileContents parseAoiTable(const QByteArray &bytes)
{
    AoiFileContents contents;
    QHash<QString, qsizetype> places;
    const QList<QStringList> records = csvRecords(decodeText(bytes));
    for (qsizetype i = isHeading(records.value(0)) ? 1 : 0; i < records.size(); ++i) {
        if (isBlankRecord(records[i]))
            continue;
        const std::optional<QPoint> vertex = vertexOfRecord(records[i]);
        if (!vertex) {
            if (contents.badVertexLines++ == 0)
                contents.firstBadVertexLine = i + 1;
            continue;
        }
        const QString &name = records[i].first();
        if (!places.contains(name)) {
            places.insert(name, contents.aois.size());
            contents.aois << AreaOfInterest(name, QPolygon());
        }
        contents.aois[places.value(name)].polygon << *vertex;
    }
    if (contents.badVertexLines > 0)
        contents.remarks
            << QStringLiteral("Records left out that are no vertex: %1; the first is number %2. A vertex is a name and "
                              "two numbers with commas between them.")
                   .arg(contents.badVertexLines)
                   .arg(contents.firstBadVertexLine);
    return contents;
}

QByteArray aoiTable(const QList<AreaOfInterest> &aois)
{
    QByteArray text = "name,x,y\n";
    for (const AreaOfInterest &aoi : aois) {
        const QByteArray name = quoted(aoi.name).toUtf8();
        for (const QPoint &vertex : aoi.polygon)
            text += name + ',' + QByteArray::number(vertex.x()) + ',' + QByteArray::number(vertex.y()) + '\n';
    }
    return text;
}
