// SPDX-License-Identifier: MIT
#include "editor/TextSplice.h"

#include "lyrics/DisplayText.h"

#include <QtCore/QByteArrayView>

#include <algorithm>

namespace editor {

namespace {

std::size_t continuationBytes(unsigned char lead)
{
    if (lead >= 0xF0) {
        return 3;
    }
    if (lead >= 0xE0) {
        return 2;
    }
    return lead >= 0xC0 ? 1 : 0;
}

bool isOneCharacter(const QString &shown)
{
    return shown.size() == 1 || (shown.size() == 2 && shown[0].isHighSurrogate());
}

// The length of the first character of `bytes`, or of the wrong part that is shown as one.
std::size_t firstCharacterLength(std::string_view bytes)
{
    const std::size_t most
        = std::min(bytes.size(), 1 + continuationBytes(static_cast<unsigned char>(bytes[0])));
    std::size_t length = 1;
    while (length < most && (static_cast<unsigned char>(bytes[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return isOneCharacter(shownForm(bytes.substr(0, length))) ? length : 1;
}

// The number of bytes whose shown form is `units` UTF-16 units long.
std::size_t bytesOfPrefix(std::string_view stored, qsizetype units)
{
    std::size_t bytes = 0;
    qsizetype seen = 0;
    while (bytes < stored.size() && seen < units) {
        const std::size_t length = firstCharacterLength(stored.substr(bytes));
        seen += shownForm(stored.substr(bytes, length)).size();
        bytes += length;
    }
    return bytes;
}

} // namespace

QString shownForm(std::string_view stored)
{
    std::u16string shown;
    lyrics::appendDisplayText(shown, stored);
    return QString::fromStdU16String(shown);
}

std::string splicedText(std::string_view stored, const QString &typed)
{
    const QString before = shownForm(stored);
    const QByteArray typedBytes = typed.toUtf8();
    if (before.toUtf8() == QByteArrayView(stored.data(), static_cast<qsizetype>(stored.size()))) {
        return typedBytes.toStdString();
    }

    const auto *const oldEnd = std::mismatch(before.begin(), before.end(), typed.begin(), typed.end()).first;
    qsizetype prefix = oldEnd - before.begin();
    if (prefix > 0 && before[prefix - 1].isHighSurrogate()) {
        --prefix;
    }
    qsizetype suffix = 0;
    const qsizetype most = std::min(before.size(), typed.size()) - prefix;
    while (suffix < most && before[before.size() - 1 - suffix] == typed[typed.size() - 1 - suffix]) {
        ++suffix;
    }
    if (suffix > 0 && before[before.size() - suffix].isLowSurrogate()) {
        --suffix;
    }
    const std::size_t firstByte = bytesOfPrefix(stored, prefix);
    const std::size_t lastByte = bytesOfPrefix(stored, before.size() - suffix);
    std::string result(stored.substr(0, firstByte));
    result += typed.sliced(prefix, typed.size() - prefix - suffix).toUtf8().toStdString();
    result += stored.substr(lastByte);
    return result;
}

} // namespace editor
