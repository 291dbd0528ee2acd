// SPDX-License-Identifier: MIT
#include "editor/SourceMerge.h"

#include <algorithm>

namespace editor {

std::optional<QByteArray> withEdit(const SourceText &base, const QByteArray &now, const SourceEdit &edit)
{
    SourceText text = base;
    LineChange change = text.setStored(now);
    const auto line = [](const SourceText &of, qsizetype at) { return of.shownLines(at, 1).constFirst(); };
    while (std::min(change.before, change.now) > 0 && line(base, change.first) == line(text, change.first)) {
        change = {change.first + 1, change.before - 1, change.now - 1};
    }
    qsizetype first = base.lineAt(edit.position);
    const qsizetype last = base.lineAt(edit.position + edit.removed);
    if (first > 0 && line(base, first).isEmpty()) {
        --first;
    }
    const bool isBefore = last < change.first;
    const bool isBehind = first >= change.first + change.before;
    if (!isBefore && !isBehind) {
        return std::nullopt;
    }
    const qsizetype moved = isBefore ? 0 : text.shownSize() - base.shownSize();
    text.edit(edit.position + moved, edit.removed, edit.added);
    return text.stored();
}

} // namespace editor
