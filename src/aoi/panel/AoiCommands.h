// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "commands/ChangesPicture.h"
#include "model/AreaOfInterest.h"

#include <QUndoCommand>

class DataModel;
class IMainWindow;
class QListWidget;
class QListWidgetItem;

/// What the AOI commands work on. All of it is to outlive them.
struct AoiPlace {
    DataModel &model;
    QListWidget &list;         ///< one entry an area
    const IMainWindow &window; ///< shows the picture of the thumbnails
};

/// Puts an area into the model and shows it in the list. An area of the same name is replaced and does not come back
/// by the undo; the entry is found without regard to case, so that two names that differ only there share one.
class CommandAOIInsert : public QUndoCommand, public ChangesPicture {
public:
    CommandAOIInsert(const AoiPlace &place, const AreaOfInterest &aoi);

    void undo() override;
    void redo() override;

private:
    AoiPlace m_place;
    AreaOfInterest m_aoi;
};

/// Removes the area of an entry of the list.
class CommandAOIDelete : public QUndoCommand, public ChangesPicture {
public:
    CommandAOIDelete(const AoiPlace &place, const QListWidgetItem &item);

    void undo() override;
    void redo() override;

private:
    AoiPlace m_place;
    AreaOfInterest m_aoi; ///< with a null name if the model did not have it
};
