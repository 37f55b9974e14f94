#include "commands/CommandStack.h"

CommandStack &CommandStack::instance()
{
    static CommandStack stack;
    return stack;
}
