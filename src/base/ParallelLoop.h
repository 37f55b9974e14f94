#pragma once

#include <cstddef>
#include <functional>

/// Does many pieces of work side by side, on as many threads as there are cores, and returns when all are done.
///
/// @param work  one piece, by its number; called from several threads. It must not throw.
/// @param done  called from the calling thread after each piece, in the order of their numbers.
void forEachInParallel(std::size_t count, const std::function<void(std::size_t)> &work,
                       const std::function<void()> &done);
