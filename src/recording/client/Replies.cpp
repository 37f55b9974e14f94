// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/client/Replies.h"

#include <boost/property_tree/json_parser.hpp>

#include <algorithm>
#include <charconv>
#include <sstream>

namespace gtl::replies {

namespace {

bool isDecimalDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The whole text as a number; words such as "nan" are none.
template <class Number>
std::optional<Number> numberOf(std::string_view text)
{
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    if (text.size() <= sign || !isDecimalDigit(text[sign]))
        return {};
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return {};
    return number;
}

template <class Number>
void readValue(const std::string &text, Number &field)
{
    if (const auto number = numberOf<Number>(text))
        field = *number;
}

void readValue(const std::string &text, bool &field)
{
    if (text == "true" || text == "false")
        field = text == "true";
}

/// A key as it stands: a "." in it would be a path to the tree.
const Tree *below(const Tree &tree, const char *key)
{
    const auto found = tree.find(key);
    return found == tree.not_found() ? nullptr : &found->second;
}

template <class Field>
void readField(const Tree &tree, const char *key, Field &field)
{
    if (const Tree *value = below(tree, key))
        readValue(value->data(), field);
}

void readField(const Tree &tree, const char *key, Point2D &point)
{
    if (const Tree *value = below(tree, key)) {
        readField(*value, "x", point.x);
        readField(*value, "y", point.y);
    }
}

void readField(const Tree &tree, const char *key, Eye &eye)
{
    if (const Tree *value = below(tree, key)) {
        readField(*value, "raw", eye.raw);
        readField(*value, "avg", eye.avg);
        readField(*value, "psize", eye.psize);
        readField(*value, "pcenter", eye.pcenter);
    }
}

void readPoint(const Tree &tree, CalibPoint &point)
{
    readField(tree, "state", point.state);
    readField(tree, "cp", point.cp);
    readField(tree, "mecp", point.mecp);
    if (const Tree *accuracy = below(tree, "acd")) {
        readField(*accuracy, "ad", point.acd.ad);
        readField(*accuracy, "adl", point.acd.adl);
        readField(*accuracy, "adr", point.acd.adr);
    }
    if (const Tree *error = below(tree, "mepix")) {
        readField(*error, "mep", point.mepix.mep);
        readField(*error, "mepl", point.mepix.mepl);
        readField(*error, "mepr", point.mepix.mepr);
    }
    if (const Tree *deviation = below(tree, "asdp")) {
        readField(*deviation, "asd", point.asdp.asd);
        readField(*deviation, "asdl", point.asdp.asdl);
        readField(*deviation, "asdr", point.asdp.asdr);
    }
}

} // namespace

bool isTooDeep(std::string_view text)
{
    int depth = 0;
    int deepest = 0;
    bool isString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isString && c == '\\')
            ++i;
        else if (c == '"')
            isString = !isString;
        else if (!isString && (c == '{' || c == '['))
            deepest = std::max(deepest, ++depth);
        else if (!isString && (c == '}' || c == ']'))
            --depth;
    }
    return deepest > deepestNesting;
}

std::optional<Tree> parse(const std::string &text)
{
    if (isTooDeep(text))
        return {};
    std::istringstream stream(text);
    Tree tree;
    try {
        boost::property_tree::read_json(stream, tree);
    } catch (const boost::property_tree::json_parser_error &) {
        return {};
    }
    return tree;
}

std::string textAt(const Tree &tree, const char *key)
{
    const Tree *value = below(tree, key);
    return value ? value->data() : std::string();
}

std::optional<std::int32_t> numberAt(const Tree &tree, const char *key)
{
    return numberOf<std::int32_t>(textAt(tree, key));
}

void read(const Tree &tree, GazeData &frame)
{
    readField(tree, "time", frame.time);
    readField(tree, "fix", frame.fix);
    readField(tree, "state", frame.state);
    readField(tree, "raw", frame.raw);
    readField(tree, "avg", frame.avg);
    readField(tree, "lefteye", frame.lefteye);
    readField(tree, "righteye", frame.righteye);
}

void read(const Tree &tree, CalibResult &result)
{
    readField(tree, "result", result.result);
    readField(tree, "deg", result.deg);
    readField(tree, "degl", result.degl);
    readField(tree, "degr", result.degr);
    if (const Tree *points = below(tree, "calibpoints")) {
        result.calibpoints.clear();
        for (const auto &[key, point] : *points) {
            result.calibpoints.emplace_back();
            readPoint(point, result.calibpoints.back());
        }
    }
}

void read(const Tree &tree, ServerState &state)
{
    readField(tree, "push", state.push);
    readField(tree, "heartbeatinterval", state.heartbeatinterval);
    readField(tree, "version", state.version);
    readField(tree, "trackerstate", state.trackerstate);
    readField(tree, "framerate", state.framerate);
    readField(tree, "iscalibrated", state.iscalibrated);
    readField(tree, "iscalibrating", state.iscalibrating);
}

void read(const Tree &tree, Screen &screen)
{
    readField(tree, "screenindex", screen.screenindex);
    readField(tree, "screenresw", screen.screenresw);
    readField(tree, "screenresh", screen.screenresh);
    readField(tree, "screenpsyw", screen.screenpsyw);
    readField(tree, "screenpsyh", screen.screenpsyh);
}

} // namespace gtl::replies
