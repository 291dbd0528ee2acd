// SPDX-License-Identifier: MIT
#include "media/tags/Message.h"

#include <utility>

namespace tags {

std::string filled(std::string_view pattern, const std::vector<std::string> &parts)
{
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const std::size_t place
            = pattern[i] == '%' && i + 1 < pattern.size() ? std::size_t(pattern[i + 1] - '1') : 9;
        if (place < 9 && place < parts.size()) {
            text += parts[place];
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

Message::Message(const char *sentence, std::vector<std::string> values)
    : pattern(sentence), parts(std::move(values))
{ }

} // namespace tags
