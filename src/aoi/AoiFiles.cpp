// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/AoiFiles.h"

#include "aoi/AoiJson.h"
#include "aoi/AoiTable.h"
#include "aoi/LabelImage.h"
#include "base/BoundedFile.h"
#include "base/Messages.h"

#include <QFileInfo>

#include <iterator>

namespace {

using Reader = AoiFileContents (*)(const QString &path);
using Writer = QByteArray (*)(const QList<AreaOfInterest> &);

template <AoiFileContents (*Parse)(const QByteArray &)>
AoiFileContents readWith(const QString &path)
{
    const std::variant<QByteArray, QString> read = readBounded(path, largestAoiFile);
    if (const auto *bytes = std::get_if<QByteArray>(&read))
        return Parse(*bytes);
    AoiFileContents none;
    none.error = std::get<QString>(read);
    return none;
}

AoiFileContents readLabels(const QString &path)
{
    const QFileInfo info(path);
    const QString names = info.path() + u'/' + info.completeBaseName() + QLatin1StringView(".csv");
    return readLabelImage(path, names);
}

/// The forms beside that of AOI files.
struct Form {
    QLatin1StringView suffix;
    Reader read;
    Writer text; ///< null where areas cannot be written
};

constexpr Form forms[] = {
    {QLatin1StringView("csv"), readWith<parseAoiTable>, aoiTable},
    {QLatin1StringView("json"), readWith<parseAoiJson>, aoiJson},
    {QLatin1StringView("png"), readLabels, nullptr},
};

const Form *formOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto *form =
        std::find_if(std::begin(forms), std::end(forms), [&](const Form &f) { return f.suffix == suffix; });
    return form == std::end(forms) ? nullptr : form;
}

} // namespace

AoiFileContents readAois(const QString &path)
{
    const messages::Run told; // each block of a file may have the same fault
    const Form *form = formOf(path);
    if (!form)
        return readAoiFile(path);
    AoiFileContents contents = form->read(path);
    if (!contents.error.isEmpty())
        messages::warning(QStringLiteral("Cannot read file!"), path + QStringLiteral(": ") + contents.error);
    else if (!contents.remarks.isEmpty())
        messages::information(QStringLiteral("Problems importing the AOI file detected!"),
                              contents.remarks.join(u'\n'));
    return contents;
}

bool writeAois(const QList<AreaOfInterest> &aois, const QString &path)
{
    const Form *form = formOf(path);
    return writeAoiText(aois, path, form && form->text ? form->text : aoiFileText);
}
