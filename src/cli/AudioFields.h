// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Report.h"
#include "media/tags/AudioTags.h"
#include "media/tags/FieldSet.h"

#include <optional>
#include <string>
#include <vector>

namespace cli {

/// An audio file, and its lyric fields side by side.
struct AudioFields
{
    tags::AudioTags audio;
    tags::FieldSet fields;
};

/// Reads the audio file of `report`; what cannot be read is refused there.
[[nodiscard]] std::optional<AudioFields> readAudioFields(Report &report);

/// The places of the fields that `option` names; refused in `report` when one of them is unknown.
[[nodiscard]] std::optional<std::vector<tags::LyricPlace>> placesNamedBy(
    Option option, const tags::FieldSet &fields, Report &report);

/// Makes the edits, or with --dry-run shows what they would change, and answers.
void editFields(const AudioFields &file, const std::vector<tags::FieldEdit> &edits, Report &report);

/// The path of the lyric file that belongs to an audio file: the same name, with the ending .lrc.
[[nodiscard]] std::string lyricPathBeside(const std::string &audioPath);

} // namespace cli
