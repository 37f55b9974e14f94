// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Mark of a command that changes what is drawn. After each step on the stack that ran such commands, the window draws.
/// Parameters are without it: they reach the picture when the user asks for it.
class ChangesPicture {
public:
    virtual ~ChangesPicture() = default;
};
