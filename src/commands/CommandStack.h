// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUndoStack>

/// The one undo stack of the process. Changes of parameters and the calculations of fixations and clusters are commands
/// on it; commands never merge, there is no undo limit, and the stack is never cleared.
class CommandStack : public QUndoStack {
    Q_OBJECT
public:
    /// Created on first use, destroyed at exit.
    static CommandStack &instance();

private:
    CommandStack() = default;
};
