// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/SetFileEntries.h"

#include <QSet>

#include <algorithm>

namespace {

/// Readers cut a value at its last '=' and drop every ';'.
bool holdsReserved(const QString &value)
{
    return std::ranges::any_of(
        value, [](QChar c) { return c == u'=' || c == u';' || c == u'\n' || c == u'\r' || c.isNull(); });
}

QString valueFault(const QString &name, const QString &value)
{
    if (!holdsReserved(value))
        return {};
    return QStringLiteral("%1 \"%2\" cannot stand in a .set file; leave out '=', ';' and line breaks.")
        .arg(name, value);
}

QString keyFault(const QString &key, QSet<QString> &seen)
{
    if (key.isEmpty())
        return QStringLiteral("a property needs the form KEY=VALUE.");
    if (key.startsWith(u'[') || holdsReserved(key))
        return QStringLiteral("the property name \"%1\" cannot stand in a .set file; choose plain letters.").arg(key);
    if (key.startsWith(QStringLiteral("dominant")))
        return QStringLiteral(
                   "the property name \"%1\" would be read as the dominant eye, which has a place of its own.")
            .arg(key);
    if (seen.contains(key))
        return QStringLiteral("the property \"%1\" is given twice, or has a place of its own.").arg(key);
    seen.insert(key);
    return {};
}

QString pictureFault(const QString &path)
{
    if (!path.contains(u':') && !holdsReserved(path))
        return {};
    return QStringLiteral("the picture's path \"%1\" cannot stand in a .set file; "
                          "rename or copy the picture so that it holds no ':', '=' or ';'.")
        .arg(path);
}

} // namespace

QString setFileFault(const SetFileEntries &entries)
{
    QStringList faults = {pictureFault(entries.picturePath),
                          valueFault(QStringLiteral("the subject"), entries.subjectId),
                          valueFault(QStringLiteral("the group"), entries.group)};
    QSet<QString> seen = {QStringLiteral("subjectID"), QStringLiteral("group"), QStringLiteral("image")};
    for (const SetFileEntries::Property &property : entries.properties) {
        faults << keyFault(property.key, seen);
        faults << valueFault(QStringLiteral("the value of %1,").arg(property.key), property.value);
    }
    faults.removeAll(QString());
    return faults.value(0);
}

QByteArray setFileText(const SetFileEntries &entries)
{
    QString text;
    if (!entries.picturePath.isEmpty()) {
        text += QStringLiteral("picturename=%1\n").arg(entries.picturePath.section(u'/', -1));
        text += QStringLiteral("picturepath=%1\n").arg(entries.picturePath);
    }
    text += QStringLiteral("[subject]\nsubjectID=%1\n").arg(entries.subjectId);
    if (!entries.dominantEye.isEmpty())
        text += QStringLiteral("dominant=%1\n").arg(entries.dominantEye);
    text += QStringLiteral("group=%1\n").arg(entries.group);
    for (const SetFileEntries::Property &property : entries.properties)
        text += property.key + u'=' + property.value + u'\n';
    return text.toUtf8();
}

SetFileEntries::Property propertyFromText(const QString &text)
{
    const qsizetype equals = text.indexOf(u'=');
    if (equals < 0)
        return {};
    return {text.left(equals), text.mid(equals + 1)};
}
