// SPDX-License-Identifier: MIT
#pragma once

#include "lyrics/LineAccess.h"

#include <string_view>

namespace lyrics {

/// One ID tag as it is spelled: `[key:value]`.
struct IdTag
{
    std::string_view key;
    /// Between the colon and the closing bracket, blanks included.
    std::string_view value;
    /// Behind the closing bracket.
    const char *end = nullptr;
    /// One of the four, or `OtherTag`.
    LineAccess::Kind kind = LineAccess::Kind::OtherTag;
    /// The key is one that lyrics are known to have; any other is only a word.
    bool isKnown = false;
};

/// Reads what has the shape of an ID tag at `p`, a `[`: one short bare word, a colon, and a value in which
/// brackets balance. Cost: linear in the bytes up to `end`.
[[nodiscard]] bool readIdTag(const char *p, const char *end, IdTag &tag);

/// Whether `text` is one ID tag and nothing else, with a known key that is none of the four.
[[nodiscard]] bool isKnownOtherTag(std::string_view text);

/// The one of the four keys that `word` is, in any case; `Text` when it is none.
[[nodiscard]] LineAccess::Kind propertyKey(std::string_view word);
/// "ti" for `Title` and so on; empty for what is no key.
[[nodiscard]] std::string_view propertyName(LineAccess::Kind key);

} // namespace lyrics
