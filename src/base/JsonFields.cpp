// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/JsonFields.h"

#include <QJsonDocument>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// As it stands in the file, cut where it is long.
QString shown(const QJsonValue &value)
{
    if (value.isUndefined())
        return u"nothing"_s;
    constexpr qsizetype most = 60;
    const QByteArray whole = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    const QString text = QString::fromUtf8(whole.sliced(1, whole.size() - 2));
    return text.size() > most ? text.left(most) + u"..."_s : text;
}

} // namespace

QJsonObject jsonOf(const QMap<QString, QString> &texts)
{
    QJsonObject object;
    for (auto entry = texts.cbegin(); entry != texts.cend(); ++entry)
        object.insert(entry.key(), entry.value());
    return object;
}

QJsonValue JsonFields::take(const QString &name)
{
    m_asked << name;
    return m_object.value(name);
}

void JsonFields::expect(bool isRight, const QString &name, const QString &expected, const QJsonValue &found)
{
    if (!isRight)
        require(false, u"%1: expected %2, found %3"_s.arg(name, expected, shown(found)));
}

void JsonFields::require(bool holds, const QString &problem)
{
    if (!holds && m_problem.isEmpty())
        m_problem = problem;
}

qint64 JsonFields::whole(const QString &name, qint64 least, qint64 most)
{
    const QJsonValue value = take(name);
    const double read = value.toDouble(std::nan(""));
    const bool isRight =
        std::floor(read) == read && read >= static_cast<double>(least) && read <= static_cast<double>(most);
    expect(isRight, name, u"a whole number from %1 to %2"_s.arg(QString::number(least), QString::number(most)), value);
    return isRight ? value.toInteger() : least;
}

int JsonFields::count(const QString &name)
{
    return static_cast<int>(whole(name, 0, std::numeric_limits<int>::max()));
}

double JsonFields::number(const QString &name)
{
    const QJsonValue value = take(name);
    expect(value.isDouble() && std::isfinite(value.toDouble()), name, u"a number"_s, value);
    return value.toDouble();
}

bool JsonFields::flag(const QString &name)
{
    const QJsonValue value = take(name);
    expect(value.isBool(), name, u"true or false"_s, value);
    return value.toBool();
}

QString JsonFields::text(const QString &name)
{
    const QJsonValue value = take(name);
    expect(value.isString(), name, u"a text"_s, value);
    return value.toString();
}

QStringList JsonFields::texts(const QString &name)
{
    QStringList read;
    const QJsonValue value = take(name);
    expect(value.isArray(), name, u"a list of texts"_s, value);
    for (const auto &each : value.toArray()) {
        expect(each.isString(), name, u"a list of texts"_s, each);
        read << each.toString();
    }
    return read;
}

QJsonObject JsonFields::object(const QString &name)
{
    const QJsonValue value = take(name);
    expect(value.isObject(), name, u"an object"_s, value);
    return value.toObject();
}

QMap<QString, QString> JsonFields::textsByName(const QString &name)
{
    const QJsonObject entries = object(name);
    QMap<QString, QString> texts;
    for (auto entry = entries.constBegin(); entry != entries.constEnd(); ++entry) {
        expect(entry.value().isString(), name + u": "_s + entry.key(), u"a text"_s, entry.value());
        texts.insert(entry.key(), entry.value().toString());
    }
    return texts;
}

QJsonArray JsonFields::array(const QString &name)
{
    const QJsonValue value = take(name);
    expect(value.isArray(), name, u"a list"_s, value);
    return value.toArray();
}

qsizetype JsonFields::word(const QString &name, const QStringList &words)
{
    const QJsonValue value = take(name);
    const qsizetype place = value.isString() ? words.indexOf(value.toString()) : -1;
    expect(place >= 0, name, u"one of "_s + words.join(u", "_s), value);
    return std::max(qsizetype(0), place);
}

QString JsonFields::problem() const
{
    if (!m_problem.isEmpty())
        return m_problem;
    for (auto field = m_object.constBegin(); field != m_object.constEnd(); ++field) {
        if (!m_asked.contains(field.key()))
            return u"%1: not known here; known are %2"_s.arg(field.key(), m_asked.join(u", "_s));
    }
    return {};
}
