// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QStringList>

#include <cstddef>
#include <variant>

/// Texts by their names.
QJsonObject jsonOf(const QMap<QString, QString> &texts);

/// Reads the fields of a JSON object and notes the first that is not what it should be. A field that is missing is
/// none. Who reads asks for all fields and then for the problem.
class JsonFields {
public:
    explicit JsonFields(const QJsonObject &object) : m_object(object) {}

    /// A whole number of that range.
    qint64 whole(const QString &name, qint64 least, qint64 most);
    /// A whole number that is not negative.
    int count(const QString &name);
    /// Any number that is finite.
    double number(const QString &name);
    bool flag(const QString &name);
    QString text(const QString &name);
    QStringList texts(const QString &name);
    QJsonObject object(const QString &name);
    QMap<QString, QString> textsByName(const QString &name);
    QJsonArray array(const QString &name);
    /// The place of the text among the words.
    qsizetype word(const QString &name, const QStringList &words);

    /// Notes the problem unless the condition holds.
    void require(bool holds, const QString &problem);

    bool has(const QString &name) const { return m_object.contains(name); }

    /// Such as "minimumDurationMs: expected a whole number from 0 to 5000, found \"a\""; empty if all is well. Fields
    /// that nobody asked for are a problem, too: they would be without effect.
    QString problem() const;

private:
    QJsonValue take(const QString &name);
    void expect(bool isRight, const QString &name, const QString &expected, const QJsonValue &found);

    const QJsonObject m_object;
    QStringList m_asked;
    QString m_problem;
};

/// One of several kinds of parameters; a field of the object has the word of its kind.
/// @param readers  one for each of the words.
/// @return what the reader of the kind makes of the other fields, or the problem.
template <class Parameters, std::size_t N>
std::variant<Parameters, QString> parametersOfKind(const QJsonObject &json, const QString &kind,
                                                   const QStringList &words,
                                                   Parameters (*const (&readers)[N])(JsonFields &))
{
    JsonFields fields(json);
    const Parameters parameters = readers[fields.word(kind, words)](fields);
    if (const QString problem = fields.problem(); !problem.isEmpty())
        return problem;
    return parameters;
}
