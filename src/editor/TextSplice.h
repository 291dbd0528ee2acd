// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <string>
#include <string_view>

namespace editor {

/// The form in which a cell shows `stored` (UTF-8): one line, and a replacement mark for each
/// control character and each run of bytes that is no text.
[[nodiscard]] QString shownForm(std::string_view stored);

/// The bytes of `stored` that are shown in its first `units` UTF-16 units, never a part of a character.
[[nodiscard]] qsizetype bytesOfPrefix(std::string_view stored, qsizetype units);

/// The one piece in which two texts differ, in UTF-16 units.
struct TextChange
{
    qsizetype position = 0;
    qsizetype removed = 0;
    qsizetype added = 0;

    [[nodiscard]] bool isNone() const { return removed == 0 && added == 0; }
};

/// What has to be replaced in `before` to make it `after`: all behind the longest common beginning and
/// before the longest common end of the rest. No surrogate pair is torn.
[[nodiscard]] TextChange changeBetween(QStringView before, QStringView after);

/// The bytes of a text whose shown form the user changed to `typed`.
///
/// Only what was typed is taken from `typed`: bytes that cannot be shown (they appear as a
/// replacement mark) stay as they are in `stored` where the user left them alone.
[[nodiscard]] std::string splicedText(std::string_view stored, const QString &typed);

} // namespace editor
