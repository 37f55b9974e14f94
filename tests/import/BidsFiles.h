// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "export/bids/Gzip.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

/// A small data set on disk, made by hand.
class BidsFolder {
public:
    BidsFolder()
    {
        write(QStringLiteral("dataset_description.json"), "{}");
        QDir(m_folder.path()).mkpath(QStringLiteral("sub-1/beh"));
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    /// Below the folder of the subject.
    QString inRun(const QString &end) const { return path(QStringLiteral("sub-1/beh/sub-1_task-look_") + end); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("%s could not be written", qPrintable(name));
    }
    void writeRun(const QString &end, const QByteArray &bytes) const
    {
        write(QStringLiteral("sub-1/beh/sub-1_task-look_") + end, bytes);
    }

    /// A description with all that it needs.
    static QJsonObject description(const QString &eye)
    {
        const auto unit = [](const char *text) {
            return QJsonObject{{QStringLiteral("Units"), QString::fromUtf8(text)}};
        };
        return {{QStringLiteral("PhysioType"), QStringLiteral("eyetrack")},
                {QStringLiteral("RecordedEye"), eye},
                {QStringLiteral("SamplingFrequency"), 100},
                {QStringLiteral("StartTime"), 0},
                {QStringLiteral("Columns"), QJsonArray{QStringLiteral("timestamp"), QStringLiteral("x_coordinate"),
                                                       QStringLiteral("y_coordinate"), QStringLiteral("pupil_size")}},
                {QStringLiteral("timestamp"), unit("ms")},
                {QStringLiteral("x_coordinate"), unit("pixel")},
                {QStringLiteral("y_coordinate"), unit("pixel")}};
    }

    void writeDescription(const QString &end, const QJsonObject &object) const
    {
        writeRun(end + QStringLiteral("_physio.json"), QJsonDocument(object).toJson());
    }

    /// One eye with its description.
    void writeEye(int number, const QString &eye, const QByteArray &rows) const
    {
        const QString end = QStringLiteral("recording-eye%1").arg(number);
        writeRun(end + QStringLiteral("_physio.tsv.gz"), gzipped(rows));
        writeDescription(end, description(eye));
    }

private:
    QTemporaryDir m_folder;
};
