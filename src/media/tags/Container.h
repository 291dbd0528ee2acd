// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/AudioTags.h"
#include "media/tags/FieldEdits.h"
#include "media/tags/LyricFields.h"
#include "media/tags/Outcome.h"
#include "media/tags/Patch.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// A stretch of a file, in bytes.
struct Range
{
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
};

/// The structure of one audio file: where its lyrics are, what else is in it, and how an edit
/// of a lyric comes about. Refers to the source that it was parsed from.
class Container
{
public:
    virtual ~Container() = default;

    /// In the order in which the format prefers them.
    [[nodiscard]] virtual std::vector<LyricField> lyricFields() const = 0;
    /// Everything in the tags that is no lyric, each entry with its name, in file order: two
    /// files with equal lists differ in nothing but lyric and audio.
    [[nodiscard]] virtual std::vector<std::string> otherFields() const = 0;
    /// The audio. The bytes of these ranges, strung together, do not change in an edit.
    [[nodiscard]] virtual std::vector<Range> audio() const = 0;
    /// The names that a new field can have, the usual one first. Never empty.
    [[nodiscard]] virtual std::vector<std::string> newFieldNames() const = 0;
    /// The edit that gives each place its text, or takes the field there away when that is empty. A place is
    /// a field of lyricFields() or one of newFieldNames(); no two are one field.
    [[nodiscard]] virtual Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const = 0;

protected:
    Container() = default;
    Container(const Container &) = default;
    Container &operator=(const Container &) = default;
};

using ContainerOutcome = Outcome<std::shared_ptr<const Container>>;

[[nodiscard]] ContainerOutcome parseMpeg(const ByteSource &source);
/// Bare AAC in ADTS frames, behind an ID3v2 tag or none.
[[nodiscard]] ContainerOutcome parseAac(const ByteSource &source);
[[nodiscard]] ContainerOutcome parseFlac(const ByteSource &source);
[[nodiscard]] ContainerOutcome parseOgg(const ByteSource &source, Format format);
[[nodiscard]] ContainerOutcome parseMp4(const ByteSource &source);
[[nodiscard]] ContainerOutcome parseWav(const ByteSource &source);
[[nodiscard]] ContainerOutcome parseAiff(const ByteSource &source);
[[nodiscard]] ContainerOutcome parseAsf(const ByteSource &source);

/// The structure of `source`, which must outlive it. Refused when it has too much of a lyric, too.
[[nodiscard]] ContainerOutcome parseContainer(const ByteSource &source, Format format);

} // namespace tags
