// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/AoiControl.h"
#include "ui_AoiControl.h"

#include "aoi/AoiFiles.h"
#include "aoi/AoiJson.h"
#include "aoi/generation/ClusterAois.h"
#include "aoi/panel/AOI_PopUp.h"
#include "aoi/panel/AoiCommands.h"
#include "base/Messages.h"
#include "commands/CommandStack.h"
#include "commands/IMainWindow.h"
#include "commands/panel/SaveDialog.h"
#include "model/DataModel.h"
#include "settings/StoredKeys.h"

#include <QClipboard>
#include <QDebug>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QShortcut>

namespace {

void tellMissingModel(const QString &remedy)
{
    messages::warning(QStringLiteral("Internal error: AOI operation without model!"),
                      QStringLiteral("You are trying to work with AOIs without any model ") + remedy);
}

void tellMissingExamination()
{
    messages::warning(QStringLiteral("AOI operation without examination!"),
                      QStringLiteral("You are trying to work with AOIs without any examination loaded. Please load an "
                                     "examination first, then add AOIs."));
}

void tellMissingSelection()
{
    messages::information(QStringLiteral("AOI operation without AOI selected!"),
                          QStringLiteral("You are trying to perform an action on an AOI without having one selected. "
                                         "Please first select an AOI, then try again."));
}

/// The path up to its last "/", which is where the next dialog begins.
void keepFolder(const StoredKey<QString> &key, const QString &path)
{
    writeStored(key, path.left(path.lastIndexOf(u'/')));
}

} // namespace

AoiControl::AoiControl(QWidget *parent) : QWidget(parent), m_ui(std::make_unique<Ui::AoiControl>())
{
    m_ui->setupUi(this);
    m_chooseSaveFile = [this](const QString &folder) {
        return chooseSaveFile(this, QStringLiteral("Save AOI to File"), folder, QStringLiteral("*.aoi;;*.csv;;*.json"));
    };
    m_chooseLoadFile = [this](const QString &folder) {
        return QFileDialog::getOpenFileName(this, QStringLiteral("Load AOI from File"), folder,
                                            QStringLiteral("*.aoi;;*.csv;;*.json;;*.png"));
    };
    connectForm();
}

AoiControl::~AoiControl()
{
    for (AOI_PopUp *dialog : std::as_const(m_dialogs))
        const std::unique_ptr<AOI_PopUp> gone(dialog);
}

void AoiControl::connectForm()
{
    using List = QListWidget;
    connect(m_ui->addAOI_Button, &QPushButton::clicked, this, &AoiControl::sltAddAOI);
    connect(m_ui->editAOI_Button, &QPushButton::clicked, this, qOverload<>(&AoiControl::sltEditAOI));
    connect(m_ui->removeAOI_Button, &QPushButton::clicked, this, qOverload<>(&AoiControl::sltDeleteAOI));
    connect(m_ui->saveAOIButton, &QPushButton::clicked, this, &AoiControl::sltSaveAOI);
    connect(m_ui->loadAOIButton, &QPushButton::clicked, this, &AoiControl::sltLoadAOI);
    connect(m_ui->addAOI_grid, &QPushButton::clicked, this, &AoiControl::sltAddAOI_grid);
    connect(m_ui->addAOI_heatmap, &QPushButton::clicked, this, &AoiControl::sltAddAOI_heatmap);
    connect(m_ui->addAOI_clusters, &QPushButton::clicked, this, &AoiControl::sltConvertClustersToAois);
    connect(m_ui->listViewAOI, &List::itemDoubleClicked, this, qOverload<QListWidgetItem *>(&AoiControl::sltEditAOI));
    connect(m_ui->listViewAOI, &List::itemChanged, this, &AoiControl::sltAOIcheckstatechanged);
    const auto onKey = [this](const QKeySequence &keys, auto slot) {
        auto *shortcut = new QShortcut(keys, m_ui->listViewAOI);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, slot);
    };
    onKey(QKeySequence::Copy, &AoiControl::sltCopyAOIs);
    onKey(QKeySequence::Paste, &AoiControl::sltPasteAOIs);
}

AoiPlace AoiControl::place() const
{
    return {*m_model, *m_ui->listViewAOI, *m_window};
}

// ---- insert and edit

void AoiControl::sltAddAOI()
{
    if (!isReady()) {
        tellMissingModel(QStringLiteral("loaded. Please make sure a model gets set in the controller."));
        return;
    }
    openDialog(std::make_unique<AOI_PopUp>(m_model, QString(), QPolygon(), m_window->stimulus()));
}

/// Without a parent: the user may put it beside the main window, and it does not stay in front of it.
void AoiControl::openDialog(std::unique_ptr<AOI_PopUp> dialog)
{
    connect(dialog.get(), &AOI_PopUp::sigAddAOI, this, &AoiControl::sltInsertAOI);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAttribute(Qt::WA_QuitOnClose, false); // the program ends with its main window
    dialog->show();
    m_dialogs.removeAll(nullptr);
    m_dialogs << dialog.release();
}

void AoiControl::sltInsertAOI(const AreaOfInterest &aoi, const QString &)
{
    if (!isReady())
        return;
    const RedrawHold once(*m_window); // the command draws, and so do those who hear the signal
    CommandStack::instance().push(new CommandAOIInsert(place(), aoi));
    Q_EMIT sigGraphicsParametersChanged();
}

void AoiControl::insertAll(const QList<AreaOfInterest> &aois)
{
    if (!isReady() || aois.isEmpty())
        return;
    const RedrawHold hold(*m_window);
    for (const AreaOfInterest &aoi : aois)
        sltInsertAOI(aoi);
}

void AoiControl::sltConvertClustersToAois()
{
    if (!isReady()) {
        tellMissingExamination();
        return;
    }
    const QList<CumulativeCluster> &clusters = std::as_const(*m_model).pooled(Eye::Dominant).fixationClusters;
    if (clusters.isEmpty()) {
        messages::information(QStringLiteral("No clusters found. Did you compute them?"),
                              QStringLiteral("While trying to convert cumulative clusters to AOIs no clusters were "
                                             "found. No changes were made."));
        return;
    }
    insertAll(aoisOf(clusterAois(clusters)));
}

void AoiControl::sltEditAOI()
{
    if (!isReady())
        tellMissingExamination();
    else if (m_ui->listViewAOI->currentRow() == -1)
        tellMissingSelection();
    else
        sltEditAOI(m_ui->listViewAOI->currentItem());
}

void AoiControl::sltEditAOI(QListWidgetItem *item)
{
    if (!isReady()) {
        tellMissingExamination();
        return;
    }
    const AreaOfInterest aoi = m_model->aoi(item->text());
    if (aoi.name.isNull()) {
        messages::warning(QStringLiteral("AOI not found!"),
                          QStringLiteral("The AOI you requested was not found in the examination profile."));
        return;
    }
    openDialog(std::make_unique<AOI_PopUp>(m_model, aoi.name, aoi.polygon, aoi, m_window->stimulus()));
}

// ---- delete and check

void AoiControl::sltDeleteAOI()
{
    if (!isReady()) {
        tellMissingExamination();
        return;
    }
    const QListWidget &list = *m_ui->listViewAOI;
    if (list.selectedItems().isEmpty()) {
        tellMissingSelection();
        return;
    }
    const RedrawHold hold(*m_window);
    for (qsizetype left = list.selectedItems().size(); left > 0;) {
        CommandStack::instance().push(new CommandAOIDelete(place(), *list.selectedItems().constFirst()));
        const qsizetype now = list.selectedItems().size();
        if (now >= left) // an entry out of step with the model stays
            break;
        left = now;
    }
    Q_EMIT sigGraphicsParametersChanged();
}

void AoiControl::sltDeleteAOI(QListWidgetItem *item)
{
    if (!isReady()) {
        tellMissingExamination();
        return;
    }
    const RedrawHold once(*m_window);
    CommandStack::instance().push(new CommandAOIDelete(place(), *item));
    Q_EMIT sigGraphicsParametersChanged();
}

void AoiControl::sltAOIcheckstatechanged(QListWidgetItem *item)
{
    if (!isReady() || !m_model->hasAoi(item->text()))
        return;
    AreaOfInterest aoi = m_model->aoi(item->text());
    aoi.enabled = item->checkState() != Qt::Unchecked;
    m_model->insertAoi(aoi);
    Q_EMIT sigGraphicsParametersChanged();
}

// ---- files

/// The areas of all entries; the user is told of those that the model does not have.
QList<AreaOfInterest> AoiControl::listedAois() const
{
    QList<AreaOfInterest> aois;
    m_ui->listViewAOI->selectAll();
    for (int row = 0; row < m_ui->listViewAOI->count(); ++row) {
        const AreaOfInterest aoi = m_model->aoi(m_ui->listViewAOI->item(row)->text());
        if (aoi.name.isNull())
            messages::warning(QStringLiteral("AOI not found!"),
                              QStringLiteral("The AOI you are trying to export was not found."));
        else
            aois << aoi;
    }
    return aois;
}

void AoiControl::sltSaveAOI()
{
    if (!isReady()) {
        tellMissingExamination();
        return;
    }
    const QList<AreaOfInterest> aois = listedAois();
    const QString path = m_chooseSaveFile(readStored(keys::saveAoiFolder));
    if (!path.isEmpty())
        keepFolder(keys::saveAoiFolder, path);
    writeAois(aois, path); // without a name it says that it cannot write
}

void AoiControl::sltLoadAOI()
{
    if (!isReady()) {
        tellMissingModel(QStringLiteral("set."));
        return;
    }
    const QString path = m_chooseLoadFile(readStored(keys::loadAoiFolder));
    if (path.isEmpty())
        return;
    keepFolder(keys::loadAoiFolder, path);
    const QList<AreaOfInterest> aois = readAois(path).aois;
    if (aois.isEmpty()) {
        messages::information(QStringLiteral("No AOI imported!"),
                              QStringLiteral("The AOI file you tried to load did not contain any AOI information."));
        return;
    }
    for (const AreaOfInterest &aoi : aois)
        qDebug().noquote() << "Add AOI:" << aoi.name;
    insertAll(aois);
}

// ---- clipboard

void AoiControl::sltCopyAOIs()
{
    QList<AreaOfInterest> aois;
    for (const QListWidgetItem *item : m_ui->listViewAOI->selectedItems()) {
        if (m_model && m_model->hasAoi(item->text()))
            aois << m_model->aoi(item->text());
    }
    if (!aois.isEmpty())
        QGuiApplication::clipboard()->setText(QString::fromUtf8(aoiJson(aois)));
}

void AoiControl::sltPasteAOIs()
{
    if (!isReady())
        return;
    const RedrawHold hold(*m_window);
    for (const AreaOfInterest &aoi : parseAoiJson(QGuiApplication::clipboard()->text().toUtf8()).aois)
        sltInsertAOI(withFreeName(aoi));
}

AreaOfInterest AoiControl::withFreeName(AreaOfInterest aoi) const
{
    constexpr QPoint beside(20, 20); // px
    const QString name = aoi.name;
    for (int copy = 2; !m_ui->listViewAOI->findItems(aoi.name, Qt::MatchFixedString).isEmpty(); ++copy) {
        aoi.name = QStringLiteral("%1 (%2)").arg(name).arg(copy);
        aoi.polygon.translate(beside);
    }
    return aoi;
}
