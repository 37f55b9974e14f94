// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "import/conversion/ImportSession.h"
#include "import/panel/TableReading.h"

#include <QDialog>

#include <functional>

class LayoutForm;
class QComboBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class SamplesView;
class TimeView;

/// Shows tables of other programs before they are imported: their lines, how they would be read and how sure that is,
/// and what comes of it. Each choice can be changed. What was read is handed on; the assistant changes no data.
class ImportAssistant : public QDialog {
    Q_OBJECT
public:
    using Chooser = std::function<QStringList()>;

    /// @param layoutFolder  of the user's own layouts; made when one is saved.
    explicit ImportAssistant(const QString &layoutFolder, QWidget *parent = nullptr);
    ~ImportAssistant() override;

    /// Replaces the file dialog.
    void setChooser(Chooser choose) { m_choose = std::move(choose); }
    /// Replaces the second after which a look at a table ends.
    void setLongestLook(qint64 ms) { m_session.setLongestLook(ms); }

    void add(const QStringList &paths);
    /// Asks for files and adds them.
    void chooseFiles();

    const ImportSession &session() const { return m_session; }

Q_SIGNALS:
    void imported(const QList<ImportedTable> &tables);

protected:
    void done(int result) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeFilePane();
    QWidget *makeChoicePane();
    QWidget *makeResultPane();
    QWidget *makeButtons();
    qsizetype current() const;
    void showTable();
    void showPreview();
    void showStates();
    void change(const LayoutField &field, const QString &text);
    void chooseLayout(int index);
    void saveLayout();
    void readLayouts();
    void showLayouts();
    void say(const QString &text);
    void import();
    void finish(QList<ImportedTable> tables);
    void setReading(bool isReading);

    const QString m_layoutFolder;
    QString m_layoutProblems; ///< of saved layouts that cannot be read; shown where there is nothing else to say
    ImportSession m_session;
    Chooser m_choose;
    TableReading m_reading;
    QListWidget *m_files = nullptr;
    QPlainTextEdit *m_lines = nullptr;
    LayoutForm *m_form = nullptr;
    QComboBox *m_layouts = nullptr;
    QPushButton *m_save = nullptr;
    QLabel *m_recordings = nullptr;
    SamplesView *m_samples = nullptr;
    QLabel *m_slowness = nullptr; ///< why there are fewer samples than usual
    TimeView *m_time = nullptr;
    QPlainTextEdit *m_oddities = nullptr;
    QLabel *m_note = nullptr;
    QProgressBar *m_progress = nullptr;
    QPushButton *m_import = nullptr;
    QPushButton *m_add = nullptr;
};
