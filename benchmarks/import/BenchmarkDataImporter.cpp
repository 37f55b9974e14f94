// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of reading recordings, beside the plain form of the same reader: a text stream, split lines, converted strings.

#include "import/DataImporter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>
#include <random>

namespace {

constexpr int seed = 1;
constexpr double bytesPerMegabyte = 1e6;

enum class Content { Plain, MissingAsNan, LongNumbers };

QByteArray eyeFields(std::mt19937 &random, Content content, bool valid)
{
    std::normal_distribution<double> position(500, 200);
    std::normal_distribution<double> pupil(20, 2);
    if (!valid && content == Content::MissingAsNan)
        return "\tnan\tnan\tnan\tnan\t0";
    if (!valid)
        return "\t0\t0\t0\t0\t0";
    const int decimals = content == Content::LongNumbers ? 15 : 2;
    QByteArray fields;
    for (const double value : {position(random), position(random), pupil(random), pupil(random)})
        fields += '\t' + QByteArray::number(value, 'f', decimals);
    return fields + "\t1";
}

/// A recording of both eyes at 500 Hz, one sample in twenty lost.
QByteArray recording(int samples, Content content)
{
    std::mt19937 random(seed);
    std::bernoulli_distribution lost(content == Content::MissingAsNan ? 0.5 : 0.05);
    QByteArray bytes = "StaticBinocular\ntime\tleft_x\tleft_y\tleft_w\tleft_h\tleft_valid\tright_x\tright_y\tright_w\t"
                       "right_h\tright_valid\n";
    for (int i = 0; i < samples; ++i) {
        const bool valid = !lost(random);
        bytes += QByteArray::number(1000000 + 2 * i) + eyeFields(random, content, valid) +
                 eyeFields(random, content, valid) + '\n';
    }
    return bytes;
}

/// The textbook reader. Times stay raw, nothing is logged.
Examination plainForm(const QByteArray &bytes)
{
    Examination examination;
    QTextStream stream(bytes);
    QString line;
    while (stream.readLineInto(&line)) {
        if (line.isEmpty() || line[0] < u'0' || line[0] > u'9')
            continue;
        const QStringList fields = line.split(u'\t');
        if (fields.size() != static_cast<qsizetype>(sampleFieldCount))
            continue;
        const qint64 time = fields[0].toLongLong();
        const auto eye = [&](qsizetype first) {
            return GazePoint(time, fields[first].toDouble(), fields[first + 1].toDouble(), fields[first + 2].toDouble(),
                             fields[first + 3].toDouble(), fields[first + 4].toInt());
        };
        const GazePoint left = eye(1);
        const GazePoint right = eye(6);
        examination.leftEye.gazePoints << left;
        examination.rightEye.gazePoints << right;
        examination.meanEye.gazePoints << (left.validFlag && right.validFlag
                                               ? GazePoint(time, (left.x + right.x) / 2, (left.y + right.y) / 2,
                                                           (left.width + right.width) / 2,
                                                           (left.height + right.height) / 2, 1)
                                               : GazePoint(time, -1, -1, -1, -1, 0));
    }
    return examination;
}

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The fastest of some runs: other work on the machine, and memory that the system has to fetch first, only slow down.
double fastest(int runs, const std::function<void()> &work)
{
    double best = seconds(work);
    for (int run = 1; run < runs; ++run)
        best = std::min(best, seconds(work));
    return best;
}

double bytesPerSample(const Examination &examination)
{
    qsizetype capacity = 0;
    for (const EyeData *eye : {&examination.leftEye, &examination.rightEye, &examination.meanEye})
        capacity = std::max(capacity, eye->gazePoints.capacity());
    return static_cast<double>(capacity) * sizeof(GazePoint) /
           static_cast<double>(examination.leftEye.gazePoints.size());
}

void report(benchmark::State &state, const QByteArray &bytes, double ourSeconds, const Examination &examination)
{
    const double megabytes = static_cast<double>(bytes.size()) / bytesPerMegabyte;
    const double plainSeconds = fastest(3, [&] { benchmark::DoNotOptimize(plainForm(bytes)); });
    state.counters["MB/s"] = megabytes / ourSeconds;
    state.counters["samples/s"] = static_cast<double>(examination.leftEye.gazePoints.size()) / ourSeconds;
    state.counters["plain_MB/s"] = megabytes / plainSeconds;
    state.counters["ratio"] = plainSeconds / ourSeconds;
    state.counters["bytes/sample"] = bytesPerSample(examination);
}

/// From the bytes in memory to three streams.
void parse(benchmark::State &state, Content content)
{
    const QByteArray bytes = recording(static_cast<int>(state.range(0)), content);
    double best = std::numeric_limits<double>::infinity();
    Examination examination;
    for (auto _ : state) {
        examination = {};
        best = std::min(best, seconds([&] { DataImporter(QString(), &examination, nullptr).readBytes(bytes); }));
    }
    report(state, bytes, best, examination);
}

/// From a file in the system's cache to three streams.
void readFile(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("recording.data"));
    const QByteArray bytes = recording(static_cast<int>(state.range(0)), Content::Plain);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        state.SkipWithError("the recording cannot be written");
        return;
    }
    double best = std::numeric_limits<double>::infinity();
    Examination examination;
    for (auto _ : state) {
        examination = {};
        best = std::min(best, seconds([&] { DataImporter(path, &examination, nullptr).readFile(); }));
    }
    report(state, bytes, best, examination);
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int few = 500'000;
    constexpr int many = 5'000'000;
    constexpr int runs = 5; // of the long ones; otherwise the library would see one as enough
    const auto add = [](const char *name, auto &&...function) {
        return benchmark::RegisterBenchmark(name, function...)->Unit(benchmark::kMillisecond);
    };
    add("parse", parse, Content::Plain)->Arg(few);
    add("parse", parse, Content::Plain)->Arg(many)->Iterations(runs);
    add("parseHalfNan", parse, Content::MissingAsNan)->Arg(few);
    add("parseLongNumbers", parse, Content::LongNumbers)->Arg(few);
    add("readFile", readFile)->Arg(few);
    add("readFile", readFile)->Arg(many)->Iterations(runs);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
