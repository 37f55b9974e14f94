// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/DataModel.h"
#include "recipe/Recipe.h"

namespace recipe {

/// What holds while a step is done, beside the recordings themselves.
struct Context {
    QMap<QString, QString> settings; ///< every parameter
    QStringList leftOut;             ///< names of recordings
    QMap<QString, QString> groups;   ///< by the name of the recording
    QString comparedBy;
    QList<Areas::Area> areas;
    std::optional<QSize> cutPicturePx;
    std::optional<TimeFrame> frame; ///< nothing: all of the time
};

/// The context as the model has it now.
Context contextOf(const DataModel &model, std::optional<QSize> cutPicturePx, const QMap<QString, QString> &settings);

/// Makes a recipe of steps and what held when they were done: before each step stand the changes since the one before.
class RecipeBuilder {
public:
    /// @param delivered  the parameters as the program is delivered: what a replay begins with.
    RecipeBuilder(const QString &release, const QMap<QString, QString> &delivered);

    void add(const Context &context, const Step &step);

    /// Something that a replay leaves out.
    void leaveOut(const QString &what) { m_recipe.notReplayed << what; }

    const Recipe &recipe() const { return m_recipe; }

private:
    void addChanges(const Context &context);
    void addSettings(const QMap<QString, QString> &settings);

    Recipe m_recipe;
    Context m_last;
    bool m_choicesAreKnown = true; ///< false after a filter: it leaves out what the recordings say
    bool m_isFirst = true;
};

} // namespace recipe
