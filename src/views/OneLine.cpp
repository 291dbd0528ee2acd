// SPDX-License-Identifier: MIT
#include "views/OneLine.h"

#include <algorithm>

namespace views {

namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char16_t kBlank = u' ';

bool isLineBreak(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
    case u'\r':
    case 0x000B:
    case 0x000C:
    case 0x0085:
    case 0x2028:
    case 0x2029:
        return true;
    default:
        return false;
    }
}

// A text document marks its frames and its pictures with these.
bool isDocumentMark(QChar character)
{
    const char16_t code = character.unicode();
    return code == 0xFDD0 || code == 0xFDD1 || code == 0xFFFC;
}

// Of the line break that begins at `at`: the pair counts as one.
qsizetype lineBreakLength(const QString &text, qsizetype at)
{
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
}

QStringView withoutLastLineEnd(const QString &text)
{
    if (text.isEmpty() || !isLineBreak(text.back())) {
        return text;
    }
    return QStringView(text).chopped(text.endsWith(QLatin1String("\r\n")) ? 2 : 1);
}

} // namespace

bool isSeveralLines(const QString &text)
{
    const QStringView lines = withoutLastLineEnd(text);
    return std::any_of(lines.begin(), lines.end(), isLineBreak);
}

QString asOneLine(const QString &text)
{
    const qsizetype length = withoutLastLineEnd(text).size();
    QString line;
    line.reserve(length);
    for (qsizetype at = 0; at < length;) {
        if (isLineBreak(text[at])) {
            line.append(kBlank);
            at += lineBreakLength(text, at);
        } else {
            line.append(isDocumentMark(text[at]) ? QChar(kReplacement) : text[at]);
            ++at;
        }
    }
    return line;
}

QString withoutWhatNoLineHolds(const QString &text)
{
    QString shown = text;
    for (QChar &character : shown) {
        if (isLineBreak(character)) {
            character = QChar(kBlank);
        } else if (isDocumentMark(character)) {
            character = QChar(kReplacement);
        }
    }
    return shown;
}

QString withOriginalsOf(const QString &given, const QString &shown, const QString &edited)
{
    if (edited == shown) {
        return given;
    }
    const auto atStart = std::mismatch(shown.begin(), shown.end(), edited.begin(), edited.end()).first;
    const qsizetype prefix = atStart - shown.begin();
    const qsizetype most = std::min(shown.size(), edited.size()) - prefix;
    qsizetype suffix = 0;
    while (suffix < most && shown[shown.size() - 1 - suffix] == edited[edited.size() - 1 - suffix]) {
        ++suffix;
    }
    return given.left(prefix) + withoutWhatNoLineHolds(edited.mid(prefix, edited.size() - prefix - suffix))
        + given.right(suffix);
}

} // namespace views
