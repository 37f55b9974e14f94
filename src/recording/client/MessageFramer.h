// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace gtl {

/// Cuts the bytes of the server into messages by the balance of braces, wherever packets were torn or merged.
///
/// A message begins with "{" and ends with the "}" that balances it. Strings play no part: a brace within one counts,
/// too. Bytes between messages are dropped. A message that grows beyond the limit without balance is dropped, and the
/// search begins anew behind it: whatever comes, no more than the limit is kept.
class MessageFramer {
public:
    static constexpr std::size_t defaultLimitBytes = std::size_t(1) << 20;

    explicit MessageFramer(std::size_t limitBytes = defaultLimitBytes) : m_limitBytes(limitBytes) {}

    struct Result {
        std::vector<std::string> messages; ///< complete by now, in their order
        std::size_t dropped = 0;           ///< messages that were given up since they had grown too large
    };

    /// Takes the next bytes. Their number of calls and their cuts make no difference.
    Result take(std::string_view bytes);

    std::size_t keptBytes() const { return m_message.size(); }

private:
    std::size_t m_limitBytes;
    std::string m_message; ///< begun, not complete
    std::size_t m_depth = 0;
};

} // namespace gtl
