#pragma once

#include "batch/BatchOptions.h"
#include "batch/BatchReport.h"
#include "batch/MessageRecord.h"
#include "clustering/ClusterParameters.h"
#include "clustering/SaccadeClusterModel.h"
#include "export/DataExport.h"
#include "model/DataModel.h"

class Terminal;
struct ImportedFile;

/// One run of the batch tool: the same functions that the window's commands run, in the order import, areas of
/// interest, calculations, exports, images, report.
///
/// The settings store of the process must be a private one by then, with the factory values in it.
class BatchRun {
public:
    /// @param record    has the messages of the run, for its report; must outlive the run.
    /// @param output    gets the paths of the files written, one a line.
    BatchRun(const BatchOptions &options, MessageRecord &record, Terminal &output);

    ExitCode run();

private:
    std::optional<UsageError> applySettings();
    std::optional<UsageError> checkInputs() const;
    std::optional<UsageError> makeOutputFolder() const;
    void importRecordings();
    void takeRecording(const QString &path, const ImportedFile &file);
    void loadAois();
    void setTimeFrame();
    void calculate();
    void detectFixations();
    void clusterSaccades();
    ClusterParameters clusterParametersOfRun(std::optional<int> overlapOutliers) const;
    void exportTables();
    ExportResult exported(BatchOptions::Table table, const ExportTarget &target);
    void exportImages();
    void exportDensity();
    void writeReport();
    void write(const QString &title, const QString &path, const QByteArray &bytes);
    BatchReport collectReport() const;
    void addInput(const QString &path, const QString &kind);
    void keep(const QString &path);
    void fail(const QString &title, const QString &text);

    const BatchOptions m_options; ///< const: threads read it, and a non-const access would copy shared lists
    MessageRecord &m_record;
    Terminal &m_output;
    DataModel m_model;
    SaccadeClusterModel m_saccadeClusters;
    QList<ReportedInput> m_inputs;
    QList<ShownMessage> m_messages;   ///< those that are about no input
    QMap<QString, QString> m_density; ///< what the exported density is, for the report
    QStringList m_written;
    bool m_failed = false;
};
