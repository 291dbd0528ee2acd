// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/LyricFields.h"

#include <string>

namespace tags {

/// What shall become of one lyric field.
struct FieldEdit
{
    LyricPlace place;
    std::string text; ///< empty: the field goes
};

} // namespace tags
