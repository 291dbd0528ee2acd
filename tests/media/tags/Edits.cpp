// SPDX-License-Identifier: MIT
#include "media/tags/Edits.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/LyricEdits.h"
#include "media/tags/PatchedSource.h"
#include "media/tags/Verify.h"
#include "media/tags/WorkProgress.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace edits {

namespace {

struct Opened
{
    explicit Opened(std::string bytes) : source(std::move(bytes))
    {
        const tags::Outcome<tags::Format> detected = tags::detectFormat(source);
        if (!detected.ok()) {
            ADD_FAILURE() << detected.failure().message.english();
            return;
        }
        format = detected.value();
        const tags::ContainerOutcome parsed = tags::parseContainer(source, format);
        if (parsed.ok())
            container = parsed.value();
        else
            ADD_FAILURE() << parsed.failure().message.english();
    }

    tags::MemorySource source;
    tags::Format format = tags::Format::Mpeg;
    std::shared_ptr<const tags::Container> container; ///< none when it cannot be read
};

std::string longLyric()
{
    std::string out;
    for (int i = 0; out.size() < (1U << 20); ++i)
        out += "[" + std::to_string(10 + i / 60) + ":" + std::to_string(10 + i % 50) + ".00]line number "
            + std::to_string(i) + "\n";
    return out;
}

} // namespace

std::vector<tags::LyricField> fieldsOf(const std::string &bytes)
{
    const Opened file(bytes);
    return file.container ? file.container->lyricFields() : std::vector<tags::LyricField>();
}

std::vector<std::string> namesOf(const std::string &bytes)
{
    std::vector<std::string> names;
    for (const tags::LyricField &field : fieldsOf(bytes))
        names.push_back(field.name);
    return names;
}

std::vector<std::string> newNamesOf(const std::string &bytes)
{
    const Opened file(bytes);
    return file.container ? file.container->newFieldNames() : std::vector<std::string>();
}

tags::Outcome<std::string> triedAll(const std::string &bytes, std::vector<tags::FieldEdit> edits)
{
    const Opened file(bytes);
    if (!file.container)
        return tags::Failure{};
    // A new synchronised one is refused when nothing of its text can be held.
    for (tags::FieldEdit &edit : edits) {
        const std::string held = tags::heldText(file.container->lyricFields(), edit.place, edit.text);
        if (edit.place.field || !held.empty())
            edit.text = held;
    }
    const tags::Outcome<tags::Edit> edit = file.container->withLyrics(edits);
    if (!edit.ok())
        return edit.failure();
    const tags::PatchedSource edited(file.source, edit.value());
    tags::WorkProgress progress;
    const std::optional<tags::Failure> failure
        = tags::differsFrom(file.source, *file.container, edited, file.format, edits, "song", progress);
    return failure ? tags::Outcome<std::string>(*failure) : edited.read(0, std::size_t(edited.size()));
}

tags::Outcome<std::string> tried(
    const std::string &bytes, const tags::LyricPlace &place, std::string_view text)
{
    return triedAll(bytes, {{place, std::string(text)}});
}

std::string edited(const std::string &bytes, const tags::LyricPlace &place, std::string_view text)
{
    return editedAll(bytes, {{place, std::string(text)}});
}

std::string editedAll(const std::string &bytes, const std::vector<tags::FieldEdit> &edits)
{
    const tags::Outcome<std::string> outcome = triedAll(bytes, edits);
    if (!outcome.ok())
        ADD_FAILURE() << outcome.failure().message.english();
    return outcome.ok() ? outcome.value() : std::string();
}

std::optional<tags::Reason> refusalOf(
    const std::string &bytes, const tags::LyricPlace &place, std::string_view text)
{
    const tags::Outcome<std::string> outcome = tried(bytes, place, text);
    return outcome.ok() ? std::nullopt : std::optional(outcome.failure().reason);
}

tags::LyricPlace field(std::size_t index)
{
    return {index, {}};
}

tags::LyricPlace newField(const std::string &name)
{
    return {std::nullopt, name};
}

const std::map<std::string, std::string> &texts()
{
    static const std::map<std::string, std::string> all = {
        {"LF", "[00:01.00]one\n[00:02.00]two\n"},
        {"CRLF", "[00:01.00]one\r\n[00:02.00]two\r\n"},
        {"CR", "[00:01.00]one\r[00:02.00]two"},
        {"CJK", "[00:01.00]\u8D70\u5ECA\u306B\u97FF\u304F\n[00:02.00]\uB178\uB798\n"},
        {"emoji", "[00:01.00]\U0001F3B5 la \U0001F469\u200D\U0001F3A4\n"},
        {"BOM", "\uFEFF[00:01.00]one\n"},
        {"BOMInside", "[00:01.00]on\uFEFFe\n"},
        {"blanksAround", "  \n\n [00:01.00] one \t\n\n\n"},
        {"noTimes", "only words"},
        {"megabyte", longLyric()},
    };
    return all;
}

} // namespace edits
