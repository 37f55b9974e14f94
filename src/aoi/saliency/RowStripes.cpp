// SPDX-License-Identifier: GPL-3.0-or-later
#include "aoi/saliency/RowStripes.h"

#include "density/DrawingWorker.h"

#include <algorithm>

namespace {

/// Takes every n-th piece of work.
class PieceWorker : public DrawingWorker {
public:
    struct Pieces {
        int first;
        int count;
        int step;
    };

    PieceWorker(Pieces pieces, const std::function<void(int)> &work) : m_pieces(pieces), m_work(work) {}

private:
    void work() override
    {
        for (int i = m_pieces.first; i < m_pieces.count; i += m_pieces.step)
            m_work(i);
    }

    Pieces m_pieces;
    const std::function<void(int)> &m_work;
};

} // namespace

void forEachSideBySide(int count, const std::function<void(int)> &work)
{
    const int threads = std::clamp(count, 1, std::max(1, QThread::idealThreadCount()));
    std::vector<std::unique_ptr<PieceWorker>> workers;
    workers.reserve(static_cast<std::size_t>(threads));
    for (int i = 0; i < threads; ++i)
        workers.push_back(std::make_unique<PieceWorker>(PieceWorker::Pieces{i, count, threads}, work));
    DrawingWorker::runAll(workers);
}

void forRowStripes(int rows, const std::function<void(cv::Range)> &work)
{
    constexpr int fewestRows = 64; // below that the threads cost more than they save
    const int count = std::clamp(rows / fewestRows, 1, std::max(1, QThread::idealThreadCount()));
    forEachSideBySide(count, [&](int i) { work(cv::Range(rows * i / count, rows * (i + 1) / count)); });
}
