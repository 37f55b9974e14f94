#pragma once

#include "export/ExportTarget.h"

#include <QUndoCommand>

class DataModel;

/// An export as a step of the undo stack. Its redo writes the files, each time anew; its undo leaves them where they
/// are.
class ExportCommand : public QUndoCommand {
public:
    void undo() override {}

protected:
    ExportCommand(QLatin1StringView kind, DataModel &model, const ExportTarget &target);

    DataModel &m_model;
    const ExportTarget m_target;
};

class CommandExportFixations : public ExportCommand {
public:
    CommandExportFixations(DataModel &model, const ExportTarget &target);
    void redo() override;
};

class CommandExportClusters : public ExportCommand {
public:
    CommandExportClusters(DataModel &model, const ExportTarget &target);
    void redo() override;
};

class CommandExportCumulativeClusters : public ExportCommand {
public:
    CommandExportCumulativeClusters(DataModel &model, const ExportTarget &target);
    void redo() override;
};

class CommandExportEvents : public ExportCommand {
public:
    CommandExportEvents(DataModel &model, const ExportTarget &target);
    void redo() override;
};
