// SPDX-License-Identifier: MIT
#include "editor/TextSplice.h"

#include "lyrics/DisplayText.h"

#include <QtCore/QByteArrayView>

#include <algorithm>

namespace editor {

QString shownForm(std::string_view stored)
{
    std::u16string shown;
    lyrics::appendDisplayText(shown, stored);
    // The conversions of QString would take U+FEFF at the beginning for a byte-order mark and drop it.
    return QStringView(shown.data(), static_cast<qsizetype>(shown.size())).toString();
}

qsizetype bytesOfPrefix(std::string_view stored, qsizetype units)
{
    return static_cast<qsizetype>(lyrics::displayExtent(stored, static_cast<std::size_t>(units)).bytes);
}

TextChange changeBetween(QStringView before, QStringView after)
{
    const auto *const oldEnd = std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    qsizetype prefix = oldEnd - before.begin();
    if (prefix > 0 && before[prefix - 1].isHighSurrogate()) {
        --prefix;
    }
    qsizetype suffix = 0;
    const qsizetype most = std::min(before.size(), after.size()) - prefix;
    while (suffix < most && before[before.size() - 1 - suffix] == after[after.size() - 1 - suffix]) {
        ++suffix;
    }
    if (suffix > 0 && before[before.size() - suffix].isLowSurrogate()) {
        --suffix;
    }
    return {prefix, before.size() - prefix - suffix, after.size() - prefix - suffix};
}

std::string splicedText(std::string_view stored, const QString &typed)
{
    const QString before = shownForm(stored);
    const QByteArray typedBytes = typed.toUtf8();
    if (before.toUtf8() == QByteArrayView(stored.data(), static_cast<qsizetype>(stored.size()))) {
        return typedBytes.toStdString();
    }

    const TextChange change = changeBetween(before, typed);
    const auto bytesBefore
        = [stored](qsizetype units) { return static_cast<std::size_t>(bytesOfPrefix(stored, units)); };
    std::string result(stored.substr(0, bytesBefore(change.position)));
    result += typed.sliced(change.position, change.added).toUtf8().toStdString();
    result += stored.substr(bytesBefore(change.position + change.removed));
    return result;
}

} // namespace editor
