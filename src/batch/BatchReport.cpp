// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/BatchReport.h"

#include "settings/SettingsStore.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QLatin1StringView severityName(messages::Severity severity)
{
    switch (severity) {
    case messages::Severity::Information:
        return QLatin1StringView("information");
    case messages::Severity::Warning:
        return QLatin1StringView("warning");
    case messages::Severity::Critical:
        break;
    }
    return QLatin1StringView("critical");
}

QJsonObject reportedJson(const ReportedFile &file)
{
    return {{QStringLiteral("path"), file.path},
            {QStringLiteral("bytes"), file.bytes},
            {QStringLiteral("sha256"), file.sha256.isEmpty() ? QJsonValue() : QJsonValue(file.sha256)}};
}

QJsonArray reportedJson(const QList<ShownMessage> &messages)
{
    QJsonArray array;
    for (const ShownMessage &message : messages)
        array << QJsonObject{{QStringLiteral("severity"), severityName(message.severity)},
                             {QStringLiteral("title"), message.title},
                             {QStringLiteral("text"), message.text}};
    return array;
}

template <class T>
QJsonObject reportedJson(const QMap<QString, T> &map)
{
    QJsonObject object;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        object.insert(entry.key(), entry.value());
    return object;
}

QJsonObject reportedJson(const ReportedInput &input)
{
    QJsonObject object = reportedJson(input.file);
    object.insert(QStringLiteral("kind"), input.kind);
    object.insert(QStringLiteral("used"), input.used);
    object.insert(QStringLiteral("counts"), reportedJson(input.counts));
    object.insert(QStringLiteral("messages"), reportedJson(input.messages));
    if (!input.table.isEmpty())
        object.insert(QStringLiteral("table"), input.table);
    if (!input.quality.isEmpty())
        object.insert(QStringLiteral("quality"), input.quality);
    return object;
}

QJsonObject reportedJson(const ReportedArea &area)
{
    return {{QStringLiteral("name"), area.name},
            {QStringLiteral("enabled"), area.enabled},
            {QStringLiteral("vertices"), area.vertices},
            {QStringLiteral("areaPx"), area.areaPx}};
}

template <class T>
QJsonArray reportedArray(const QList<T> &list)
{
    QJsonArray array;
    for (const T &each : list)
        array << reportedJson(each);
    return array;
}

} // namespace

ReportedFile reportedFile(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return {path, 0, QString()}; // a pipe; opened again, it would wait for ever
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return {path, 0, QString()};
    return {path, file.pos(), QString::fromLatin1(hash.result().toHex())};
}

QMap<QString, QString> storedParameters(const SettingsStore &store)
{
    QMap<QString, QString> parameters;
    for (const QString &key : store.allKeys())
        parameters.insert(key, store.value(key).toString());
    return parameters;
}

QJsonDocument toJson(const BatchReport &report)
{
    QJsonObject object{
        {QStringLiteral("program"), report.program},
        {QStringLiteral("version"), report.version},
        {QStringLiteral("options"), reportedJson(report.options)},
        {QStringLiteral("parameters"), reportedJson(report.parameters)},
        {QStringLiteral("inputs"), reportedArray(report.inputs)},
        {QStringLiteral("messages"), reportedJson(report.messages)},
        {QStringLiteral("outputs"), reportedArray(report.outputs)},
    };
    if (!report.density.isEmpty())
        object.insert(QStringLiteral("density"), reportedJson(report.density));
    if (!report.methods.isEmpty())
        object.insert(QStringLiteral("methods"), report.methods);
    if (!report.areas.isEmpty())
        object.insert(QStringLiteral("areasOfInterest"), reportedArray(report.areas));
    return QJsonDocument(object);
}
