// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

/// Audio files for tests, made when they are needed.
namespace audiofiles {

constexpr int kSampleRate = 44100;

/// Noise in which every stretch differs from every other: mono, -0.5 to 0.5, up to about 6 kHz, so
/// that it survives lossy coding.
[[nodiscard]] std::vector<float> noise(double seconds);

/// Writes mono 16-bit PCM. False when it cannot.
bool writeWave(const QString &path, const std::vector<float> &samples);

/// Codes the file `source` as `target` says by its suffix, with `options` in front of the target
/// and `inputs` behind the source. False, with a warning, when the coder fails.
bool encode(const QString &source, const QString &target, const QStringList &options = {},
    const QStringList &inputs = {});

/// The bytes of an MPEG-4 file, whose tags come last, with one more tag: what some encoders write
/// instead of a list of edits.
[[nodiscard]] QByteArray withGaplessField(QByteArray file, const QByteArray &text);

} // namespace audiofiles
