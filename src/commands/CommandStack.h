// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUndoStack>

/// The one undo stack of the process. Every change of a parameter and every calculation is a command on it; commands
/// never merge, there is no undo limit, and the stack is never cleared.
class CommandStack : public QUndoStack {
    Q_OBJECT
public:
    /// Created on first use, destroyed at exit.
    static CommandStack &instance();

private:
    CommandStack() = default;
};
