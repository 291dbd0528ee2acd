// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>

struct _GstElement;

namespace media {

/// Puts into `pipeline` what reads and decodes the file at `path`, and leads its first sound to
/// `sink`, which is in the pipeline already.
///
/// Pictures and films beside the sound are not decoded. `noSound` is called on a thread of the
/// library when all streams are known and none is a sound. False when a part of the library is
/// not installed.
///
/// One reader and one decoder of our own, and not the library's ready-made player: that one can
/// lose the first stream when a file opens faster than the rest of it starts, and then never
/// comes to a sound.
bool addAudioSource(
    _GstElement *pipeline, const QString &path, _GstElement *sink, std::function<void()> noSound);

} // namespace media
