// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include <algorithm>
#include <array>

namespace cli {
namespace {

constexpr std::array kCommands = {&kCat, &kDump, &kCheck, &kShift, &kStretch, &kFormat, &kExpand, &kCollapse,
    &kSort, &kBakeOffset, &kConvert, &kDiff, &kFields, &kExtract, &kEmbed};

} // namespace

std::span<const CommandInfo *const> allCommands()
{
    return kCommands;
}

const CommandInfo *commandNamed(std::string_view name)
{
    const auto *found = std::ranges::find(kCommands, name, &CommandInfo::name);
    return found == kCommands.end() ? nullptr : *found;
}

} // namespace cli
