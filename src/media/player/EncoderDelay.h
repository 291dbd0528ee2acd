// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

namespace media {

/// The silence that encoders put around the music and that stays in the library's timeline.
///
/// All in samples at `sampleRate`; a rate of 0 means that there is nothing to take off.
struct EncoderDelay
{
    std::uint32_t sampleRate = 0;
    /// In front, with the decoder's own part.
    std::uint32_t front = 0;
    /// Behind; 0 when the file does not say.
    std::uint32_t behind = 0;
    /// All samples of the file with the silence at both ends; 0 where the library knows it as
    /// well or the file is too long for counting.
    std::uint64_t total = 0;

    [[nodiscard]] double frontSeconds() const { return inSeconds(front); }
    [[nodiscard]] double behindSeconds() const { return inSeconds(behind); }
    [[nodiscard]] double totalSeconds() const { return inSeconds(static_cast<double>(total)); }

private:
    [[nodiscard]] double inSeconds(double samples) const
    {
        return sampleRate > 0 ? samples / sampleRate : 0.0;
    }
};

/// Looks into the file at `path`; the content decides, not the name.
///
/// Layer III: what the header of the first frame says, and where it says nothing what the encoder
/// that made nearly all such files does. Layer II and Windows Media Audio: what their coders do.
/// Everything else has its silence described in a way that the library honours, and an unreadable
/// file has none. Reads a few kilobytes, and all of an MPEG stream that does not tell its length:
/// of a variable rate the library only has a guess. Not for the GUI thread.
[[nodiscard]] EncoderDelay encoderDelayOf(const std::filesystem::path &path);

/// Where the music lies in the library's timeline. Seconds.
struct MusicSpan
{
    double front = 0; ///< before the music
    double length = 0; ///< of the music; 0 where the library has to be asked
};

/// What is left to be taken off when the library tells a length of `told` seconds (nothing when it cannot
/// say): newer releases of it take off by themselves what a file describes.
[[nodiscard]] MusicSpan musicSpan(const EncoderDelay &delay, std::optional<double> told);

/// The same as `encoderDelayOf` for the beginning of an MPEG audio stream, after any ID3v2 tag.
[[nodiscard]] EncoderDelay encoderDelayOfMpeg(std::span<const std::uint8_t> start);

/// The same for the content of an MPEG-4 file's "moov": what an encoder says in the tags and not
/// in the list of edits, which the library follows.
[[nodiscard]] EncoderDelay encoderDelayOfMp4(std::span<const std::uint8_t> moov);

/// The same for the header of an ASF file.
[[nodiscard]] EncoderDelay encoderDelayOfAsf(std::span<const std::uint8_t> start);

} // namespace media
