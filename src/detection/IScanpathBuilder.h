// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// A detector of fixations. Each does its whole work in its constructor, which reads the samples of one eye and writes
/// its section lists; the object is then only asked what it did.
class IScanpathBuilder {
public:
    virtual ~IScanpathBuilder() = default;

    /// What the user is told about the run; empty where the detector has nothing to say.
    virtual QString report() const = 0;
};
