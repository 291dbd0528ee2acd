// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <string>
#include <string_view>

namespace editor {

/// The form in which a cell shows `stored` (UTF-8): one line, and a replacement mark for each
/// control character and each run of bytes that is no text.
[[nodiscard]] QString shownForm(std::string_view stored);

/// The bytes of a text whose shown form the user changed to `typed`.
///
/// Only what was typed is taken from `typed`: bytes that cannot be shown (they appear as a
/// replacement mark) stay as they are in `stored` where the user left them alone.
[[nodiscard]] std::string splicedText(std::string_view stored, const QString &typed);

} // namespace editor
