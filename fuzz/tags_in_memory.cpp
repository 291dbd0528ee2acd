// SPDX-License-Identifier: MIT
//
// Any bytes as an audio file: read, given a lyric, checked, read again, and the lyric taken back. The first
// two bytes of the input choose the field and the text; the rest is the file.

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/PatchedSource.h"
#include "media/tags/TagLibReader.h"
#include "media/tags/Verify.h"
#include "media/tags/WorkProgress.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 6> kTexts = {"[00:01.00]one\n[00:02.50]two\n", "", "words\r\nalone",
    "\xEF\xBB\xBF[00:01.00]\xE8\xB5\xB0<00:01.50>\xE5\xBB\x8A", "[ti:x]\n[00:03.00][00:01.00]again", "\xFF"};

void broken(const char *what)
{
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// `source` with these edits, where that is possible and nothing else changes.
struct Attempt
{
    std::unique_ptr<tags::PatchedSource> source;
    tags::ContainerOutcome container = tags::Failure{};
};

Attempt attempt(const tags::ByteSource &source, const tags::Container &container, tags::Format format,
    std::vector<tags::FieldEdit> edits)
{
    Attempt out;
    for (tags::FieldEdit &edit : edits)
        edit.text = tags::heldText(container.lyricFields(), edit.place, edit.text);
    const auto edit = container.withLyrics(edits);
    if (!edit.ok())
        return out;
    auto edited = std::make_unique<tags::PatchedSource>(source, edit.value());
    tags::WorkProgress progress;
    if (tags::differsFrom(source, container, *edited, format, edits, "fuzz", progress))
        return out;
    out.container = tags::parseContainer(*edited, format);
    if (!out.container.ok())
        broken("what was accepted cannot be read");
    out.source = std::move(edited);
    return out;
}

/// Every field but each third, which goes, and a new one.
std::vector<tags::FieldEdit> editsOfAll(std::size_t fields, std::string_view text, const std::string &newName)
{
    std::vector<tags::FieldEdit> edits = {{{std::nullopt, newName}, std::string(text)}};
    for (std::size_t i = 0; i < fields; ++i)
        edits.push_back({{i, {}}, i % 3 == 2 ? std::string() : std::string(text)});
    return edits;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    const tags::MemorySource source(std::string(reinterpret_cast<const char *>(data) + 2, size - 2));
    const auto format = tags::detectFormat(source);
    if (!format.ok())
        return 0;
    const auto container = tags::parseContainer(source, format.value());
    if (!container.ok() || !tags::readWithTagLib(source, format.value(), "fuzz").ok())
        return 0;
    const auto fields = container.value()->lyricFields();
    const auto others = container.value()->otherFields();
    const std::size_t chosen = data[0] % (fields.size() + 1);
    const bool isNew = chosen == fields.size();
    const auto names = container.value()->newFieldNames();
    const tags::LyricPlace place = isNew ? tags::LyricPlace{std::nullopt, names[data[0] % names.size()]}
                                         : tags::LyricPlace{chosen, {}};
    const std::string_view text = kTexts[data[1] % kTexts.size()];
    attempt(source, *container.value(), format.value(), editsOfAll(fields.size(), text, names.back()));
    const Attempt there = attempt(source, *container.value(), format.value(), {{place, std::string(text)}});
    if (!there.source)
        return 0;
    const auto newFields = there.container.value()->lyricFields();
    if (there.container.value()->otherFields() != others)
        broken("another field changed");
    if (isNew && !text.empty() && newFields.size() != fields.size() + 1)
        broken("one field more was expected");
    if (!isNew && !text.empty() && newFields.size() == fields.size())
        attempt(*there.source, *there.container.value(), format.value(), {{place, fields[chosen].text}});
    return 0;
}
