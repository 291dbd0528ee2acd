// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Transform.h"

namespace cli {
namespace {

constexpr std::string_view kDescription
    = R"(Reads a lyric and writes it back: the same bytes, whatever they are. With an
encoding it is the way to UTF-8. Several lyrics are written one behind the other.
)";
constexpr std::string_view kExamples = R"(  # the same bytes
  lrctool cat song.lrc | cmp - song.lrc

  # what an old program wrote, in UTF-8, and over the file once it looks right
  lrctool cat --guess-encoding old.lrc
  lrctool cat --encoding gb18030 --in-place old.lrc
)";

Verdict run(const Invocation &invocation)
{
    return transform(invocation, invocation.operands(), {});
}

} // namespace

const CommandInfo kCat{"cat", "[FILE…]", "reads and writes back: the same bytes", kDescription, kExamples,
    kTransformOptions, 0, kAnyNumber, run};

} // namespace cli
