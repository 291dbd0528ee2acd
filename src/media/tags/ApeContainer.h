// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Container.h"

#include <memory>

namespace tags {

/// The structure of a file whose tag is an APE tag at its end: Monkey's Audio, WavPack, Musepack. `source`
/// must outlive it.
[[nodiscard]] ContainerOutcome parseApeTagged(const ByteSource &source, Format format);

/// `inner`, the structure of `source`, with the lyrics of an APE tag at the file's end after its own and the
/// other items among its other fields. `inner` itself when there is no such tag, or one that cannot be
/// understood, which then stays part of the audio as it is.
[[nodiscard]] std::shared_ptr<const Container> withApeTag(
    std::shared_ptr<const Container> inner, const ByteSource &source);

} // namespace tags
