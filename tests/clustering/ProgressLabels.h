// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"

#include <QStringList>

/// Keeps which progress is opened while it lives, each as label and number of steps. How often progress is shown
/// depends on the speed of the machine.
class ProgressLabels {
public:
    ProgressLabels() { m_before = Progress::install(std::make_unique<Display>(m_opened)); }
    ~ProgressLabels() { Progress::install(std::move(m_before)); }
    ProgressLabels(const ProgressLabels &) = delete;
    ProgressLabels &operator=(const ProgressLabels &) = delete;

    /// Without those that only came back after another one.
    QStringList opened() const
    {
        QStringList labels = m_opened;
        labels.removeDuplicates();
        return labels;
    }

private:
    class Display : public Progress::IDisplay {
    public:
        explicit Display(QStringList &opened) : m_opened(opened) {}
        void open(const QString &label, int steps) override { m_opened << label + u' ' + QString::number(steps); }
        void show(int) override {}
        void close() override {}

    private:
        QStringList &m_opened;
    };

    QStringList m_opened;
    std::unique_ptr<Progress::IDisplay> m_before;
};
