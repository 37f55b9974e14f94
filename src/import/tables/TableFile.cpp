// SPDX-License-Identifier: GPL-3.0-or-later
#include "import/tables/TableFile.h"

#include "import/tables/DelimitedReader.h"
#include "import/tables/EventLogReader.h"

#include <QFile>
#include <QFileInfo>

#include <new>

namespace {

TableProblem cannotOpen(const QString &path, const QString &reason)
{
    return {.file = path,
            .found = QStringLiteral("a file that cannot be opened (%1)").arg(reason),
            .remedy = QStringLiteral("Check its name and whether you may read it.")};
}

std::variant<TableContent, TableProblem> readDevice(QIODevice &device, const QString &file, const TableLayout &layout,
                                                    const TableReadOptions &options)
{
    if (auto problem = layoutProblem(layout)) {
        problem->file = file;
        return *problem;
    }
    TableBytes bytes(device, layout.encoding, options.pieceBytes);
    if (layout.kind == TableKind::EventLog)
        return EventLogReader(bytes, file, layout, options).read();
    return DelimitedReader(bytes, file, layout, options).read();
}

template <class Result, class Work>
std::variant<Result, TableProblem> onFile(const QString &path, const Work &work)
{
    QFile file(path);
    if (QFileInfo(path).isDir())
        return cannotOpen(path, QStringLiteral("it is a folder"));
    if (!file.open(QIODevice::ReadOnly))
        return cannotOpen(path, file.errorString());
    return work(file);
}

} // namespace

std::variant<TableContent, TableProblem> readTable(QIODevice &device, const QString &file, const TableLayout &layout,
                                                   const TableReadOptions &options)
{
    try {
        return readDevice(device, file, layout, options);
    } catch (const std::bad_alloc &) {
        return TableProblem{.file = file,
                            .found = QStringLiteral("more samples than fit into the memory"),
                            .remedy = QStringLiteral("Convert the file piece by piece with vistrum-import.")};
    }
}

std::variant<TableContent, TableProblem> readTable(const QString &path, const TableLayout &layout,
                                                   const TableReadOptions &options)
{
    return onFile<TableContent>(path, [&](QIODevice &device) { return readTable(device, path, layout, options); });
}

std::variant<TableExtract, TableProblem> readExtract(const QString &path)
{
    return onFile<TableExtract>(path, [&](QIODevice &device) -> std::variant<TableExtract, TableProblem> {
        if (!device.isSequential())
            return readExtract(device, path);
        return TableProblem{.file = path,
                            .found = QStringLiteral("a pipe, of which nothing would be left after a look at it"),
                            .expected = QStringLiteral("a file"),
                            .remedy = QStringLiteral("Save it as a file, or name its layout.")};
    });
}
