// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/conversion/RecordingEntries.h"

#include "import/SetFile.h"
#include "import/SetFileEntries.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

using namespace Qt::Literals::StringLiterals;

/// Path of a picture from the folder of a set file; as it is where there is no such picture.
QString pictureFrom(const QString &folder, const QDir &tableFolder, const QString &picture)
{
    const QFileInfo info(tableFolder.absoluteFilePath(picture));
    return info.isFile() ? QDir(QFileInfo(folder).absoluteFilePath()).relativeFilePath(info.absoluteFilePath())
                         : picture;
}

/// The text of another set file, for a file in another folder.
QString movedSetFile(const QString &text, const QString &folder, const QDir &tableFolder)
{
    constexpr auto key = "picturepath"_L1;
    QStringList lines = text.split(u'\n');
    for (QString &line : lines) {
        if (line == "[subject]"_L1)
            break;
        if (line.startsWith(key))
            line = line.section(u'=', 0, 0) + u'=' + pictureFrom(folder, tableFolder, line.section(u'=', -1));
    }
    return lines.join(u'\n');
}

QString plainValue(const QString &value)
{
    QString plain = value;
    std::ranges::replace_if(
        plain, [](QChar c) { return c == u'=' || c == u';' || c == u'\n' || c == u'\r' || c.isNull(); }, QChar(u' '));
    return plain.trimmed();
}

QString dominantEye(const QString &value)
{
    const QString word = value.toLower();
    if (word == "left"_L1 || word == "l"_L1)
        return u"left"_s;
    return word == "right"_L1 || word == "r"_L1 ? u"right"_s : QString();
}

class EntriesOfTable {
public:
    EntriesOfTable(const TableRecording &recording, const QString &folder, const QDir &tableFolder)
        : m_folder(folder)
        , m_tableFolder(tableFolder)
    {
        m_entries.dominantEye.clear();
        m_entries.subjectId = plainValue(recording.name);
        for (const TableEntry &entry : recording.entries)
            take(entry.key, entry.value);
    }

    RecordingSetFile result() const { return {QString::fromUtf8(setFileText(m_entries)), m_notes}; }

private:
    void take(const QString &key, const QString &value)
    {
        const QString plain = plainValue(value);
        if (plain != value.trimmed())
            m_notes << u"the value of %1, \"%2\", stands in the set file without '=', ';' and line breaks."_s.arg(
                key, value);
        if (key == "subject"_L1)
            m_entries.subjectId = plain.isEmpty() ? m_entries.subjectId : plain;
        else if (key == "group"_L1)
            m_entries.group = plain.isEmpty() ? m_entries.group : plain;
        else if (key == "dominant"_L1)
            m_entries.dominantEye = dominantEye(plain);
        else if (key == "stimulus"_L1)
            tryEntries(key, [&](SetFileEntries &entries) {
                entries.picturePath = pictureFrom(m_folder, m_tableFolder, plain);
            });
        else
            tryEntries(key, [&](SetFileEntries &entries) {
                entries.properties << SetFileEntries::Property{key, plain};
            });
    }

    template <class Change>
    void tryEntries(const QString &key, const Change &change)
    {
        SetFileEntries changed = m_entries;
        change(changed);
        if (const QString fault = setFileFault(changed); !fault.isEmpty())
            m_notes << u"%1 is left out of the set file: %2"_s.arg(key, fault);
        else
            m_entries = changed;
    }

    const QString m_folder;
    const QDir m_tableFolder;
    SetFileEntries m_entries;
    QStringList m_notes;
};

} // namespace

QString recordingFileName(const TableRecording &recording)
{
    QString name = recording.name;
    std::ranges::replace_if(
        name, [](QChar c) { return QStringView(u"/\\:*?\"<>|").contains(c) || c.category() == QChar::Other_Control; },
        QChar(u'_'));
    return name.isEmpty() || name.startsWith(u'.') ? u'_' + name : name;
}

RecordingSetFile recordingSetFile(const TableRecording &recording, const QString &table, const QString &folder)
{
    const QDir tableFolder(QFileInfo(table).absolutePath());
    const RecordingPath beside(tableFolder.filePath(recordingFileName(recording) + u".data"_s));
    if (QFileInfo(beside.setFile()).isFile()) {
        const DescribedExamination described = readSetFile(beside.directory + beside.baseName + u".data"_s);
        const QString &text = described.examination.setFileText;
        if (described.error.isEmpty() &&
            QFileInfo(folder).canonicalFilePath() == QFileInfo(tableFolder.path()).canonicalFilePath())
            return {text, {}, RecordingSetFile::Origin::Kept};
        if (described.error.isEmpty())
            return {movedSetFile(text, folder, tableFolder), {}, RecordingSetFile::Origin::Moved};
    }
    return EntriesOfTable(recording, folder, tableFolder).result();
}
