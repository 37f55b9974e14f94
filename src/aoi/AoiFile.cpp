// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFile.h"

#include "base/BoundedFile.h"
#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "base/TextDecoding.h"

#include <QDebug>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

using Text = QLatin1StringView;

constexpr Text header("AOI FILE");
constexpr Text typeKey("type=");
constexpr Text colorLine("color=");
constexpr Text nameLine("name=");

/// What stands behind the key, up to the next occurrence of the key: a name that has "name=" in it is cut there, which
/// is kept. Nothing where the key does not occur. A value may be empty, but is never null.
std::optional<QString> valueOf(QStringView line, Text key)
{
    const qsizetype at = line.indexOf(key);
    if (at < 0)
        return std::nullopt;
    const QStringView rest = line.sliced(at + key.size());
    const qsizetype end = rest.indexOf(key);
    return (end < 0 ? rest : rest.first(end)).toString();
}

/// Red, green, blue and alpha with ";" between them; nothing if there are not exactly four.
std::optional<QColor> colorOf(const QString &value)
{
    const QStringList parts = value.split(u';');
    if (parts.size() != 4)
        return std::nullopt;
    const auto level = [&parts](qsizetype i) { return std::clamp(parts[i].toInt(), 0, 255); };
    return QColor(level(0), level(1), level(2), level(3));
}

/// Two whole numbers with exactly one blank on the line.
std::optional<QPoint> vertexOf(QStringView line)
{
    const qsizetype blank = line.indexOf(u' ');
    if (blank < 0 || line.indexOf(u' ', blank + 1) >= 0)
        return std::nullopt;
    bool xOk = false;
    bool yOk = false;
    const int x = line.first(blank).toInt(&xOk);
    const int y = line.sliced(blank + 1).toInt(&yOk);
    return xOk && yOk ? std::optional(QPoint(x, y)) : std::nullopt;
}

/// Takes the next line, without its end, from the front of the text.
QStringView takeLine(QStringView &text)
{
    const qsizetype end = text.indexOf(u'\n');
    const QStringView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QStringView() : text.sliced(end + 1);
    return line;
}

/// A message after which nothing more is read.
struct Abort {
    Text title;
    Text text;
};

std::optional<Abort> wrongStructure(const char *text)
{
    return Abort{Text("AOI structure not correct!"), Text(text)};
}

class AoiParser {
public:
    AoiFileContents parse(QStringView text)
    {
        for (qsizetype line = 1; !text.isEmpty(); ++line) {
            if (const std::optional<Abort> abort = take(takeLine(text), line)) {
                messages::warning(abort->title, abort->text);
                m_result.stoppedAtLine = line;
                return std::move(m_result);
            }
        }
        finish();
        return std::move(m_result);
    }

private:
    std::optional<Abort> take(QStringView line, qsizetype number)
    {
        if (number == 1)
            return takeHeader(line);
        if (line.startsWith(typeKey))
            return startBlock();
        if (line.startsWith(nameLine))
            return takeName(line);
        if (line.startsWith(colorLine))
            return takeColor(line);
        takeVertex(line, number);
        return std::nullopt;
    }

    static std::optional<Abort> takeHeader(QStringView line)
    {
        if (line == header)
            return std::nullopt;
        return Abort{Text("AOI header not intact!"),
                     Text("The file does not seem to be in correct AOI file format. It cannot be imported.")};
    }

    std::optional<Abort> startBlock()
    {
        if (!m_current.polygon.isEmpty() && m_current.name.isNull())
            return wrongStructure("AOI without name. Abort.");
        keepCurrent();
        m_current = AreaOfInterest();
        return std::nullopt;
    }

    std::optional<Abort> takeName(QStringView line)
    {
        if (!m_current.polygon.isEmpty())
            return wrongStructure("The AOI named already contains polygon points. Abort.");
        if (const std::optional<QString> name = valueOf(line, nameLine))
            m_current.name = *name;
        else
            messages::warning(Text("AOI name undefined!"), Text("The AOI name was not specified correctly."));
        return std::nullopt;
    }

    std::optional<Abort> takeColor(QStringView line)
    {
        if (!m_current.polygon.isEmpty())
            return wrongStructure("The AOI already contains polygon points. Abort.");
        const std::optional<QString> value = valueOf(line, colorLine);
        if (const std::optional<QColor> color = value ? colorOf(*value) : std::nullopt)
            m_current.color = *color;
        else
            messages::warning(Text("AOI color undefined!"), Text("The AOI color was not specified correctly."));
        return std::nullopt;
    }

    void takeVertex(QStringView line, qsizetype number)
    {
        if (const std::optional<QPoint> vertex = vertexOf(line)) {
            m_current.polygon << *vertex;
            return;
        }
        qWarning().noquote() << "AOI import ancountered a problem at line:" << line; // sic
        if (m_result.badVertexLines++ == 0)
            m_result.firstBadVertexLine = number;
    }

    void finish()
    {
        keepCurrent();
        if (m_result.badVertexLines > 0)
            messages::information(Text("Problems importing the AOI file detected!"),
                                  Text("Some lines of the AOI file are not compatible with the file format "
                                       "specification. The import may have worked, but individual points may be "
                                       "missing."));
    }

    void keepCurrent()
    {
        const bool hasName = !m_current.name.isNull();
        const bool hasVertices = !m_current.polygon.isEmpty();
        if (hasName && hasVertices)
            m_result.aois << std::move(m_current);
        else if (hasName || hasVertices)
            ++m_result.unfinishedBlocks;
    }

    AoiFileContents m_result;
    AreaOfInterest m_current;
};

} // namespace

AoiFileContents readAoiFile(const QString &path)
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestAoiFile);
    if (const auto *bytes = std::get_if<QByteArray>(&read))
        return parseAoiFile(*bytes);
    messages::warning(Text("Cannot read file!"),
                      Text("Error when trying read the specified file. Please make sure you have selected the correct "
                           "file and path and have reading privileges."));
    AoiFileContents none;
    none.error = std::get<QString>(read);
    return none;
}

AoiFileContents parseAoiFile(QByteArrayView bytes)
{
    return AoiParser().parse(decodeText(bytes).remove(u'\r'));
}

bool writeAoiFile(const QList<AreaOfInterest> &aois, const QString &path)
{
    return writeAoiText(aois, path, aoiFileText);
}

bool writeAoiText(const QList<AreaOfInterest> &aois, const QString &path,
                  QByteArray (*text)(const QList<AreaOfInterest> &))
{
    if (aois.isEmpty()) {
        messages::warning(Text("AOIs are empty!"), Text("You are trying to save an empty AOI. Aborted."));
        return false;
    }
    const auto problem = replaceFile(path, text(aois));
    if (!problem)
        return true;
    const QString advice =
        QStringLiteral("Error when trying to write to the specified file. Please make sure you have selected the "
                       "correct file and path and have writing privileges.\n");
    messages::warning(Text("Cannot write to file!"), advice + writeFailure(path, *problem));
    return false;
}

QByteArray aoiFileText(const QList<AreaOfInterest> &aois)
{
    const auto number = [](int value) { return QByteArray::number(value); };
    QByteArray text = "AOI FILE\n";
    for (const AreaOfInterest &aoi : aois) {
        const QColor &color = aoi.color;
        text += "type=static\ncolor=" + number(color.red()) + ';' + number(color.green()) + ';' + number(color.blue()) +
                ';' + number(color.alpha()) + "\nname=" + aoi.name.toUtf8() + '\n';
        for (const QPoint &vertex : aoi.polygon)
            text += number(vertex.x()) + ' ' + number(vertex.y()) + '\n';
    }
    return text;
}
