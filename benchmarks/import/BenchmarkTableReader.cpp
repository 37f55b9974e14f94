// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of reading tables, beside the plain form of the same reader: a text stream, split lines, converted strings.
//
// With --write FILE it writes the plain table of the benchmark, for other readers to be measured with.

#include "import/tables/TableFile.h"

#include <QBuffer>
#include <QFile>
#include <QTextStream>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <random>

namespace {

constexpr double bytesPerMegabyte = 1e6;

TableLayout layout()
{
    TableLayout made;
    const auto named = [](const char *name) { return TableColumn::named(QString::fromLatin1(name)); };
    made.time = named("time");
    made.left = {named("left_x"), named("left_y"), named("left_pupil"), {}, {}};
    made.right = {named("right_x"), named("right_y"), named("right_pupil"), {}, {}};
    return made;
}

enum class Kind { Plain, DecimalComma, Seconds, Utf16, WithWords, Log };

/// Both eyes at 1000 Hz, one sample in twenty lost.
QByteArray table(int samples, Kind kind)
{
    std::mt19937 random(1);
    std::normal_distribution<double> place(500, 200);
    std::bernoulli_distribution lost(0.05);
    const bool isLog = kind == Kind::Log;
    const QByteArray sign = kind == Kind::DecimalComma ? ";" : isLog ? "\t" : ",";
    QByteArray bytes =
        isLog ? QByteArray("START\t1 \tLEFT\tRIGHT\tSAMPLES\nSAMPLES\tGAZE\tLEFT\tRIGHT\tRATE\t1000.00\n")
              : QByteArray("time,left_x,left_y,left_pupil,right_x,right_y,right_pupil,task\n").replace(",", sign);
    for (int i = 0; i < samples; ++i) {
        QByteArray line = kind == Kind::Seconds ? QByteArray::number((1'000'000 + i) / 1000.0, 'f', 3)
                                                : QByteArray::number(1'000'000 + i);
        for (int eye = 0; eye < 2; ++eye) {
            if (lost(random))
                line += isLog ? "\t   .\t   .\t    0.0" : sign + "nan" + sign + "nan" + sign + "0";
            else
                line += sign + QByteArray::number(place(random), 'f', 2) + sign +
                        QByteArray::number(place(random), 'f', 2) + sign + QByteArray::number(1000 + i % 64);
        }
        line += isLog ? QByteArray("\t.....") : kind == Kind::WithWords ? sign + "\"reading, aloud\"" : sign + "7";
        if (kind == Kind::DecimalComma)
            line.replace('.', ',');
        bytes += line + '\n';
    }
    if (kind != Kind::Utf16)
        return bytes;
    const QString wide = QString::fromLatin1(bytes);
    return "\xFF\xFE" + QByteArray(reinterpret_cast<const char *>(wide.utf16()), 2 * wide.size());
}

/// The textbook reader of the plain table.
QList<TableSample> plainForm(const QByteArray &bytes)
{
    QList<TableSample> samples;
    QTextStream stream(bytes);
    stream.readLine();
    QString line;
    while (stream.readLineInto(&line)) {
        const QStringList fields = line.split(u',');
        TableSample sample;
        sample.timeMs = fields[0].toDouble();
        const auto eye = [&](qsizetype first, bool &isValid) {
            bool isX = false;
            bool isY = false;
            const double x = fields[first].toDouble(&isX);
            const double y = fields[first + 1].toDouble(&isY);
            isValid = isX && isY && x == x && y == y;
            const double pupil = fields[first + 2].toDouble();
            return isValid ? TableEyeSample{x, y, pupil, pupil} : TableEyeSample{0, 0, pupil, pupil};
        };
        sample.left = eye(1, sample.leftValid);
        sample.right = eye(4, sample.rightValid);
        samples << sample;
    }
    return samples;
}

/// Of this process: other work on the machine does not count.
double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void readAll(benchmark::State &state, Kind kind)
{
    QByteArray bytes = table(static_cast<int>(state.range(0)), kind);
    TableLayout used = layout();
    if (kind == Kind::DecimalComma) {
        used.delimiter = ';';
        used.decimalSign = ',';
    }
    if (kind == Kind::Seconds)
        used.timeUnit = TableTimeUnit::Seconds;
    if (kind == Kind::Log)
        used.kind = TableKind::EventLog;
    double best = 1e9;
    qsizetype samples = 0;
    double bytesPerSample = 0;
    QList<TableSample> last;
    for (auto _ : state) {
        QBuffer buffer(&bytes);
        if (!buffer.open(QIODevice::ReadOnly))
            return state.SkipWithError("the buffer does not open");
        const double start = processorSeconds();
        const auto result = readTable(buffer, QStringLiteral("table.csv"), used);
        best = std::min(best, processorSeconds() - start);
        const auto *content = std::get_if<TableContent>(&result);
        if (!content)
            return state.SkipWithError("the table is not read");
        const QList<TableSample> &read = content->recordings.constFirst().samples;
        last = read;
        samples = read.size();
        bytesPerSample = static_cast<double>(read.capacity()) * sizeof(TableSample) / static_cast<double>(samples);
    }
    const double megabytes = static_cast<double>(bytes.size()) / bytesPerMegabyte;
    state.counters["MB/s"] = megabytes / best;
    state.counters["samples/s"] = static_cast<double>(samples) / best;
    state.counters["bytes/sample"] = bytesPerSample;
    if (kind != Kind::Plain)
        return;
    const double start = processorSeconds();
    const QList<TableSample> plainSamples = plainForm(bytes);
    const double plain = processorSeconds() - start;
    if (!(plainSamples == last))
        return state.SkipWithError("the plain form reads something else");
    state.counters["plain_MB/s"] = megabytes / plain;
    state.counters["ratio"] = plain / best;
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int few = 200'000;
    constexpr int many = 5'000'000;
    if (argc == 3 && std::strcmp(argv[1], "--write") == 0) {
        QFile file(QString::fromLocal8Bit(argv[2]));
        const QByteArray bytes = table(many, Kind::Plain);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? 0 : 1;
    }
    const auto add = [](const char *name, Kind kind, int samples) {
        benchmark::RegisterBenchmark(name, readAll, kind)->Unit(benchmark::kMillisecond)->Arg(samples)->Iterations(5);
    };
    add("plain", Kind::Plain, few);
    add("plain", Kind::Plain, many);
    add("decimalComma", Kind::DecimalComma, few);
    add("seconds", Kind::Seconds, few);
    add("utf16", Kind::Utf16, few);
    add("withWords", Kind::WithWords, few);
    add("eventLog", Kind::Log, few);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
