// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/panel/SetFileDialog.h"

#include "import/SetFile.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr int freeFields = 8;

} // namespace

SetFileDialog::SetFileDialog(const QString &dataFile, const QString &picture, QWidget *parent)
    : QDialog(parent)
    , m_dataFile(QFileInfo(dataFile).absoluteFilePath())
    , m_subject(new QLineEdit(this))
    , m_dominantEye(new QComboBox(this))
    , m_group(new QLineEdit(this))
    , m_picture(new QLineEdit(this))
    , m_fields(new QTableWidget(freeFields, 2, this))
    , m_fault(new QLabel(this))
    , m_buttons(new QDialogButtonBox(this))
{
    setWindowTitle(tr("Subject and picture"));
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(tr("A set file beside the recording tells who looked at which picture, so that both are "
                                "there after the import."),
                             this);
    intro->setWordWrap(true);
    layout->addWidget(intro);
    if (QFileInfo::exists(setFile()))
        layout->addWidget(
            new QLabel(tr("%1 is there already and will be replaced.").arg(QFileInfo(setFile()).fileName()), this));
    makeForm(picture);
    makeTable();
    layout->addWidget(m_fields);
    m_fault->setObjectName(QStringLiteral("lblFault"));
    m_fault->setWordWrap(true);
    layout->addWidget(m_fault);
    m_buttons->addButton(tr("Write set file"), QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("btnWrite"));
    m_buttons->addButton(tr("No set file"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("btnNone"));
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
    constexpr QSize roomForPaths(560, 460);
    resize(roomForPaths);
}

void SetFileDialog::makeForm(const QString &picture)
{
    m_subject->setObjectName(QStringLiteral("lineSubject"));
    m_subject->setText(RecordingPath(m_dataFile).baseName);
    m_dominantEye->setObjectName(QStringLiteral("cmbDominantEye"));
    m_dominantEye->addItems({tr("not known"), tr("left"), tr("right")});
    m_group->setObjectName(QStringLiteral("lineGroup"));
    m_group->setText(SetFileEntries().group);
    m_picture->setObjectName(QStringLiteral("linePicture"));
    m_picture->setText(picture);
    auto *browse = new QPushButton(tr("Choose..."), this);
    auto *pictureLine = new QHBoxLayout; // owned by the form
    pictureLine->addWidget(m_picture);
    pictureLine->addWidget(browse);
    auto *form = new QFormLayout; // owned by the dialog's layout
    form->addRow(tr("Subject:"), m_subject);
    form->addRow(tr("Dominant eye:"), m_dominantEye);
    form->addRow(tr("Group:"), m_group);
    form->addRow(tr("Picture:"), pictureLine);
    static_cast<QVBoxLayout *>(layout())->addLayout(form);
    connect(browse, &QPushButton::clicked, this, &SetFileDialog::choosePicture);
    for (const QLineEdit *line : {m_subject, m_group, m_picture})
        connect(line, &QLineEdit::textChanged, this, &SetFileDialog::check);
}

void SetFileDialog::makeTable()
{
    m_fields->setObjectName(QStringLiteral("tblFields"));
    m_fields->setHorizontalHeaderLabels({tr("Further field"), tr("Value")});
    m_fields->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_fields->verticalHeader()->hide();
    connect(m_fields, &QTableWidget::itemChanged, this, &SetFileDialog::check);
}

QString SetFileDialog::setFile() const
{
    return RecordingPath(m_dataFile).setFile();
}

void SetFileDialog::choosePicture()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Picture"), m_picture->text(),
                                                      tr("Pictures (*.png *.jpg *.jpeg *.bmp *.tif *.tiff)"));
    if (!path.isEmpty())
        m_picture->setText(path);
}

SetFileEntries SetFileDialog::entries() const
{
    constexpr const char *eyes[] = {"", "left", "right"};
    SetFileEntries entries;
    entries.subjectId = m_subject->text();
    entries.dominantEye = QString::fromLatin1(eyes[m_dominantEye->currentIndex()]);
    entries.group = m_group->text();
    if (!m_picture->text().isEmpty())
        entries.picturePath = QFileInfo(m_dataFile).dir().relativeFilePath(m_picture->text());
    for (int row = 0; row < m_fields->rowCount(); ++row) {
        const QTableWidgetItem *key = m_fields->item(row, 0);
        const QTableWidgetItem *value = m_fields->item(row, 1);
        const SetFileEntries::Property property{key ? key->text() : QString(), value ? value->text() : QString()};
        if (!property.key.isEmpty() || !property.value.isEmpty())
            entries.properties << property;
    }
    return entries;
}

void SetFileDialog::check()
{
    QString fault = setFileFault(entries());
    if (fault.isEmpty() && !m_picture->text().isEmpty() && !QFileInfo(m_picture->text()).isFile())
        fault = tr("there is no picture %1.").arg(m_picture->text());
    m_fault->setText(fault);
    m_buttons->buttons().constFirst()->setEnabled(fault.isEmpty());
}
