// SPDX-License-Identifier: GPL-3.0-or-later
#include "recipe/RecipeBuilder.h"

namespace recipe {

Context contextOf(const DataModel &model, std::optional<QSize> cutPicturePx, const QMap<QString, QString> &settings)
{
    Context context{.settings = settings,
                    .leftOut = {},
                    .groups = {},
                    .comparedBy = model.comparedBy,
                    .areas = {},
                    .cutPicturePx = model.samplesAreCut ? cutPicturePx : std::nullopt,
                    .frame = {}};
    for (const Examination &examination : model.examinations()) {
        if (!examination.checked)
            context.leftOut << examination.baseName;
        if (examination.groupName != Group::none)
            context.groups.insert(examination.baseName, examination.groupName);
    }
    for (const AreaOfInterest &area : model.aoiList())
        context.areas << Areas::Area{area.name, area.polygon, area.enabled};
    if (model.timeFrame() != TimeFrame{0, model.longestCheckedDuration()})
        context.frame = model.timeFrame();
    return context;
}

RecipeBuilder::RecipeBuilder(const QString &release, const QMap<QString, QString> &delivered)
{
    m_recipe.release = release;
    m_last.settings = delivered;
    m_last.comparedBy = DataModel().comparedBy;
}

/// Before the first step they are where the replay begins; later each is a step.
void RecipeBuilder::addSettings(const QMap<QString, QString> &settings)
{
    for (auto entry = settings.cbegin(); entry != settings.cend(); ++entry) {
        if (m_last.settings.value(entry.key()) == entry.value())
            continue;
        if (m_isFirst)
            m_recipe.settings.insert(entry.key(), entry.value());
        else
            m_recipe.steps << Set{entry.key(), entry.value()};
    }
}

void RecipeBuilder::addChanges(const Context &context)
{
    if (context.cutPicturePx != m_last.cutPicturePx)
        m_recipe.steps << CutEdges{context.cutPicturePx};
    if (context.leftOut != m_last.leftOut || !m_choicesAreKnown)
        m_recipe.steps << LeaveOut{context.leftOut};
    if (context.groups != m_last.groups)
        m_recipe.steps << Groups{context.groups};
    if (context.comparedBy != m_last.comparedBy)
        m_recipe.steps << CompareBy{context.comparedBy};
    if (context.areas != m_last.areas)
        m_recipe.steps << Areas{context.areas};
    if (context.frame != m_last.frame)
        m_recipe.steps << Time{context.frame};
    m_choicesAreKnown = true;
}

void RecipeBuilder::add(const Context &context, const Step &step)
{
    addSettings(context.settings);
    m_last.settings = context.settings;
    m_isFirst = false;
    if (std::holds_alternative<Import>(step) || std::holds_alternative<Filter>(step)) {
        m_recipe.steps << step; // the choices are made among what it brings or leaves
        m_choicesAreKnown = m_choicesAreKnown && std::holds_alternative<Import>(step);
        return;
    }
    addChanges(context);
    m_last = context;
    m_recipe.steps << step;
}

} // namespace recipe
