// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/FileState.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"

#include <optional>
#include <string>
#include <vector>

namespace tags {

class SystemCalls;

/// What the content of a file is. Its name has no say in it.
enum class Format {
    Mpeg,
    Flac,
    OggVorbis,
    OggOpus,
    OggSpeex,
    OggFlac,
    Mp4,
    Wav,
    Aiff,
    Aac,
    Ape,
    WavPack,
    Musepack,
    Asf
};

/// The tags of one audio file, and what is needed to save it later.
struct AudioTags
{
    Format format = Format::Mpeg;
    std::string title; ///< UTF-8; this and the next two are empty when the file names none
    std::string artist;
    std::string album;
    std::string cover; ///< the front cover as it is stored (JPEG, PNG, …); empty when there is none
    double duration = 0; ///< seconds, as the headers tell it: a player knows better
    std::vector<LyricField> lyricFields; ///< every one, in the order of preference
    std::vector<std::string> newFieldNames; ///< of lyric fields that could be added, the usual one first
    std::optional<std::string> lyric; ///< the text of the one that counts; see lyricFieldIndex()
    FileState state;
};

/// Reads the tags of the file at `path` (bytes, as the system takes them).
///
/// Opens without waiting and follows links; a folder, a pipe or a device is refused. Content
/// decides what it is. Reading is bounded in bytes, depth and memory whatever the file claims.
/// Does not change the file. Any thread.
[[nodiscard]] Outcome<AudioTags> read(const std::string &path);
[[nodiscard]] Outcome<AudioTags> read(const std::string &path, SystemCalls &system);

} // namespace tags
