#pragma once

#include "import/ExaminationImport.h"

#include <functional>

/// Reads recordings and their set files side by side.
///
/// @param jobs   number of threads, at least 1.
/// @param taken  called in the calling thread for each file in the order of the paths, whatever the order in which they
///               were read.
void readRecordings(const QStringList &paths, int jobs, const std::function<void(const ImportedFile &)> &taken);
