// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

/// The commands, one a file in commands/.
namespace cli {

extern const CommandInfo kCat;
extern const CommandInfo kDump;
extern const CommandInfo kCheck;
extern const CommandInfo kShift;
extern const CommandInfo kStretch;
extern const CommandInfo kFormat;
extern const CommandInfo kExpand;
extern const CommandInfo kCollapse;
extern const CommandInfo kSort;
extern const CommandInfo kBakeOffset;
extern const CommandInfo kConvert;
extern const CommandInfo kDiff;
extern const CommandInfo kFields;
extern const CommandInfo kExtract;
extern const CommandInfo kEmbed;

} // namespace cli
