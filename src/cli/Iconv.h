// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cli {

/// Whether the system converts from the encoding of that name.
[[nodiscard]] bool isEncoding(const std::string &name);

/// What became of a conversion.
struct Converted
{
    std::string text; ///< UTF-8
    /// The first byte, from 0, that is nothing in that encoding.
    std::optional<std::size_t> wrongAt;
};

/// `bytes` in UTF-8, read as `name`, which has to be an encoding. A byte-order mark at the beginning is left
/// off.
[[nodiscard]] Converted toUtf8(std::string_view bytes, const std::string &name);

} // namespace cli
