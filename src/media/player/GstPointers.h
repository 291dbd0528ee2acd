// SPDX-License-Identifier: MIT
#pragma once

#include <gst/gst.h>

#include <memory>

namespace media {

struct GstObjectUnref
{
    void operator()(gpointer object) const { gst_object_unref(object); }
};

/// Owns one reference to an object of the library.
template <typename T>
using GstPointer = std::unique_ptr<T, GstObjectUnref>;

struct GErrorFree
{
    void operator()(GError *error) const { g_error_free(error); }
};
using GErrorPointer = std::unique_ptr<GError, GErrorFree>;

struct GFree
{
    void operator()(gpointer memory) const { g_free(memory); }
};
using GString8 = std::unique_ptr<gchar, GFree>;

} // namespace media
