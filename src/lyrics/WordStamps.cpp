// SPDX-License-Identifier: MIT
#include "lyrics/WordStamps.h"

#include "lyrics/Blanks.h"
#include "lyrics/LineAccess.h"
#include "lyrics/StampText.h"

#include <algorithm>

namespace lyrics {
namespace {

/// Calls `visit` with each stamp of the line's text.
template <typename Visit>
void forEachStamp(const RBSongLine &line, Visit visit)
{
    if (!LineAccess::canHaveStamps(line))
        return;
    const std::string_view text = line.lineText();
    const char *p = text.data();
    const char *const end = p + text.size();
    const ColonReading reading = LineAccess::colonReading(line);
    for (StampSpelling stamp; findStamp(p, end, reading, stamp); p = stamp.end)
        visit(stamp);
}

} // namespace

bool hasWordStamps(const RBSongLine &line)
{
    const std::string_view text = line.lineText();
    StampSpelling stamp;
    return LineAccess::canHaveStamps(line)
        && findStamp(text.data(), text.data() + text.size(), LineAccess::colonReading(line), stamp);
}

std::vector<WordStamp> wordStamps(const RBSongLine &line)
{
    std::vector<WordStamp> stamps;
    const char *const begin = line.lineText().data();
    forEachStamp(line, [&](const StampSpelling &stamp) {
        stamps.push_back({static_cast<std::size_t>(stamp.begin - begin),
            static_cast<std::size_t>(stamp.end - begin), stamp.millis, *stamp.begin == '<'});
    });
    return stamps;
}

std::vector<StampedWord> stampedWords(const RBSongLine &line)
{
    const std::string_view text = line.lineText();
    std::vector<StampedWord> words;
    std::optional<std::int64_t> millis;
    std::size_t from = 0;
    for (const WordStamp &stamp : wordStamps(line)) {
        if (millis || stamp.begin > from)
            words.push_back({millis, text.substr(from, stamp.begin - from)});
        millis = stamp.millis;
        from = stamp.end;
    }
    if (millis || from < text.size())
        words.push_back({millis, text.substr(from)});
    return words;
}

std::string wordsOf(const RBSongLine &line)
{
    std::string words;
    const char *p = line.lineText().data();
    const char *const end = p + line.lineText().size();
    forEachStamp(line, [&](const StampSpelling &stamp) {
        words.append(p, stamp.begin);
        p = stamp.end;
    });
    words.append(p, end);
    return std::string(trimmed(words));
}

bool isShiftCut(const RBSongLine &line, std::int64_t millis)
{
    if (millis == 0)
        return false;
    const auto isCut = [millis](std::int64_t time) {
        std::int64_t sum = 0;
        return __builtin_add_overflow(time, millis, &sum) || shifted(time, millis) != sum;
    };
    bool cut = std::any_of(line.aryTimes().begin(), line.aryTimes().end(), isCut);
    forEachStamp(line, [&](const StampSpelling &stamp) { cut = cut || isCut(stamp.millis); });
    return cut;
}

} // namespace lyrics
