// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/TableImportCommand.h"

#include "base/Messages.h"
#include "commands/CountText.h"
#include "model/OutlierCut.h"

#include <QFileInfo>

#include <utility>

TableImportCommand::TableImportCommand(DataModel &model, IMainWindow &window, QList<ImportedTable> tables)
    : QUndoCommand(QStringLiteral("Import of other formats"))
    , m_model(model)
    , m_window(window)
    , m_tables(std::move(tables))
{
}

void TableImportCommand::undo()
{
    removeFromModel(m_numbers, m_model);
    m_window.removeTableRows(m_numbers);
    m_window.tell({QStringLiteral("Undone: the import of %1").arg(recordingsText(m_numbers.size())), {}, {}});
    m_window.redraw();
}

void TableImportCommand::redo()
{
    addRecordings();
    followExaminations(m_model);
    if (!m_numbers.isEmpty())
        m_window.refreshPlainBackground();
    if (std::exchange(m_firstRun, false)) {
        tell();
        return;
    }
    m_window.tell({QStringLiteral("Redone: the import of %1").arg(recordingsText(m_numbers.size())), {}, {}});
    m_window.showImported();
}

void TableImportCommand::addRecordings()
{
    const RedrawHold hold(m_window);
    m_numbers.clear();
    for (const ImportedTable &table : m_tables) {
        for (const ImportedFile &file : table.recordings) {
            if (const auto number = addToModel(file, m_model)) {
                m_numbers << *number;
                m_window.addTableRow(m_model.examinations().constLast());
            }
        }
    }
}

QStringList TableImportCommand::notRead() const
{
    QStringList names;
    for (const ImportedTable &table : m_tables)
        names += table.notRead;
    return names;
}

void TableImportCommand::tell() const
{
    QStringList missingImages;
    QStringList doubts;
    {
        const messages::Run told;
        for (const ImportedTable &table : m_tables) {
            for (const ImportMessage &message : table.messages)
                messages::show(message);
            doubts += table.doubts;
            for (const ImportedFile &file : table.recordings) {
                doubts += file.doubts;
                if (!file.examination.missingImagePath.isEmpty())
                    missingImages << file.examination.missingImagePath;
            }
        }
    }
    reportMissingImages(missingImages);
    reportDoubts(doubts);
}
