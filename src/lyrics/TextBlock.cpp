// SPDX-License-Identifier: MIT
#include "lyrics/TextBlock.h"

#include <cstring>
#include <new>

namespace lyrics {

TextBlock *TextBlock::create(std::size_t size)
{
    void *memory = ::operator new(sizeof(TextBlock) + size);
    return new (memory) TextBlock(size);
}

void TextBlock::destroy()
{
    this->~TextBlock();
    ::operator delete(static_cast<void *>(this));
}

BlockRef BlockRef::copyOf(std::string_view text)
{
    BlockRef block(TextBlock::create(text.size()));
    if (!text.empty())
        std::memcpy(block.get()->writableData(), text.data(), text.size());
    return block;
}

} // namespace lyrics
