// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/DataCommands.h"

#include "commands/CountText.h"
#include "import/bids/BidsRecording.h"
#include "settings/StoredKeys.h"

#include <QDebug>

#include <memory>

namespace {

QStringList textsOf(const QListWidget &list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts << list.item(row)->text();
    return texts;
}

void logLines(const Log *log, const QString &prefix, const QStringList &texts)
{
    if (!log)
        return;
    QStringList lines;
    for (const QString &text : texts)
        lines << prefix + text;
    log->write(lines);
}

void removeFirst(QListWidget &list, const QString &text)
{
    const qsizetype row = textsOf(list).indexOf(text);
    if (row >= 0)
        const std::unique_ptr<QListWidgetItem> removed(list.takeItem(static_cast<int>(row)));
}

QString addRedoPrefix()
{
    return QStringLiteral("CommandDataAdd::redo = ");
}

} // namespace

CommandDataAdd::CommandDataAdd(QListWidget &files, RecordingChooser choose, const Log *log)
    : QUndoCommand(QStringLiteral("Data add"))
    , m_files(files)
    , m_choose(std::move(choose))
    , m_log(log)
{
}

void CommandDataAdd::undo()
{
    showFiles(m_previous, QStringLiteral("CommandDataAdd::undo = "));
}

void CommandDataAdd::redo()
{
    if (m_firstRun)
        askUser();
    showFiles(m_previous + m_added, addRedoPrefix());
}

void CommandDataAdd::askUser()
{
    m_firstRun = false;
    m_previous = textsOf(m_files);
    m_added = m_choose(readStored(keys::lastRecordingFolder));
    if (!m_added.isEmpty())
        writeStored(keys::lastRecordingFolder, m_added.constFirst().section(u'/', 0, -2));
}

void CommandDataAdd::showFiles(const QStringList &paths, const QString &logPrefix)
{
    m_files.clear();
    m_files.addItems(paths);
    logLines(m_log, logPrefix, paths);
}

CommandDataRemove::CommandDataRemove(QListWidget &files, QStringList removed, const Log *log)
    : QUndoCommand(QStringLiteral("Data remove"))
    , m_files(files)
    , m_removed(std::move(removed))
    , m_log(log)
{
}

void CommandDataRemove::undo()
{
    m_files.addItems(m_removed);
    logLines(m_log, addRedoPrefix(), m_removed); // sic, the prefix of the other command
}

void CommandDataRemove::redo()
{
    for (const QString &path : std::as_const(m_removed)) {
        qDebug().noquote() << path;
        removeFirst(m_files, path);
    }
    logLines(m_log, QStringLiteral("CommandDataRemove::redo = "), m_removed);
}

CommandDataImport::CommandDataImport(DataModel &model, IMainWindow &window, QListWidget &files, const Log *log)
    : QUndoCommand(QStringLiteral("Data import"))
    , m_model(model)
    , m_window(window)
    , m_files(files)
    , m_log(log)
{
}

void CommandDataImport::undo()
{
    m_files.clear();
    m_files.addItems(m_paths);
    removeFromModel(m_outcome.numbers, m_model);
    m_window.removeTableRows(m_outcome.numbers);
    m_window.tell({QStringLiteral("Undone: the import of %1").arg(recordingsText(m_outcome.numbers.size())), {}, {}});
    if (m_log)
        m_log->write(
            QStringLiteral("CommandDataImport:undo The import of %1 files has been undone!").arg(m_paths.size()));
    m_window.redraw();
}

void CommandDataImport::redo()
{
    const messages::Run told; // once the window shows the recordings
    m_paths = textsOf(m_files);
    {
        const RedrawHold hold(m_window);
        m_outcome = importRecordings(
            m_paths, m_model, m_log, [this](const Examination &examination) { m_window.addTableRow(examination); },
            readRecordingOrBids);
    }
    if (!m_outcome.numbers.isEmpty())
        m_window.refreshPlainBackground();
    m_files.clear();
    if (m_log)
        m_log->write(QStringLiteral("CommandDataImport:redo The import of %1 files is done!").arg(m_paths.size()));
    if (!std::exchange(m_firstRun, false)) {
        m_window.tell(
            {QStringLiteral("Redone: the import of %1").arg(recordingsText(m_outcome.numbers.size())), {}, {}});
        m_window.showImported();
    }
}

CommandPictureImport::CommandPictureImport(DataModel &model, QString path)
    : QUndoCommand(QStringLiteral("Picture Import: ") + path)
    , m_model(model)
    , m_path(std::move(path))
{
}

void CommandPictureImport::undo()
{
    m_model.images().remove(m_path);
}

void CommandPictureImport::redo()
{
    m_model.images().image(m_path);
}
