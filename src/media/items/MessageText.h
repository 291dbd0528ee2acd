// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tags {
struct Message;
} // namespace tags

namespace media {

/// `message` in the user's language, what varies in it included where that is words; see catalogue::Texts.
/// GUI thread.
[[nodiscard]] QString messageText(const tags::Message &message);

} // namespace media
