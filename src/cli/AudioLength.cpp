// SPDX-License-Identifier: MIT
#include "cli/AudioLength.h"

#include "cli/Inputs.h"
#include "cli/TimeText.h"
#include "lyrics/Millis.h"
#include "lyrics/RBEditSong.h"
#include "media/tags/AudioTags.h"

#include <algorithm>
#include <sys/stat.h>

namespace cli {
namespace {

// Lengths are told and measured in different ways; so much past the end is none.
constexpr std::int64_t kTolerance = 100;

} // namespace

AudioLength lengthOfAudio(const std::string &path)
{
    const tags::Outcome<tags::AudioTags> read = tags::read(path);
    if (!read.ok())
        return {0, read.failure().message.english()};
    const std::int64_t millis = lyrics::millisFromSeconds(read.value().duration);
    if (millis <= 0)
        return {0, "The file does not tell how long it is."};
    return {millis, {}};
}

std::string audioBeside(const std::string &lyricPath)
{
    const std::string ending = endingOf(lyricPath);
    const std::string stem = lyricPath.substr(0, lyricPath.size() - ending.size());
    for (const std::string_view audio : kAudioEndings) {
        struct stat status = {};
        std::string path = stem + std::string(audio);
        if (!ending.empty() && stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode))
            return path;
    }
    return {};
}

std::vector<lyrics::Issue> issuesPastEnd(std::string_view text, std::int64_t audioMillis)
{
    RBEditSong song;
    song.buildWithLrcText(text);
    const std::vector<std::size_t> starts = song.physicalLineStarts();
    std::vector<lyrics::Issue> issues;
    for (std::size_t row = 0; row < song.aryLines().size(); ++row) {
        const RBSongLine &line = song.aryLines()[row];
        const lyrics::TimeList &times = line.aryTimes();
        if (line.isProperty() || times.empty() || line.lineText().empty())
            continue;
        const std::int64_t latest = *std::max_element(times.begin(), times.end());
        if (latest - kTolerance <= audioMillis)
            continue;
        const auto after = std::upper_bound(starts.begin(), starts.end(), row);
        issues.push_back({lyrics::IssueSeverity::Warning, static_cast<std::size_t>(after - starts.begin()), 1,
            "past-audio-end",
            "The line is sung at " + exactTime(latest) + ", and the audio ends at " + exactTime(audioMillis)
                + "."});
    }
    return issues;
}

} // namespace cli
