// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/ilmenau/CorrectionExport.h"
#include "import/ilmenau/MillimetreImport.h"
#include "import/panel/CorrectionQuestions.h"
#include "import/scene/CorrectionItems.h"

#include <QWidget>

#include <memory>

class IMainWindow;
class QGraphicSceneOverlay;
class QPushButton;
struct OutsideCall;

namespace Ui {
class CorrectionControl;
}

/// The page of gaze correction: pairs of ellipses, their points, the programs that compute corrected recordings, and
/// how far two recordings lie apart. Nothing of it can be undone.
class CorrectionControl : public QWidget {
    Q_OBJECT
public:
    explicit CorrectionControl(QWidget *parent = nullptr);
    ~CorrectionControl() override;

    /// All three must outlive the widget; without them nothing is calculated, drawn or told.
    void setModel(const DataModel *model) { m_model = model; }
    void setMainWindow(IMainWindow *window) { m_window = window; }
    void setScene(QGraphicSceneOverlay *scene) { m_scene = scene; }

    /// Replaces the dialogs.
    void setQuestions(std::unique_ptr<ICorrectionQuestions> questions) { m_questions = std::move(questions); }
    /// Replaces the folder "correctionmodule" below that of the program.
    void setProgramFolder(const QString &folder) { m_programFolder = folder; }

    /// Whether the ellipses are drawn.
    bool isUsed() const;
    /// What is drawn of them.
    CorrectionOverlay overlay();

    const QList<EllipsePair> &pairs() const { return m_pairs; }

Q_SIGNALS:
    /// The picture is to be drawn anew.
    void sigGraphicsParametersChanged();
    /// A corrected recording is to be loaded.
    void sigImport(const QString &path, int widthPx, int heightPx, int widthMm, int heightMm, const QString &imagePath,
                   const QString &iniPath);

public Q_SLOTS:
    void sltAddEllipsis();
    void sltRemoveEllipsis();
    void sltSetEllipsis();
    void sltAddEllipsesINI(const QList<QString> &lines);
    void sltCalcCorrQual();
    void sltSetColorGP();
    void sltSetColorEL();
    void sltSetColorELCORR();
    void sltAVG2Cor();
    void sltExportPoints();

private:
    /// A recording that is to be corrected.
    struct Export {
        const Examination *examination;
        QString source; ///< path of the recording
        QString corrected;
        QString table;
    };

    QList<int> selectedRows() const;
    QList<NamedPair> selectedPairs() const;
    void addRow(const QString &text, const EllipsePair &pair);
    void moveCorrectedOf(qsizetype row, QPointF center);
    void chooseColor(QColor &color, QPushButton &button);
    std::optional<Export> askForExport(const QString &source, const QString &folder);
    bool writeFiles(const Export &exported, const QList<NamedPair> &ellipses);
    bool run(const QString &program, const QStringList &arguments);
    void import(const MillimetreRecording &recording);
    void importCorrected(const QList<Export> &exports);
    void tell(const QString &text);

    std::unique_ptr<Ui::CorrectionControl> m_ui;
    const DataModel *m_model = nullptr;
    IMainWindow *m_window = nullptr;
    QGraphicSceneOverlay *m_scene = nullptr;
    std::unique_ptr<ICorrectionQuestions> m_questions;
    QString m_programFolder;
    QList<EllipsePair> m_pairs; ///< one for each row of the list
    int m_number = 0;           ///< of the last ellipse; only grows
    QColor m_pointColor{255, 0, 0};
    QColor m_originalColor{0, 255, 0};
    QColor m_correctedColor{0, 0, 255};
};
