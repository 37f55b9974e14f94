#include "import/panel/DataWidget.h"

#include "commands/CommandStack.h"
#include "import/bids/BidsFiles.h"
#include "settings/StoredKeys.h"
#include "ui_DataWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QShortcut>

namespace {

QStringList askForRecordings(QWidget *parent, const QString &folder)
{
    QFileDialog dialog(parent, QObject::tr("Select Data Files"), folder,
                       QStringLiteral("Data Files (*.data);;BIDS (*_physio.tsv.gz *_physio.json)"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return dialog.exec() == QDialog::Accepted ? withoutRepeatedRuns(dialog.selectedFiles()) : QStringList();
}

/// Files as they are, and what lies in folders under the extension of recordings, in the order of the names.
QStringList recordingsAt(const QStringList &paths)
{
    QStringList recordings;
    for (const QString &path : paths) {
        const QString absolute = QFileInfo(path).absoluteFilePath();
        if (!QFileInfo(absolute).isDir()) {
            recordings << absolute;
            continue;
        }
        const QDir folder(absolute);
        for (const QString &name : folder.entryList({QStringLiteral("*.data")}, QDir::Files, QDir::Name))
            recordings << folder.filePath(name);
        recordings += bidsRunsIn(absolute);
    }
    return withoutRepeatedRuns(recordings);
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

bool DataWidget::importFiles(const QStringList &paths)
{
    const QStringList recordings = recordingsAt(paths);
    if (recordings.isEmpty())
        return false;
    const auto chosen = [recordings](const QString &) { return recordings; };
    CommandStack::instance().push(new CommandDataAdd(*m_ui->listView, chosen, m_log));
    sltImport();
    return true;
}

void DataWidget::sltRemove()
{
    CommandStack::instance().push(new CommandDataRemove(*m_ui->listView, selectedFiles(), m_log));
}

void DataWidget::sltImport()
{
    if (!m_model || !m_window)
        return;
    CommandStack::instance().push(new CommandDataImport(*m_model, *m_window, *m_ui->listView, m_log));
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
