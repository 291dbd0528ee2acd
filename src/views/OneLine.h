// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace views {

/// Whether more than one line of text is in `text`. What ends the last line begins no other.
[[nodiscard]] bool isSeveralLines(const QString &text);

/// `text` as one line: a blank for each line break, none for the last line's end, and a
/// replacement mark for what a text document keeps for itself.
[[nodiscard]] QString asOneLine(const QString &text);

/// `text` with another character in the place of each that a document of one line cannot hold.
/// As many UTF-16 units as before, every other one the same.
[[nodiscard]] QString withoutWhatNoLineHolds(const QString &text);

/// What `given`, shown as `shown` (unit by unit), became by one edit after which `edited` is shown:
/// what is not part of the edit is what was given.
[[nodiscard]] QString withOriginalsOf(const QString &given, const QString &shown, const QString &edited);

} // namespace views
