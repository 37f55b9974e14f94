// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/TransitionWords.h"

namespace {

using Text = QLatin1StringView;

template <TransitionFlavour Flavour>
void addFlavour(TransitionChoice &choice)
{
    choice.flavours << Flavour;
}

template <bool TransitionChoice::*Member>
void setChoice(TransitionChoice &choice)
{
    choice.*Member = true;
}

void addAll(TransitionChoice &choice, const QStringList &words, const QList<TransitionRow> &rows)
{
    for (const TransitionRow &row : rows) {
        if (words.contains(row.word))
            row.add(choice);
    }
}

} // namespace

QList<TransitionRow> transitionRows()
{
    return {{Text("own"), addFlavour<TransitionFlavour::Own>},
            {Text("pooled"), addFlavour<TransitionFlavour::Pooled>},
            {Text("own-and-pooled"), addFlavour<TransitionFlavour::OwnAndPooled>},
            {Text("aoi"), setChoice<&TransitionChoice::areas>}};
}

QList<TransitionRow> transitionValueRows()
{
    return {{Text("absolute"), setChoice<&TransitionChoice::absolute>},
            {Text("relative"), setChoice<&TransitionChoice::relative>},
            {Text("statistics"), setChoice<&TransitionChoice::measures>}};
}

TransitionChoice chosenTransitions(const StatisticsOptions &options, const DataModel &model, EyeMode eyes)
{
    TransitionChoice choice = TransitionChoice::everything(model, eyes);
    if (!options.transitions.isEmpty()) {
        choice.flavours.clear();
        choice.areas = false;
        addAll(choice, options.transitions, transitionRows());
    }
    if (!options.transitionValues.isEmpty()) {
        choice.absolute = choice.relative = choice.measures = false;
        addAll(choice, options.transitionValues, transitionValueRows());
    }
    return choice;
}
