// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/FirstStart.h"
#include "settings/Registry.h"
#include "settings/StoredKeys.h"

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

namespace {

QString factoryFile()
{
    return findDataFile(QStringLiteral("factory_settings.ini"), QString());
}

/// A store with the factory values of all keys, while it lives.
class FullStore {
public:
    FullStore()
    {
        SettingsStore::useFile(m_folder.filePath(QStringLiteral("store.ini")));
        applyFactorySettings(factoryFile(), QString());
    }
    QString path(const char *name) const { return m_folder.filePath(QLatin1StringView(name)); }

private:
    QTemporaryDir m_folder;
};

/// One opening and one typed read, as each drawing step does for the eyes it shows.
void openAndRead(benchmark::State &state)
{
    const FullStore store;
    for (auto _ : state)
        benchmark::DoNotOptimize(eyeMode());
}

/// One opening and one write that reaches the file, as each parameter command does.
void openAndWrite(benchmark::State &state)
{
    const FullStore store;
    int value = 0;
    for (auto _ : state)
        writeStored(keys::eyeMode, ++value % 5);
}

/// The plain form of a write: the same bytes into a file, without lock, replacement and flush.
void plainWrite(benchmark::State &state)
{
    const FullStore store;
    QFile from(SettingsStore::path());
    if (!from.open(QIODevice::ReadOnly))
        return state.SkipWithError("no store");
    const QByteArray bytes = from.readAll();
    for (auto _ : state) {
        QFile file(store.path("plain.ini"));
        if (file.open(QIODevice::WriteOnly))
            benchmark::DoNotOptimize(file.write(bytes));
    }
}

void saveAllKeys(benchmark::State &state)
{
    const FullStore store;
    const Registry registry(Log(store.path("log")));
    for (auto _ : state)
        registry.saveSettings(store.path("saved.ini"));
}

void loadAllKeys(benchmark::State &state)
{
    const FullStore store;
    const Registry registry(Log(store.path("log")));
    for (auto _ : state)
        benchmark::DoNotOptimize(registry.loadSettings(factoryFile()));
}

} // namespace

BENCHMARK(openAndRead)->Name("store/openAndRead")->Unit(benchmark::kMicrosecond);
BENCHMARK(openAndWrite)->Name("store/openAndWrite")->Unit(benchmark::kMicrosecond);
BENCHMARK(plainWrite)->Name("store/plainWrite")->Unit(benchmark::kMicrosecond);
BENCHMARK(saveAllKeys)->Name("registry/save")->Unit(benchmark::kMicrosecond);
BENCHMARK(loadAllKeys)->Name("registry/load")->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
