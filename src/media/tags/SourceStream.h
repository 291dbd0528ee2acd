// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/ByteSource.h"

#include <taglib/tiostream.h>

#include <string>

namespace tags {

/// A ByteSource as TagLib reads it: from `start` on, and no more than a bounded number of bytes
/// in all. It carries the file's name, which the library looks at, and cannot be written.
class SourceStream final : public TagLib::IOStream
{
public:
    /// What the library may read of one file, over and over or at once: 512 MiB.
    static constexpr std::uint64_t kBudgetBytes = 512ULL << 20;

    SourceStream(const ByteSource &source, std::uint64_t start, std::string name);

    /// Whether the library asked for more than it may have; what it made of the file is void.
    [[nodiscard]] bool isExhausted() const { return m_left == 0; }

    [[nodiscard]] TagLib::FileName name() const override { return m_name.c_str(); }
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector &) override { }
    void insert(const TagLib::ByteVector &, unsigned long, unsigned long) override { }
    void removeBlock(unsigned long, unsigned long) override { }
    [[nodiscard]] bool readOnly() const override { return true; }
    [[nodiscard]] bool isOpen() const override { return true; }
    void seek(long offset, Position from) override;
    [[nodiscard]] long tell() const override { return m_at; }
    [[nodiscard]] long length() override { return m_length; }
    void truncate(long) override { }

private:
    const ByteSource &m_source;
    std::uint64_t m_start;
    std::string m_name;
    long m_length;
    long m_at = 0;
    std::uint64_t m_left = kBudgetBytes;
};

} // namespace tags
