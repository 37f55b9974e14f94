// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/RunJournal.h"

#include "base/FileReplacement.h"
#include "base/Messages.h"
#include "batch/Terminal.h"

RunJournal::RunJournal(MessageRecord &record, Terminal &output, Digests digests)
    : m_record(record)
    , m_output(output)
    , m_digests(digests)
{
}

void RunJournal::addInput(const QString &path, const QString &kind)
{
    ReportedFile file = m_digests == Digests::Made ? reportedFile(path) : ReportedFile{path, 0, {}};
    file.path = m_record.named(path);
    m_inputs << ReportedInput{.file = file, .kind = kind, .counts = {}, .messages = {}};
}

void RunJournal::beginInput()
{
    m_messages << m_record.take();
}

void RunJournal::addInputWithMessages(const QString &path, const QString &kind, bool used,
                                      const QMap<QString, qint64> &counts)
{
    addInput(path, kind);
    m_inputs.last().used = used;
    m_inputs.last().counts = counts;
    m_inputs.last().messages = m_record.take();
}

void RunJournal::addTable(const QString &path, const QStringList &recordings, const QJsonObject &report)
{
    addInputWithMessages(path, QStringLiteral("table"), !recordings.isEmpty(), {});
    m_inputs.last().recordings = recordings;
    m_inputs.last().table = report;
}

void RunJournal::setDigest(const ContentDigest &digest)
{
    if (m_digests == Digests::Made)
        m_inputs.last().file = {m_inputs.constLast().file.path, digest.bytes, digest.sha256};
}

void RunJournal::keep(const QString &path)
{
    m_written << path;
    const bool listed = m_output.writeLine(m_record.named(path));
    if (!listed && m_listComplete)
        fail(QStringLiteral("Standard output"), QStringLiteral("the list of the files written is cut short"));
    m_listComplete = m_listComplete && listed;
}

void RunJournal::fail(const QString &title, const QString &text)
{
    m_failed = true;
    messages::warning(title, text);
}

void RunJournal::write(const QString &title, const QString &path, const QByteArray &bytes)
{
    if (const std::optional<QString> problem = replaceFile(path, bytes))
        fail(title, writeFailure(path, *problem));
    else
        keep(path);
}

BatchReport RunJournal::report()
{
    m_messages << m_record.take();
    BatchReport report;
    report.inputs = m_inputs;
    report.messages = m_messages;
    for (const QString &path : m_written) {
        report.outputs << reportedFile(path);
        report.outputs.last().path = m_record.named(path);
    }
    return report;
}
