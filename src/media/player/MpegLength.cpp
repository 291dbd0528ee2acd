// SPDX-License-Identifier: MIT
#include "media/player/MpegLength.h"

#include "media/player/ByteSource.h"
#include "media/player/MpegFrame.h"

#include <algorithm>
#include <optional>
#include <span>

namespace media {

namespace {

constexpr std::size_t kWindowBytes = 256 * 1024;
constexpr std::size_t kHeaderBytes = 4;
// Three quarters of an hour at the usual rates, and half a second of reading.
constexpr std::uint64_t kMostBytes = 64ULL * 1024 * 1024;

/// Goes from frame to frame through a stream that comes in windows.
class FrameCounter
{
public:
    [[nodiscard]] std::uint64_t samples() const { return m_samples; }

    /// How many bytes are done with: past the end of `window` when a frame reaches over it.
    std::size_t count(std::span<const std::uint8_t> window)
    {
        std::size_t at = 0;
        while (at + kHeaderBytes <= window.size()) {
            at = step(window, at);
        }
        return at;
    }

private:
    std::size_t step(std::span<const std::uint8_t> window, std::size_t at)
    {
        const auto frame = readMpegFrame(window.subspan(at));
        if (frame && m_first && frame->isLike(*m_first)) {
            m_samples += frame->samples;
            return at + frame->bytes;
        }
        // Not in step: at the beginning, or in a tag or damage between the frames.
        const std::size_t from = m_first ? at + 1 : at;
        const auto found = findMpegFrame(window.subspan(from));
        if (!found) {
            return std::max(at + 1, window.size() - kHeaderBytes + 1);
        }
        m_first = m_first ? m_first : readMpegFrame(window.subspan(from + *found));
        return from + *found;
    }

    std::optional<MpegFrame> m_first;
    std::uint64_t m_samples = 0;
};

} // namespace

std::uint64_t countMpegSamples(std::ifstream &file, std::uint64_t offset)
{
    FrameCounter counter;
    const std::uint64_t end = offset + kMostBytes;
    for (std::uint64_t at = offset; at < end;) {
        const auto window = readAt(file, at, kWindowBytes);
        if (window.size() < kHeaderBytes) {
            return counter.samples();
        }
        at += counter.count(window);
    }
    return 0;
}

} // namespace media
