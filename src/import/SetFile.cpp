// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/SetFile.h"

#include "base/BoundedFile.h"
#include "base/TextDecoding.h"
#include "import/RecordingText.h"

#include <QFile>
#include <QFileInfo>

#include <variant>

namespace {

bool isFile(const QString &path)
{
    return QFileInfo(path).isFile();
}

QStringList linesOf(const QString &text)
{
    QStringList lines = text.split(u'\n');
    if (lines.constLast().isEmpty())
        lines.removeLast(); // what follows the last line end is no line
    for (QString &line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
    }
    return lines;
}

QString keyOf(const QString &line)
{
    return line.section(u'=', 0, 0);
}

QString valueOf(const QString &line)
{
    return line.section(u'=', -1);
}

class SetFileParser {
public:
    explicit SetFileParser(const RecordingPath &path)
    {
        m_result.examination.directory = path.directory;
        m_result.examination.baseName = path.baseName;
    }

    void parse(const QStringList &lines)
    {
        bool inSubject = false;
        for (const QString &line : lines) {
            m_result.examination.setFileText += line + u'\n';
            if (inSubject)
                parseSubjectLine(line);
            else if (line == QLatin1StringView("[subject]"))
                inSubject = true;
            else
                parseImageLine(line);
        }
    }

    DescribedExamination finish()
    {
        Examination &examination = m_result.examination;
        for (EyeData *eye : examination.streams()) {
            eye->setFileText = examination.setFileText;
            eye->subjectText = examination.subjectText;
        }
        return std::move(m_result);
    }

private:
    void parseImageLine(const QString &line)
    {
        if (line.startsWith(QLatin1StringView("picturename")))
            m_result.examination.imageName = valueOf(line);
        else if (line.startsWith(QLatin1StringView("picturepath")))
            findImage(valueOf(line));
    }

    void findImage(QString path)
    {
        Examination &examination = m_result.examination;
        const QString asWritten = path;
        if (!path.contains(u':')) // no drive
            path.prepend(examination.directory);
        if (!isFile(path) && asWritten.startsWith(u'/'))
            path = asWritten;
        if (!isFile(path))
            path = examination.directory + examination.imageName;
        if (!isFile(path)) {
            examination.missingImagePath = path;
            return;
        }
        m_result.images << ImageReference{path, examination.imageName};
        examination.properties[QStringLiteral("image")] = examination.imageName;
    }

    void parseSubjectLine(const QString &line)
    {
        QString entry = line;
        entry.remove(u';');
        if (line.size() > 1 && line.contains(u'='))
            m_result.examination.subjectText += entry + QStringLiteral(", ");
        if (!entry.isEmpty())
            addProperty(entry);
    }

    void addProperty(const QString &entry)
    {
        Examination &examination = m_result.examination;
        const QString key = keyOf(entry);
        QString value = valueOf(entry);
        if (key == QLatin1StringView("subjectID"))
            examination.subjectId = value;
        if (entry.startsWith(QLatin1StringView("dominant"))) {
            examination.dominantEye = dominantEye(value.toLower());
            value = examination.dominantEye.isEmpty() ? QStringLiteral("invalid") : examination.dominantEye;
        }
        examination.properties[key] = value;
    }

    static QString dominantEye(const QString &word)
    {
        if (word == QLatin1StringView("left") || word == QLatin1StringView("l"))
            return QStringLiteral("left");
        if (word == QLatin1StringView("right") || word == QLatin1StringView("r"))
            return QStringLiteral("right");
        return {};
    }

    DescribedExamination m_result;
};

/// A pipe beside a recording, whose other end may never come, is left alone.
std::variant<QByteArray, QString> setFileContent(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return QStringLiteral("It is not a regular file and was not read.");
    return readBounded(path, largestDescription);
}

} // namespace

RecordingPath::RecordingPath(const QString &dataFile)
    : directory(dataFile.first(dataFile.lastIndexOf(u'/') + 1))
    , baseName(dataFile.sliced(directory.size()))
{
    if (const qsizetype point = baseName.lastIndexOf(u'.'); point >= 0)
        baseName.truncate(point);
}

DescribedExamination readSetFile(const QString &dataFile)
{
    const RecordingPath path(dataFile);
    const std::variant<QByteArray, QString> content = setFileContent(path.setFile());
    if (const auto *bytes = std::get_if<QByteArray>(&content))
        return parseSetFile(*bytes, path);
    DescribedExamination described = parseSetFile({}, path);
    described.error = std::get<QString>(content);
    return described;
}

DescribedExamination parseSetFile(QByteArrayView bytes, const RecordingPath &path)
{
    const std::optional<QByteArray> wide = utf8OfWideText(bytes);
    SetFileParser parser(path);
    parser.parse(linesOf(decodeText(wide ? QByteArrayView(*wide) : bytes)));
    return parser.finish();
}
