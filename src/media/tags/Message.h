// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tags {

/// `pattern` with `parts` in the places of its `%1` to `%9`. A place without a part stays as it is.
[[nodiscard]] std::string filled(std::string_view pattern, const std::vector<std::string> &parts);

/// A sentence for people. It is English; what varies in it stands apart, so that who knows another language
/// can say the same in it.
struct Message
{
    Message() = default;
    Message(const char *sentence, std::vector<std::string> values = {});

    std::string pattern; ///< UTF-8; empty when there is nothing to say
    /// UTF-8: names, the system's reasons, phrases of a few words.
    std::vector<std::string> parts;

    [[nodiscard]] std::string english() const { return filled(pattern, parts); }
    [[nodiscard]] bool empty() const { return pattern.empty(); }
};

} // namespace tags
