// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/panel/AoiCommands.h"

#include "aoi/AoiThumbnail.h"

#include "commands/IMainWindow.h"
#include "model/DataModel.h"

#include <QDebug>
#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>

#include <algorithm>
#include <memory>

namespace {

/// The entry that stands for the name, whatever its case; null if there is none.
QListWidgetItem *sharedItem(const QListWidget &list, const QString &name)
{
    return list.findItems(name, Qt::MatchFixedString).value(0);
}

/// The entry of exactly this name; null unless there is exactly one.
QListWidgetItem *uniqueItem(const QListWidget &list, const QString &name)
{
    const QList<QListWidgetItem *> items = list.findItems(name, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    return items.size() == 1 ? items.first() : nullptr;
}

QListWidgetItem *addItem(QListWidget &list, const AreaOfInterest &aoi)
{
    auto item = std::make_unique<QListWidgetItem>(aoi.name);
    list.addItem(item.get());
    return item.release();
}

void dress(QListWidgetItem &item, const AreaOfInterest &aoi)
{
    item.setIcon(QIcon(QPixmap::fromImage(aoi.thumbnail)));
    item.setCheckState(aoi.enabled ? Qt::Checked : Qt::Unchecked);
    item.setBackground(aoi.color);
}

void removeItem(const QListWidgetItem *item)
{
    const std::unique_ptr<const QListWidgetItem> gone(item);
}

} // namespace

CommandAOIInsert::CommandAOIInsert(const AoiPlace &place, const AreaOfInterest &aoi)
    : QUndoCommand(QStringLiteral("AOI inserted: ") + aoi.name)
    , m_place(place)
    , m_aoi(aoi)
{
}

void CommandAOIInsert::redo()
{
    m_aoi.thumbnail = aoiThumbnail(m_aoi.polygon, m_place.window.stimulus().toImage());
    m_place.model.insertAoi(m_aoi);
    const QSignalBlocker blocker(&m_place.list);
    QListWidgetItem *item = sharedItem(m_place.list, m_aoi.name);
    dress(item ? *item : *addItem(m_place.list, m_aoi), m_aoi);
}

void CommandAOIInsert::undo()
{
    if (const QListWidgetItem *item = uniqueItem(m_place.list, m_aoi.name))
        removeItem(item);
    else
        qWarning().noquote() << "Tried to undo AOI insert for AOI" << m_aoi.name << "but found no unique match.";
    m_place.model.removeAoi(m_aoi.name);
}

CommandAOIDelete::CommandAOIDelete(const AoiPlace &place, const QListWidgetItem &item)
    : QUndoCommand(QStringLiteral("AOI removed: ") + item.text())
    , m_place(place)
    , m_aoi(place.model.aoi(item.text()))
{
    if (m_aoi.name.isNull())
        qWarning("Aoi to delete was not found");
}

void CommandAOIDelete::redo()
{
    const QListWidgetItem *item = uniqueItem(m_place.list, m_aoi.name);
    if (!item) {
        qWarning("Could not find a unique AOI in the aoilist to delete.");
        return;
    }
    m_place.model.removeAoi(m_aoi.name);
    removeItem(item);
}

void CommandAOIDelete::undo()
{
    if (m_aoi.name.isNull())
        return;
    m_place.model.insertAoi(m_aoi);
    const QSignalBlocker blocker(&m_place.list);
    if (!sharedItem(m_place.list, m_aoi.name))
        dress(*addItem(m_place.list, m_aoi), m_aoi); // an entry without its box could not be disabled any more
}
