#include "batch/ParallelImport.h"

#include <atomic>
#include <future>
#include <thread>
#include <vector>

void readRecordings(const QStringList &paths, int jobs, const std::function<void(const ImportedFile &)> &taken)
{
    std::vector<std::promise<ImportedFile>> read(static_cast<size_t>(paths.size()));
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        for (size_t i = next++; i < read.size(); i = next++)
            read[i].set_value(readRecording(paths[static_cast<qsizetype>(i)], nullptr));
    };
    std::vector<std::jthread> workers;
    for (size_t i = 0; i < std::min(static_cast<size_t>(jobs), read.size()); ++i)
        workers.emplace_back(work);
    for (std::promise<ImportedFile> &file : read)
        taken(file.get_future().get());
}
