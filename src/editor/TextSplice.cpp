// SPDX-License-Identifier: MIT
#include "editor/TextSplice.h"

#include <QtCore/QByteArrayView>

#include <algorithm>

namespace editor {

namespace {

QString shown(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// The number of bytes whose shown form is `units` UTF-16 units long.
std::size_t bytesOfPrefix(std::string_view stored, qsizetype units)
{
    std::size_t bytes = 0;
    qsizetype seen = 0;
    while (bytes < stored.size() && seen < units) {
        // One character at a time; a broken one ends where the decoder goes on.
        std::size_t length = 1;
        while (length < 4 && bytes + length < stored.size()
            && (static_cast<unsigned char>(stored[bytes + length]) & 0xC0U) == 0x80U) {
            ++length;
        }
        seen += shown(stored.substr(bytes, length)).size();
        bytes += length;
    }
    return bytes;
}

} // namespace

std::string splicedText(std::string_view stored, const QString &typed)
{
    const QString before = shown(stored);
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
