// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/LayoutFiles.h"

#include "base/FileReplacement.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

constexpr QLatin1StringView suffix(".layout.json");
constexpr qint64 largestLayout = qint64(1) << 20;

QString nameOf(const QString &path)
{
    const QString file = path.sliced(path.lastIndexOf(u'/') + 1);
    return file.endsWith(suffix) ? file.chopped(suffix.size()) : file;
}

} // namespace

std::variant<NamedLayout, TableProblem> readLayoutFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return TableProblem{.file = path,
                            .found = QStringLiteral("a file that cannot be opened (%1)").arg(file.errorString()),
                            .expected = QStringLiteral("a layout"),
                            .remedy = QStringLiteral("Check its name and whether you may read it.")};
    const QByteArray bytes = file.read(largestLayout + 1);
    if (bytes.size() > largestLayout)
        return TableProblem{.file = path,
                            .found = QStringLiteral("more than %1 bytes").arg(largestLayout),
                            .expected = QStringLiteral("a layout"),
                            .remedy = QStringLiteral("Choose a file that ends in .layout.json.")};
    auto layout = layoutFromJson(bytes, path);
    if (auto *problem = std::get_if<TableProblem>(&layout))
        return std::move(*problem);
    return NamedLayout{nameOf(path), path, std::get<TableLayout>(std::move(layout))};
}

LayoutList layoutsIn(const QString &folder)
{
    LayoutList list;
    const QDir directory(folder);
    for (const QString &name : directory.entryList({u'*' + QString(suffix)}, QDir::Files, QDir::Name)) {
        auto layout = readLayoutFile(directory.filePath(name));
        if (auto *named = std::get_if<NamedLayout>(&layout))
            list.layouts << std::move(*named);
        else
            list.problems << std::get<TableProblem>(layout);
    }
    return list;
}

LayoutList readyLayouts()
{
    return layoutsIn(QStringLiteral(":/layouts"));
}

std::optional<TableProblem> writeLayoutFile(const QString &path, const TableLayout &layout)
{
    const std::optional<QString> failure = replaceFile(path, layoutJson(layout));
    if (!failure)
        return std::nullopt;
    return TableProblem{.file = path,
                        .found = QStringLiteral("a file that cannot be written (%1)").arg(*failure),
                        .remedy = QStringLiteral("Choose another folder or name.")};
}

const NamedLayout *findLayout(const QStringList &header, const QList<NamedLayout> &layouts)
{
    const NamedLayout *best = nullptr;
    for (const NamedLayout &each : layouts) {
        const QStringList &match = each.layout.match;
        const bool fits =
            !match.isEmpty() && std::ranges::all_of(match, [&](const QString &name) { return header.contains(name); });
        if (fits && (!best || match.size() >= best->layout.match.size()))
            best = &each;
    }
    return best;
}

const NamedLayout *layoutByName(const QString &name, const QList<NamedLayout> &layouts)
{
    const auto found = std::ranges::find_if(layouts.rbegin(), layouts.rend(),
                                            [&](const NamedLayout &each) { return each.name == name; });
    return found == layouts.rend() ? nullptr : &*found;
}
