// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/DataWidget.h"

#include "base/Messages.h"
#include "commands/CommandStack.h"
#include "import/bids/BidsFiles.h"
#include "import/conversion/ImportSession.h"
#include "import/panel/ImportAssistant.h"
#include "import/panel/TableImportCommand.h"
#include "settings/StoredKeys.h"
#include "settings/UserFolder.h"
#include "ui_DataWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QShortcut>

#include <algorithm>

namespace {

QStringList askForRecordings(QWidget *parent, const QString &folder)
{
    QFileDialog dialog(parent, QObject::tr("Select Data Files"), folder,
                       QStringLiteral("Data Files (*.data);;BIDS (*_physio.tsv.gz *_physio.json)"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return dialog.exec() == QDialog::Accepted ? withoutRepeatedRuns(dialog.selectedFiles()) : QStringList();
}

struct FoundFiles {
    QStringList recordings;
    QStringList tables;
    QStringList emptyFolders; ///< as they were given
};

/// Whether the file stands beside recordings without being one, or a table: whoever gives all files of a study means
/// its recordings.
bool isCompanion(const QString &path)
{
    static const QStringList endings{QStringLiteral(".set"),
                                     QStringLiteral(".png"),
                                     QStringLiteral(".jpg"),
                                     QStringLiteral(".jpeg"),
                                     QStringLiteral(".bmp"),
                                     QStringLiteral(".gif"),
                                     QStringLiteral(".tif"),
                                     QStringLiteral(".tiff"),
                                     QStringLiteral(".webp"),
                                     QStringLiteral(".sh"),
                                     QStringLiteral(".md"),
                                     QStringLiteral(".labels.csv"),
                                     QStringLiteral("/Vistrum2013.log")};
    return std::ranges::any_of(endings,
                               [&](const QString &ending) { return path.endsWith(ending, Qt::CaseInsensitive); });
}

/// Files, and what lies in folders under the extension of recordings, in the order of the names; in a folder without
/// recordings the tables.
FoundFiles filesAt(const QStringList &paths)
{
    FoundFiles found;
    for (const QString &path : paths) {
        const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath()); // "name/" has no name
        if (!QFileInfo(absolute).isDir()) {
            const bool isRecording =
                absolute.endsWith(QLatin1StringView(".data"), Qt::CaseInsensitive) || isBidsSamples(absolute);
            (isRecording ? found.recordings : found.tables) << absolute;
            continue;
        }
        const QDir folder(absolute);
        const QStringList names = folder.entryList({QStringLiteral("*.data")}, QDir::Files, QDir::Name);
        for (const QString &name : names)
            found.recordings << folder.filePath(name);
        const QStringList runs = bidsRunsIn(absolute);
        found.recordings += runs;
        if (!names.isEmpty() || !runs.isEmpty())
            continue;
        const QStringList tables = tablesIn(absolute);
        found.tables += tables;
        if (tables.isEmpty())
            found.emptyFolders << path;
    }
    found.recordings = withoutRepeatedRuns(found.recordings);
    if (!found.recordings.isEmpty())
        found.tables.removeIf(isCompanion);
    return found;
}

} // namespace

DataWidget::DataWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::DataWidget>())
    , m_choose([this](const QString &folder) { return askForRecordings(this, folder); })
    , m_questions(std::make_unique<MillimetreDialogs>(this))
{
    m_ui->setupUi(this);
    connect(m_ui->SM_addButton, &QPushButton::clicked, this, &DataWidget::sltAdd);
    connect(m_ui->SM_removeButton, &QPushButton::clicked, this, &DataWidget::sltRemove);
    connect(m_ui->SM_importButton, &QPushButton::clicked, this, &DataWidget::sltImport);
    connect(m_ui->ilmenau_import, &QPushButton::clicked, this, &DataWidget::sltImportIlmenau);
    connect(m_ui->ilmenau_ini_import, &QPushButton::clicked, this, &DataWidget::sltImportIlmenauINI);
    auto *deleteKey = new QShortcut(QKeySequence::Delete, m_ui->listView);
    deleteKey->setContext(Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, [this] {
        if (!selectedFiles().isEmpty())
            sltRemove();
    });
}

DataWidget::~DataWidget() = default;

void DataWidget::sltAdd()
{
    CommandStack::instance().push(new CommandDataAdd(*m_ui->listView, m_choose, m_log));
}

QStringList DataWidget::importFiles(const QStringList &paths)
{
    const FoundFiles found = filesAt(paths);
    if (!found.recordings.isEmpty()) {
        const auto chosen = [&](const QString &) { return found.recordings; };
        CommandStack::instance().push(new CommandDataAdd(*m_ui->listView, chosen, m_log));
        sltImport();
    }
    if (!found.tables.isEmpty())
        importOther(found.tables);
    return found.emptyFolders;
}

void DataWidget::importOther(const QStringList &paths)
{
    auto *assistant = new ImportAssistant(userFolder(QStringLiteral("layouts")), window());
    assistant->setAttribute(Qt::WA_DeleteOnClose);
    connect(assistant, &ImportAssistant::imported, this, &DataWidget::takeTables);
    assistant->open();
    assistant->add(paths);
}

void DataWidget::takeTables(const QList<ImportedTable> &tables)
{
    if (!m_model || !m_window)
        return;
    import(new TableImportCommand(*m_model, *m_window, tables));
}

void DataWidget::sltRemove()
{
    CommandStack::instance().push(new CommandDataRemove(*m_ui->listView, selectedFiles(), m_log));
}

void DataWidget::sltImport()
{
    if (!m_model || !m_window)
        return;
    const bool isEmpty = m_ui->listView->count() == 0;
    import(new CommandDataImport(*m_model, *m_window, *m_ui->listView, m_log));
    if (isEmpty)
        m_window->tell({QStringLiteral("Nothing was imported: the list of data files is empty"), {}, {}});
}

/// Boxes come once the window shows what they are about.
void DataWidget::import(QUndoCommand *command)
{
    const messages::Run told;
    CommandStack::instance().push(command);
    Q_EMIT sigLoadTimeline();
}

/// In the order of the list, whatever the order of selection.
QStringList DataWidget::selectedFiles() const
{
    QStringList files;
    for (int row = 0; row < m_ui->listView->count(); ++row) {
        const QListWidgetItem *item = m_ui->listView->item(row);
        if (item->isSelected())
            files << item->text();
    }
    return files;
}
