// SPDX-License-Identifier: MIT
#include "media/player/ByteSource.h"

#include <algorithm>

namespace media {

std::vector<std::uint8_t> readAt(std::ifstream &file, std::uint64_t offset, std::size_t most)
{
    std::vector<std::uint8_t> bytes(most);
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(reinterpret_cast<char *>(bytes.data()), static_cast<std::streamsize>(most));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

} // namespace media
