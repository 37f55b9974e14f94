// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/TransitionExport.h"

#include "base/Log.h"
#include "export/TextTable.h"

#include <array>
#include <optional>

namespace {

using Text = QLatin1StringView;

/// How a flavour is named to the user and in file names.
struct FlavourWords {
    Text title;
    Text infix;
};
constexpr FlavourWords flavourWords[] = {{Text("Cluster transitions"), Text("_cluster_")},
                                         {Text("CUMM Cluster transitions"), Text("_cumm_cluster_")},
                                         {Text("CUMM + Cluster transitions"), Text("_cumm_and_cluster_")}};

struct File {
    TransitionContent content;
    Text name;
};

/// Files that are chosen together and told of together.
struct FileGroup {
    bool TransitionChoice::*chosen;
    Text word; // sic
    Text pattern;
    std::array<std::optional<File>, 2> files;
};

constexpr FileGroup groups[] = {
    {&TransitionChoice::absolute,
     Text("absolut"),
     Text("transitions_absolut.csv"),
     {File{TransitionContent::Counts, Text("transitions_absolut.csv")}, {}}},
    {&TransitionChoice::relative,
     Text("relativ"),
     Text("transitions_relative_to_all/cluster_transitions.csv"),
     {File{TransitionContent::ShareOfAll, Text("transitions_relative_to_all_transitions.csv")},
      File{TransitionContent::ShareOfRow, Text("transitions_relative_to_cluster_transitions.csv")}}},
    {&TransitionChoice::measures,
     Text("statistics"),
     Text("transitions_mtpm_mtbt_stdtbt_ml_stdl.csv"),
     {File{TransitionContent::Measures, Text("transitions_mtpm_mtbt_stdtbt_ml_stdl.csv")}, {}}},
};

/// The word of the eye in these file names.
Text stemOf(Eye eye)
{
    return eye == Eye::Dominant ? Text("dom") : eyeWord(eye);
}

/// The end of one group of files.
void tell(const QString &title, const QString &text, const ExportResult &part, const Log *log)
{
    if (log && part.failed.isEmpty())
        log->write(text);
    tellExported(title, text, part);
}

void append(ExportResult &result, const ExportResult &part)
{
    result.written << part.written;
    result.failed << part.failed;
    result.problems << part.problems;
}

struct EyeBlocks {
    Eye eye;
    QList<TransitionBlock> blocks;
};

QList<EyeBlocks> blocksOf(const DataModel &model, TransitionFlavour flavour, EyeMode eyes)
{
    QList<EyeBlocks> all;
    for (const Eye eye : eyesOf(eyes)) {
        if (const QList<TransitionBlock> blocks = transitionBlocks(model, flavour, eye); !blocks.isEmpty())
            all << EyeBlocks{eye, blocks};
    }
    return all;
}

void writeFlavour(const QList<EyeBlocks> &eyes, const FlavourWords &words, const QString &stem,
                  const TransitionChoice &choice, ExportResult &result, const Log *log)
{
    const QString title = words.title + Text(" export");
    if (eyes.isEmpty()) {
        tell(title, words.title + Text(": there are no clusters, nothing was exported."), {}, log);
        return;
    }
    for (const FileGroup &group : groups) {
        if (!(choice.*group.chosen))
            continue;
        ExportResult part;
        for (const EyeBlocks &each : eyes) {
            for (const std::optional<File> &file : group.files) {
                if (file)
                    writeTable(stem + u'_' + stemOf(each.eye) + words.infix + file->name,
                               transitionTable(each.blocks, file->content), part);
            }
        }
        tell(title,
             words.title + u' ' + group.word + Text(" exported to: ") + stem + Text("_left/right/dom") + words.infix +
                 group.pattern,
             part, log);
        append(result, part);
    }
}

} // namespace

TransitionChoice TransitionChoice::everything(const DataModel &model, EyeMode eyes)
{
    bool own = false;
    bool pooled = false;
    for (const Eye eye : eyesOf(eyes)) {
        pooled = pooled || !model.pooled(eye).fixationClusters.isEmpty();
        for (const Examination *examination : model.checkedExaminations())
            own = own || !examination->stream(eye).fixationClusters.isEmpty();
    }
    TransitionChoice choice;
    if (own)
        choice.flavours << TransitionFlavour::Own;
    if (pooled)
        choice.flavours << TransitionFlavour::Pooled;
    if (own || pooled)
        choice.flavours << TransitionFlavour::OwnAndPooled;
    choice.areas = !model.aoiList().isEmpty();
    return choice;
}

ExportResult exportTransitions(const DataModel &model, const QString &stem, EyeMode eyes,
                               const TransitionChoice &choice, const Log *log)
{
    ExportResult result;
    for (const TransitionFlavour flavour : choice.flavours)
        writeFlavour(blocksOf(model, flavour, eyes), flavourWords[static_cast<size_t>(flavour)], stem, choice, result,
                     log);
    if (choice.areas) {
        const QString path = stem + Text("_transitionmatrix.csv");
        ExportResult part;
        writeTable(path, aoiTransitionTable(model, eyes), part);
        tell(QStringLiteral("Transition matrix export"),
             QStringLiteral("Displayed transition matrix exported to: ") + path, part, log);
        append(result, part);
    }
    return result;
}
