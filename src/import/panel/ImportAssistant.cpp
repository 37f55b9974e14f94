// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/panel/ImportAssistant.h"

#include "base/FileReplacement.h"
#include "base/NamedPlace.h"
#include "import/panel/DroppedFiles.h"
#include "import/panel/LayoutForm.h"
#include "import/panel/SamplesView.h"

#include <QComboBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qsizetype shownLines = 200;
constexpr qsizetype shownRecordings = 8;
constexpr qsizetype longestShownLine = 2000;
constexpr QSize preferredSize(1240, 640);

QPlainTextEdit *makeText(const char *name, QWidget *parent)
{
    auto *text = new QPlainTextEdit(parent);
    text->setObjectName(QLatin1StringView(name));
    text->setReadOnly(true);
    return text;
}

QStringList askForTables(QWidget *parent)
{
    return QFileDialog::getOpenFileNames(
        parent, u"Select Files of Other Formats"_s, {},
        u"Tables and logs (*.csv *.tsv *.txt *.asc *.dat *.tab *.gz);;All files (*)"_s);
}

QVBoxLayout *paneLayout(QWidget *pane)
{
    auto *layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

} // namespace

ImportAssistant::ImportAssistant(const QString &layoutFolder, QWidget *parent)
    : QDialog(parent)
    , m_layoutFolder(layoutFolder)
    , m_session(readyLayouts().layouts)
    , m_choose([this] { return askForTables(this); })
{
    setObjectName(u"ImportAssistant"_s);
    setWindowTitle(u"Import other formats"_s);
    auto *panes = new QSplitter(this);
    panes->addWidget(makeFilePane());
    panes->addWidget(makeChoicePane());
    panes->addWidget(makeResultPane());
    panes->setChildrenCollapsible(false);
    constexpr int widths[] = {380, 360, 480}; // px
    panes->setSizes({widths[0], widths[1], widths[2]});
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(panes, 1);
    layout->addWidget(makeButtons());
    resize(preferredSize);
    setAcceptDrops(true);
    m_lines->setAcceptDrops(false); // the assistant takes them
    m_oddities->setAcceptDrops(false);
    connect(&m_reading, &TableReading::progressed, m_progress, &QProgressBar::setValue);
    connect(&m_reading, &TableReading::finished, this, &ImportAssistant::finish);
    setReading(false);
    showTable();
    readLayouts();
}

/// Those that cannot be read are told: whoever saved one expects it to be found.
void ImportAssistant::readLayouts()
{
    const LayoutList saved = layoutsIn(m_layoutFolder);
    QStringList problems;
    for (const TableProblem &problem : saved.problems)
        problems << problem.text();
    for (const NamedLayout &layout : saved.layouts)
        m_session.remember(layout);
    showLayouts();
    m_layoutProblems = problems.join(u'\n');
    say({});
}

void ImportAssistant::showLayouts()
{
    const QString shown = m_layouts->currentText();
    m_layouts->clear();
    for (const NamedLayout &known : m_session.known())
        m_layouts->addItem(known.name);
    m_layouts->setCurrentIndex(-1);
    m_layouts->setEditText(shown);
}

/// What nobody has looked at is told beside what the tables hold.
void ImportAssistant::finish(QList<ImportedTable> tables)
{
    setReading(false);
    accept();
    for (ImportedTable &table : tables) {
        const auto asked = std::ranges::find(m_session.tables(), table.path, &TableToImport::path);
        QStringList doubts;
        for (const QString &doubt : m_session.doubts(asked - m_session.tables().begin()))
            doubts << u"%1: %2"_s.arg(QFileInfo(table.path).fileName(), doubt);
        table.doubts = doubts + table.doubts;
    }
    for (const TableProblem &problem : m_session.leftOut()) {
        ImportedTable table;
        table.path = problem.file;
        table.notRead << RecordingPath(problem.file).baseName;
        table.messages << corruptRecording(problem.file, problem.text());
        tables << table;
    }
    Q_EMIT imported(tables);
}

ImportAssistant::~ImportAssistant() = default;

QWidget *ImportAssistant::makeFilePane()
{
    auto *pane = new QWidget(this);
    QVBoxLayout *layout = paneLayout(pane);
    m_files = new QListWidget(this);
    m_files->setObjectName(u"files"_s);
    m_files->setTextElideMode(Qt::ElideMiddle);
    constexpr int filesHeight = 110; // px
    m_files->setMaximumHeight(filesHeight);
    m_add = new QPushButton(u"Add files..."_s, this);
    m_add->setObjectName(u"add"_s);
    m_add->setAutoDefault(false);
    m_lines = makeText("lines", this);
    m_lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_lines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(new QLabel(u"Files:"_s));
    layout->addWidget(m_files);
    layout->addWidget(m_add, 0, Qt::AlignLeft);
    layout->addWidget(new QLabel(u"Lines as they are:"_s));
    layout->addWidget(m_lines, 1);
    connect(m_files, &QListWidget::currentRowChanged, this, &ImportAssistant::showTable);
    connect(m_add, &QPushButton::clicked, this, &ImportAssistant::chooseFiles);
    return pane;
}

QWidget *ImportAssistant::makeChoicePane()
{
    auto *pane = new QWidget(this);
    QVBoxLayout *layout = paneLayout(pane);
    m_layouts = new QComboBox(this);
    m_layouts->setObjectName(u"layouts"_s);
    m_layouts->setEditable(true);
    m_layouts->setInsertPolicy(QComboBox::NoInsert);
    m_layouts->setToolTip(u"Choose a layout, or give a name under which this one is saved"_s);
    m_save = new QPushButton(u"Save layout"_s, this);
    m_save->setObjectName(u"save"_s);
    m_save->setAutoDefault(false);
    m_save->setToolTip(u"Files with the same names of columns will be read so from now on"_s);
    auto *line = new QHBoxLayout; // owned by the layout around it
    line->addWidget(m_layouts, 1);
    line->addWidget(m_save);
    m_form = new LayoutForm(this);
    auto *area = new QScrollArea(this);
    area->setWidget(m_form);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout->addWidget(new QLabel(u"How they are read, and how sure that is:"_s));
    layout->addLayout(line);
    layout->addWidget(area, 1);
    connect(m_form, &LayoutForm::changed, this, &ImportAssistant::change);
    connect(m_layouts, &QComboBox::activated, this, &ImportAssistant::chooseLayout);
    connect(m_save, &QPushButton::clicked, this, &ImportAssistant::saveLayout);
    return pane;
}

QWidget *ImportAssistant::makeResultPane()
{
    auto *pane = new QWidget(this);
    QVBoxLayout *layout = paneLayout(pane);
    m_recordings = new QLabel(this);
    m_recordings->setObjectName(u"recordings"_s);
    m_recordings->setWordWrap(true);
    m_recordings->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_samples = new SamplesView(this);
    m_slowness = new QLabel(this);
    m_slowness->setObjectName(u"slowness"_s);
    m_slowness->setWordWrap(true);
    m_time = new TimeView(this);
    m_oddities = makeText("oddities", this);
    constexpr int odditiesHeight = 150; // px
    m_oddities->setMaximumHeight(odditiesHeight);
    layout->addWidget(new QLabel(u"What comes of it:"_s));
    layout->addWidget(m_recordings);
    layout->addWidget(m_samples, 3);
    layout->addWidget(m_slowness);
    layout->addWidget(m_time, 1);
    layout->addWidget(new QLabel(u"What is odd:"_s));
    layout->addWidget(m_oddities);
    return pane;
}

QWidget *ImportAssistant::makeButtons()
{
    auto *pane = new QWidget(this);
    auto *layout = new QHBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    m_note = new QLabel(this);
    m_note->setObjectName(u"note"_s);
    m_note->setWordWrap(true);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(u"progress"_s);
    m_import = new QPushButton(u"Import"_s, this);
    m_import->setObjectName(u"import"_s);
    m_import->setAutoDefault(false); // Return ends a text, and imports nothing
    auto *cancel = new QPushButton(u"Cancel"_s, this);
    cancel->setObjectName(u"cancel"_s);
    cancel->setAutoDefault(false);
    layout->addWidget(m_note, 1);
    layout->addWidget(m_progress);
    layout->addWidget(m_import);
    layout->addWidget(cancel);
    connect(m_import, &QPushButton::clicked, this, &ImportAssistant::import);
    connect(cancel, &QPushButton::clicked, this, [this] {
        if (m_reading.isRunning()) {
            m_reading.stop();
            setReading(false);
            say(u"The import was stopped; nothing was imported."_s);
        } else {
            reject();
        }
    });
    return pane;
}

void ImportAssistant::done(int result)
{
    m_reading.stop();
    QDialog::done(result);
}

void ImportAssistant::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls() && !m_reading.isRunning())
        event->acceptProposedAction();
}

void ImportAssistant::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    add(droppedFiles(*event->mimeData()));
}

void ImportAssistant::add(const QStringList &paths)
{
    const qsizetype before = m_session.tables().size();
    m_session.add(paths);
    for (qsizetype i = before; i < m_session.tables().size(); ++i)
        m_files->addItem(QString());
    showStates();
    if (before < m_session.tables().size())
        m_files->setCurrentRow(static_cast<int>(before));
    else if (!paths.isEmpty())
        say(u"There is no new table in %1."_s.arg(paths.join(u", "_s)));
}

void ImportAssistant::chooseFiles()
{
    add(m_choose());
}

qsizetype ImportAssistant::current() const
{
    return m_files->currentRow();
}

void ImportAssistant::showStates()
{
    for (int row = 0; row < m_files->count(); ++row) {
        const TableToImport &table = m_session.tables()[row];
        m_files->item(row)->setText(u"%1 (%2)"_s.arg(QFileInfo(table.path).fileName(), m_session.state(row)));
        m_files->item(row)->setToolTip(table.path);
    }
    m_import->setEnabled(!m_session.requests().isEmpty() && !m_reading.isRunning());
}

void ImportAssistant::showTable()
{
    say({});
    m_lines->clear();
    m_layouts->setCurrentIndex(-1);
    m_layouts->clearEditText();
    const bool isReadable = current() >= 0 && !m_session.tables()[current()].unreadable;
    m_save->setEnabled(isReadable);
    if (isReadable) {
        const TableToImport &table = m_session.tables()[current()];
        QStringList lines;
        for (const QString &line : table.extract.head.first(std::min(shownLines, table.extract.head.size())))
            lines << line.first(std::min(longestShownLine, line.size()));
        m_lines->setPlainText(lines.join(u'\n'));
        m_layouts->setEditText(table.guess.layoutName);
        m_form->show(m_session, current());
    } else {
        m_form->clear();
    }
    showPreview();
}

void ImportAssistant::showPreview()
{
    m_samples->clear();
    m_time->clear();
    m_oddities->clear();
    m_recordings->clear();
    m_slowness->hide();
    if (current() < 0) {
        m_recordings->setText(u"Add files, or drop them here."_s);
        return;
    }
    const TablePreview preview = m_session.preview(current());
    m_slowness->setText(preview.note);
    m_slowness->setVisible(!preview.note.isEmpty());
    if (!preview.problem.isEmpty()) {
        m_recordings->setText(preview.problem);
        return;
    }
    QStringList recordings = preview.recordings.first(std::min(shownRecordings, preview.recordings.size()));
    if (preview.recordings.size() > shownRecordings)
        recordings << u"and %1 more"_s.arg(preview.recordings.size() - shownRecordings);
    m_recordings->setText(recordings.join(u'\n'));
    m_oddities->setPlainText((m_session.doubts(current()) + preview.oddities).join(u'\n'));
    if (preview.content.recordings.isEmpty())
        return;
    m_samples->show(preview.content.recordings.constFirst(), preview.stimulus);
    m_time->show(preview.content.recordings.constFirst());
}

void ImportAssistant::change(const LayoutField &field, const QString &text)
{
    if (current() < 0)
        return;
    const bool isTaken = m_session.change(current(), field, text);
    m_form->show(m_session, current());
    showStates();
    showPreview();
    say(isTaken ? QString() : u"\"%1\" is nothing for %2: %3"_s.arg(text, field.label, field.help));
}

void ImportAssistant::chooseLayout(int index)
{
    if (current() < 0 || index < 0)
        return;
    m_session.setLayout(current(), m_session.known()[index].layout);
    m_form->show(m_session, current());
    showStates();
    showPreview();
}

/// By the names of its columns the layout will be found again.
void ImportAssistant::saveLayout()
{
    const QString name = m_layouts->currentText().trimmed();
    if (current() < 0 || name.isEmpty() || name.contains(u'/')) {
        say(u"Give the layout a name, beside the button, without \"/\"."_s);
        m_layouts->setFocus();
        return;
    }
    const TableToImport &table = m_session.tables()[current()];
    TableLayout layout = table.layout;
    layout.match = layout.header == TableHeader::None ? QStringList() : table.guess.header;
    if (layout.description.isEmpty())
        layout.description = u"Saved with the import assistant for %1"_s.arg(QFileInfo(table.path).fileName());
    const auto read = layoutFromJson(layoutJson(layout), name);
    if (const auto *problem = std::get_if<TableProblem>(&read)) { // it could not be found again
        say(problem->text());
        return;
    }
    if (const auto noFolder = makeFolder(m_layoutFolder)) {
        say(writeFailure(m_layoutFolder + u'/' + name + u".layout.json"_s, *noFolder));
        return;
    }
    const std::optional<QString> place = placeInside(m_layoutFolder, name + u".layout.json"_s);
    const auto problem = place ? writeLayoutFile(*place, layout)
                               : TableProblem{name, 0, 0, u"a name that leads elsewhere"_s, u"a plain name"_s, {}};
    if (!problem) {
        m_session.remember({name, *place, layout});
        showLayouts();
    }
    say(problem ? problem->text() : u"Saved as %1."_s.arg(QDir::cleanPath(*place)));
}

void ImportAssistant::say(const QString &text)
{
    m_note->setText(text.isEmpty() ? m_layoutProblems : text);
}

void ImportAssistant::import()
{
    setReading(true);
    m_reading.start(m_session.requests());
}

void ImportAssistant::setReading(bool isReading)
{
    m_progress->setVisible(isReading);
    m_progress->setValue(0);
    m_form->setEnabled(!isReading && current() >= 0);
    m_files->setEnabled(!isReading);
    m_add->setEnabled(!isReading);
    m_save->setEnabled(!isReading);
    m_layouts->setEnabled(!isReading);
    m_import->setEnabled(!isReading && !m_session.requests().isEmpty());
}
