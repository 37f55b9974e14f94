// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/TableImport.h"
#include "import/ilmenau/MillimetreImport.h"
#include "import/panel/DataCommands.h"
#include "import/panel/MillimetreQuestions.h"

#include <QWidget>

#include <memory>

namespace Ui {
class DataWidget;
}

/// The panel of the files: the list of recordings to be imported, and the buttons that fill it, thin it out and import
/// it. Model and window are set after construction, before the first click.
class DataWidget : public QWidget {
    Q_OBJECT
public:
    explicit DataWidget(QWidget *parent = nullptr);
    ~DataWidget() override;

    void setModel(DataModel *model) { m_model = model; }
    void setMainWindow(IMainWindow *window) { m_window = window; }
    void setLog(const Log *log) { m_log = log; }

    /// Replaces the file dialog.
    void setRecordingChooser(RecordingChooser choose) { m_choose = std::move(choose); }

    /// Replaces the dialogs of the import in millimetres.
    void setMillimetreQuestions(std::unique_ptr<IMillimetreQuestions> questions) { m_questions = std::move(questions); }

    /// Adds recordings, and those in folders, to the list and imports the list, as the two buttons do. What else is
    /// there, such as tables, goes to the assistant; set files and pictures that come with recordings go nowhere.
    /// @return the folders that have none of both.
    QStringList importFiles(const QStringList &paths);

    /// Opens the assistant for tables and logs of other programs, with these files.
    void importOther(const QStringList &paths);

Q_SIGNALS:
    /// Recordings were imported.
    void sigLoadTimeline();
    void sigAddExamination(const QString &path);
    void sigAddEllipses(const QList<QString> &lines);

public Q_SLOTS:
    void sltAdd();
    void sltRemove();
    void sltImport();

    /// Recordings in millimetres; it cannot be undone.
    void sltImportIlmenau();
    /// A measured recording and its corrected form, and the ellipses of the correction.
    void sltImportIlmenauINI();
    void sltImportIlmenau_internal(QString filepath, int width, int hight, int width_mm, int hight_mm, QString img_path,
                                   QString ini_path); // sic

private:
    bool askForStimulus();
    bool askForImage();
    bool askForCalibration();
    void takeTables(const QList<ImportedTable> &tables);
    void import(QUndoCommand *command);
    void importMillimetres(const QList<MillimetreRecording> &recordings);
    QStringList selectedFiles() const;

    std::unique_ptr<Ui::DataWidget> m_ui;
    DataModel *m_model = nullptr;
    IMainWindow *m_window = nullptr;
    const Log *m_log = nullptr;
    RecordingChooser m_choose;
    std::unique_ptr<IMillimetreQuestions> m_questions;
};
