// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/RunState.h"
#include "recipe/Recipe.h"

#include <functional>

/// The steps of a recipe, done by the same functions as those of the window.
class RecipeRun {
public:
    /// Imports recordings into the model of the run.
    using Import = std::function<void(const QStringList &recordings)>;

    /// @param options  of the run; the steps leave in them what they do.
    RecipeRun(const recipe::Recipe &recipe, RunState &state, BatchOptions &options, Import import);

    /// What keeps the run from starting: a parameter, a table, a folder that this program does not have. Nothing is
    /// done yet.
    std::optional<QString> complaint() const;

    /// Sets the parameters that the recipe begins with.
    std::optional<UsageError> applySettings() const;

    void run();

private:
    std::optional<QString> complaintOf(const recipe::Step &step) const;
    void take(const recipe::Import &step);
    void take(const recipe::Filter &step);
    void take(const recipe::LeaveOut &step);
    void take(const recipe::Groups &step);
    void take(const recipe::CompareBy &step);
    void take(const recipe::Time &step);
    void take(const recipe::CutEdges &step);
    void take(const recipe::Areas &step);
    void take(const recipe::Set &step);
    void take(const recipe::Fixations &step);
    void take(const recipe::Clusters &step);
    void take(const recipe::Statistics &step);
    void take(const recipe::Export &step);
    void followTime();
    void warnOfMissing(const QStringList &names, QLatin1StringView what) const;

    const recipe::Recipe &m_recipe;
    RunState &m_state;
    BatchOptions &m_options;
    const Import m_import;
    std::optional<TimeFrame> m_frame;
    std::optional<QSize> m_cutPicturePx;
    bool m_isImported = false;
};

/// The recipe of the run's options; nothing where they have none.
std::variant<std::monostate, recipe::Recipe, UsageError> recipeOf(const BatchOptions &options);
