// SPDX-License-Identifier: MIT
#include "media/player/Library.h"

#include "media/player/GstPointers.h"

namespace media {

bool startLibrary()
{
    static const bool started = [] {
        GError *error = nullptr;
        const bool good = gst_init_check(nullptr, nullptr, &error) != FALSE;
        const GErrorPointer owned(error);
        return good;
    }();
    return started;
}

} // namespace media
