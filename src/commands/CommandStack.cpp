// SPDX-License-Identifier: GPL-3.0-or-later
#include "commands/CommandStack.h"

CommandStack &CommandStack::instance()
{
    static CommandStack stack;
    return stack;
}
