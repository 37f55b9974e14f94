// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of any kind from the tracker's server, cut into packets of any size: framing, and the messages that come of it.

#include "Check.h"
#include "recording/client/MessageFramer.h"
#include "recording/client/Replies.h"
#include "recording/PlainFramer.h"

#include <boost/property_tree/ptree.hpp>

#include <algorithm>

namespace {

constexpr std::size_t limitBytes = 600; ///< small, so that it is reached

template <class Record>
void read(const gtl::replies::Tree &tree)
{
    Record record;
    gtl::replies::read(tree, record);
    const Record once = record;
    gtl::replies::read(tree, record);
    check(record == once); // what a message holds does not depend on what was there before
    gtl::replies::read(gtl::replies::Tree(), record);
    check(record == once);
}

void readMessage(const std::string &message)
{
    check(message.front() == '{' && message.back() == '}' && message.size() <= limitBytes);
    const auto tree = gtl::replies::parse(message);
    if (!tree)
        return;
    check(!gtl::replies::isTooDeep(message));
    gtl::replies::numberAt(*tree, "statuscode");
    read<gtl::GazeData>(*tree);
    read<gtl::CalibResult>(*tree);
    read<gtl::ServerState>(*tree);
    read<gtl::Screen>(*tree);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t packetBytes = data[0] + std::size_t(1);
    const std::string bytes(data + 1, data + size);
    gtl::MessageFramer framer(limitBytes);
    std::vector<std::string> messages;
    std::size_t dropped = 0;
    for (std::size_t at = 0; at < bytes.size(); at += packetBytes) {
        const auto result = framer.take(std::string_view(bytes).substr(at, packetBytes));
        messages.insert(messages.end(), result.messages.begin(), result.messages.end());
        dropped += result.dropped;
        check(framer.keptBytes() < limitBytes);
    }
    PlainFramer plain(limitBytes);
    for (const char byte : bytes)
        plain.take(byte);
    check(messages == plain.messages && dropped == plain.dropped);
    std::for_each(messages.begin(), messages.end(), readMessage);
    return 0;
}
