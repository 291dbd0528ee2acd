// SPDX-License-Identifier: MIT
#include "media/player/Library.h"

#include "media/player/GstPointers.h"

#include <QtCore/QThreadPool>

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

void startLibraryAhead()
{
    QThreadPool::globalInstance()->start([] { startLibrary(); });
}

} // namespace media
