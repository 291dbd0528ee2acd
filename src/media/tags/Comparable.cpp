// SPDX-License-Identifier: MIT
#include "media/tags/Comparable.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Hash.h"

#include <algorithm>

namespace tags {

namespace {

constexpr std::size_t kBlockBytes = 1U << 16;

std::string digest(std::uint64_t size, const Hash &hash)
{
    return "digest " + std::to_string(size) + ' ' + std::to_string(hash.value());
}

} // namespace

std::string comparable(std::string_view bytes)
{
    return bytes.size() <= kBlockBytes ? std::string(bytes) : digest(bytes.size(), Hash().add(bytes));
}

std::string comparable(const ByteSource &source, std::uint64_t offset, std::uint64_t size)
{
    if (size <= kBlockBytes)
        return source.read(offset, std::size_t(size));
    Hash hash;
    for (std::uint64_t done = 0; done < size; done += kBlockBytes)
        hash.add(source.read(offset + done, std::size_t(std::min<std::uint64_t>(kBlockBytes, size - done))));
    return digest(size, hash);
}

} // namespace tags
