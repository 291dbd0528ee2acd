// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tags {

/// Bytes that can be read anywhere, from memory or from a file that is too large for it.
class ByteSource
{
public:
    virtual ~ByteSource() = default;

    [[nodiscard]] virtual std::uint64_t size() const = 0;
    /// Up to `count` bytes from `offset`; fewer, or none, at the end or when reading fails.
    [[nodiscard]] virtual std::string read(std::uint64_t offset, std::size_t count) const = 0;
    /// Whether some read came back short for another reason than the end: what was read is void then.
    [[nodiscard]] virtual bool hasFailed() const { return false; }

protected:
    ByteSource() = default;
    ByteSource(const ByteSource &) = default;
    ByteSource &operator=(const ByteSource &) = default;
};

/// Bytes in memory, which it owns.
class MemorySource final : public ByteSource
{
public:
    explicit MemorySource(std::string bytes) : m_bytes(std::move(bytes)) { }

    [[nodiscard]] std::uint64_t size() const override { return m_bytes.size(); }
    [[nodiscard]] std::string read(std::uint64_t offset, std::size_t count) const override
    {
        return offset < m_bytes.size() ? m_bytes.substr(std::size_t(offset), count) : std::string();
    }
    [[nodiscard]] const std::string &bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

/// The number in the first `bytes` bytes of `text` from `offset`, most significant first; 0
/// where the text is too short.
[[nodiscard]] inline std::uint64_t bigEndian(std::string_view text, std::size_t offset, std::size_t bytes)
{
    if (offset > text.size() || text.size() - offset < bytes)
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        value = (value << 8) | static_cast<unsigned char>(text[offset + i]);
    return value;
}

/// The same, least significant first.
[[nodiscard]] inline std::uint64_t littleEndian(std::string_view text, std::size_t offset, std::size_t bytes)
{
    if (offset > text.size() || text.size() - offset < bytes)
        return 0;
    std::uint64_t value = 0;
    for (std::size_t i = bytes; i-- > 0;)
        value = (value << 8) | static_cast<unsigned char>(text[offset + i]);
    return value;
}

/// `value` in `bytes` bytes, most significant first; higher bits are lost.
[[nodiscard]] inline std::string toBigEndian(std::uint64_t value, std::size_t bytes)
{
    std::string out(bytes, '\0');
    for (std::size_t i = bytes; i-- > 0; value >>= 8)
        out[i] = static_cast<char>(value & 0xFF);
    return out;
}

/// The same, least significant first.
[[nodiscard]] inline std::string toLittleEndian(std::uint64_t value, std::size_t bytes)
{
    std::string out(bytes, '\0');
    for (std::size_t i = 0; i < bytes; ++i, value >>= 8)
        out[i] = static_cast<char>(value & 0xFF);
    return out;
}

} // namespace tags
