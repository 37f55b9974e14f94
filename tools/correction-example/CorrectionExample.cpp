// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction-example/CorrectionExample.h"

#include "base/FileReplacement.h"
#include "import/ilmenau/CorrectionIni.h"

#include <QFile>

#include <algorithm>
#include <functional>
#include <iterator>

namespace {

using namespace Qt::StringLiterals;
using correctionexample::Shift;

std::optional<QByteArray> contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

QString unreadable(const QString &path)
{
    return u"%1 cannot be read"_s.arg(path);
}

/// A recording by lines and fields.
struct Table {
    explicit Table(const QByteArray &text)
    {
        for (const QByteArray &line : text.split('\n'))
            lines << line.split('\t');
        if (lines.constFirst().constLast().endsWith('\r'))
            returns = true;
        for (QList<QByteArray> &line : lines) {
            if (line.last().endsWith('\r'))
                line.last().chop(1);
        }
    }

    qsizetype column(QByteArrayView name) const { return lines.constFirst().indexOf(name); }
    bool isSample(qsizetype line) const { return line > 0 && lines[line].size() == lines.constFirst().size(); }

    QByteArray text() const
    {
        QByteArray all;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const bool isLast = i + 1 == lines.size();
            all += lines[i].join('\t') + (isLast ? QByteArray() : returns ? QByteArray("\r\n") : QByteArray("\n"));
        }
        return all;
    }

    QList<QList<QByteArray>> lines;
    bool returns = false;
};

struct PositionColumn {
    const char *name;
    double Shift::*axis;
};
constexpr PositionColumn positionColumns[] = {
    {"Lspx", &Shift::x}, {"Lspy", &Shift::y}, {"Rspx", &Shift::x}, {"Rspy", &Shift::y}};

bool hasPositions(const Table &table)
{
    return std::all_of(std::begin(positionColumns), std::end(positionColumns),
                       [&](const PositionColumn &each) { return table.column(each.name) >= 0; });
}

/// Replaces the number in each position of each sample line.
void replacePositions(
    Table &table, const std::function<double(double, qsizetype line, qsizetype column, double Shift::*axis)> &number)
{
    for (qsizetype line = 1; line < table.lines.size(); ++line) {
        if (!table.isSample(line))
            continue;
        for (const auto &[name, axis] : positionColumns) {
            const qsizetype column = table.column(name);
            QByteArray &field = table.lines[line][column];
            bool isNumber = false;
            const double before = field.toDouble(&isNumber);
            constexpr int digits = 9;
            if (isNumber)
                field = QByteArray::number(number(before, line, column, axis), 'g', digits);
        }
    }
}

} // namespace

std::optional<Shift> correctionexample::meanShift(const QByteArray &table)
{
    constexpr qsizetype fieldCount = 5; // number, original x and y, corrected x and y
    Shift sum;
    int points = 0;
    for (const QByteArray &line : table.split('\n').mid(1)) {
        const QList<QByteArray> fields = QByteArray(line).replace(',', '.').split(';');
        if (fields.size() != fieldCount)
            continue;
        sum.x += fields[3].toDouble() - fields[1].toDouble();
        sum.y += fields[4].toDouble() - fields[2].toDouble();
        ++points;
    }
    return points == 0 ? std::nullopt : std::optional(Shift{sum.x / points, sum.y / points});
}

std::optional<QByteArray> correctionexample::shifted(const QByteArray &recording, const Shift &shift)
{
    Table table(recording);
    if (!hasPositions(table))
        return std::nullopt;
    replacePositions(table,
                     [&](double before, qsizetype, qsizetype, double Shift::*axis) { return before + shift.*axis; });
    return table.text();
}

std::optional<QByteArray> correctionexample::averaged(const QByteArray &first, const QByteArray &second)
{
    Table table(first);
    const Table other(second);
    if (!hasPositions(table) || table.lines.constFirst() != other.lines.constFirst() ||
        table.lines.size() != other.lines.size())
        return std::nullopt;
    replacePositions(table, [&](double before, qsizetype line, qsizetype column, double Shift::*) {
        return other.isSample(line) ? (before + other.lines[line][column].toDouble()) / 2 : before;
    });
    return table.text();
}

QString correctionexample::correct(const QStringList &arguments)
{
    if (arguments.size() != 4)
        return u"usage: subsequent-gaze-correction TABLE CALIBRATION_INI RECORDING CORRECTED_RECORDING"_s;
    const auto table = contents(arguments[0]);
    const auto recording = contents(arguments[2]);
    if (!table || !recording)
        return unreadable(arguments[table ? 2 : 0]);
    const auto shift = meanShift(*table);
    if (!shift)
        return u"%1 has no point: set points to the ellipses first"_s.arg(arguments[0]);
    const auto corrected = shifted(*recording, *shift);
    if (!corrected)
        return u"%1 lacks one of the columns Lspx, Lspy, Rspx, Rspy"_s.arg(arguments[2]);
    return replaceFile(arguments[3], *corrected).value_or(QString());
}

QString correctionexample::average(const QStringList &arguments)
{
    if (arguments.size() != 3)
        return u"usage: gaze-corr-averaging CORRECTION_INI CORRECTION_INI AVERAGED_RECORDING"_s;
    QList<QByteArray> corrections;
    for (const QString &path : arguments.first(2)) {
        QString problem;
        const auto ini = readCorrectionIni(path, problem);
        const auto corrected = ini ? contents(ini->correctedPath) : std::nullopt;
        if (!corrected)
            return unreadable(ini ? ini->correctedPath : path);
        corrections << *corrected;
    }
    const auto mean = averaged(corrections[0], corrections[1]);
    if (!mean)
        return u"the corrected recordings differ in their columns or in the number of their lines"_s;
    return replaceFile(arguments[2], *mean).value_or(QString());
}
