#include "batch/BatchHelp.h"

#include "batch/OptionTable.h"

QString batchHelp()
{
    constexpr qsizetype nameColumn = 24;
    QString help = QStringLiteral("vistrum-batch [options] RECORDING.data...\n"
                                  "Imports, calculates, exports and draws as the window does, without one.\n\n");
    for (const optiontable::Row &row : optiontable::rows) {
        if (row.id == optiontable::Id::NotBuilt)
            continue;
        const QString call = QStringLiteral("  --%1 %2").arg(row.name, row.value);
        help += call.leftJustified(nameColumn) + row.help + u'\n';
    }
    return help + QLatin1StringView("\nFiles written are listed on standard output, one path a line.\n"
                                    "Exit code: 0 all done, 1 something failed and the rest is done, 2 wrong call.\n");
}
