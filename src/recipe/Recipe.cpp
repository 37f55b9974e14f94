// SPDX-License-Identifier: GPL-3.0-or-later
#include "recipe/Recipe.h"

#include "base/JsonFields.h"
#include "recipe/StepJson.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace recipe {

namespace {

const QString program = u"vistrum"_s;

/// What keeps a file from being a recipe of this version; empty if nothing does.
QString formProblem(const QJsonObject &object)
{
    if (object.value("recipe"_L1).toString() != program)
        return u"it is no recipe: expected \"recipe\": \"vistrum\""_s;
    const double found = object.value("version"_L1).toDouble();
    if (found == version)
        return {};
    const QString release = object.value("release"_L1).toString();
    const QString writer = release.isEmpty() ? u"another release"_s : u"release "_s + release;
    return found > version ? u"it was written by %1 in version %2 of the form, which is newer than version %3, the one "
                             "that this program reads: replay it with that release"_s.arg(
                                 writer, QString::number(found), QString::number(version))
                           : u"\"version\": expected %1"_s.arg(version);
}

} // namespace

QByteArray toBytes(const Recipe &recipe)
{
    QJsonArray steps;
    for (const Step &step : recipe.steps)
        steps << toJson(step);
    return QJsonDocument(QJsonObject{{u"recipe"_s, program},
                                     {u"version"_s, version},
                                     {u"release"_s, recipe.release},
                                     {u"settings"_s, jsonOf(recipe.settings)},
                                     {u"steps"_s, steps},
                                     {u"notReplayed"_s, QJsonArray::fromStringList(recipe.notReplayed)}})
        .toJson();
}

std::variant<Recipe, QString> read(const QByteArray &bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (!document.isObject()) {
        const qsizetype line = bytes.left(error.offset).count('\n') + 1;
        return u"it is no recipe: line %1: %2"_s.arg(QString::number(line), error.error == QJsonParseError::NoError
                                                                                ? u"expected an object"_s
                                                                                : error.errorString());
    }
    const QJsonObject object = document.object();
    if (const QString problem = formProblem(object); !problem.isEmpty())
        return problem;
    JsonFields fields(object);
    fields.text(u"recipe"_s);
    fields.whole(u"version"_s, version, version);
    Recipe recipe{.release = fields.text(u"release"_s),
                  .settings = fields.textsByName(u"settings"_s),
                  .steps = {},
                  .notReplayed = fields.texts(u"notReplayed"_s)};
    for (const auto &json : fields.array(u"steps"_s)) {
        const auto step = stepOf(json.toObject());
        if (const auto *problem = std::get_if<QString>(&step))
            return u"step %1: %2"_s.arg(QString::number(recipe.steps.size() + 1), *problem);
        recipe.steps << std::get<Step>(step);
    }
    if (const QString problem = fields.problem(); !problem.isEmpty())
        return problem;
    return recipe;
}

} // namespace recipe
