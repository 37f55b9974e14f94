// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "recording/client/Records.h"

#include <boost/property_tree/ptree_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>

/// How the server's messages are read. A value that is absent or does not parse leaves the field as it was.
namespace gtl::replies {

using Tree = boost::property_tree::ptree;

inline constexpr int deepestNesting = 64;

/// Whether braces and brackets outside of strings lie more than `deepestNesting` deep in each other: reading would take
/// the stack for each of them.
bool isTooDeep(std::string_view text);

/// The message as a tree; nothing where it is no JSON or too deep.
std::optional<Tree> parse(const std::string &text);

/// The text below a key, empty where it is absent.
std::string textAt(const Tree &tree, const char *key);

/// A whole number of 32 bits; nothing for any other text.
std::optional<std::int32_t> numberAt(const Tree &tree, const char *key);

void read(const Tree &tree, GazeData &frame);
void read(const Tree &tree, CalibResult &result);
void read(const Tree &tree, ServerState &state);
void read(const Tree &tree, Screen &screen);

} // namespace gtl::replies
