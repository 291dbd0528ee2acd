// SPDX-License-Identifier: MIT
#include "media/tags/AudioTags.h"
#include "media/tags/ByteSource.h"
#include "media/tags/Container.h"
#include "media/tags/Format.h"
#include "media/tags/LoadedFile.h"
#include "media/tags/SystemCalls.h"
#include "media/tags/TagLibReader.h"

#include <utility>

namespace tags {

namespace {

AudioTags assembled(Format format, LibraryView view, const Container &container, const FileState &state)
{
    AudioTags tags;
    tags.format = format;
    tags.title = std::move(view.title);
    tags.artist = std::move(view.artist);
    tags.album = std::move(view.album);
    tags.cover = std::move(view.cover);
    tags.duration = view.duration;
    tags.lyricFields = container.lyricFields();
    tags.newFieldNames = container.newFieldNames();
    if (const std::optional<std::size_t> index = lyricFieldIndex(tags.lyricFields))
        tags.lyric = tags.lyricFields[*index].text;
    tags.state = state;
    return tags;
}

} // namespace

Outcome<AudioTags> read(const std::string &path, SystemCalls &system)
{
    const Outcome<LoadedFile> file = load(path, system);
    if (!file.ok())
        return file.failure();
    const ByteSource &source = *file.value().source;
    const Outcome<Format> format = detectFormat(source);
    if (!format.ok())
        return format.failure();
    const ContainerOutcome container = parseContainer(source, format.value());
    if (!container.ok())
        return container.failure();
    Outcome<LibraryView> view = readWithTagLib(source, format.value(), path);
    if (!view.ok())
        return view.failure();
    if (source.hasFailed())
        return Failure{Reason::SystemError, "The file could not be read to its end."};
    return assembled(format.value(), std::move(view.value()), *container.value(), file.value().state);
}

Outcome<AudioTags> read(const std::string &path)
{
    return read(path, SystemCalls::real());
}

} // namespace tags
