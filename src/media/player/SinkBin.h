// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

struct _GstElement;

namespace media {

enum class OutputKind {
    /// What the host gave, or else the system's sound device.
    Preferred,
    /// A clock that keeps real time, without a sound.
    Silent,
};

/// The end of a pipeline: takes whatever is decoded and hands it to the output. Floating.
///
/// Null when a part of the library is not installed.
[[nodiscard]] _GstElement *makeSinkBin(const std::function<_GstElement *()> &makeSink, OutputKind kind);

} // namespace media
