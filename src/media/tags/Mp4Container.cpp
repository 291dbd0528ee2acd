// SPDX-License-Identifier: MIT
#include "media/tags/ByteSource.h"
#include "media/tags/Comparable.h"
#include "media/tags/Container.h"
#include "media/tags/Mp4Atom.h"
#include "media/tags/Mp4ChunkTables.h"
#include "media/tags/TextCodec.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tags {

namespace {

const std::string kLyricAtom = "\xA9lyr";
const std::string kLyricName = "\u00A9lyr"; ///< the same in UTF-8, for people
constexpr std::uint64_t kMaxListBytes = 32ULL << 20;

enum DataType : unsigned { Utf8 = 1, Utf16 = 2 };

/// The list of tags, or where one would go.
struct Place
{
    std::vector<const Mp4Atom *> around; ///< the atoms that enclose it, outermost first
    const Mp4Atom *list = nullptr; ///< `ilst`
};

/// An MP4 file with the tag list that is usual for music: moov/udta/meta/ilst.
class Mp4Container final : public Container
{
public:
    Mp4Container(const ByteSource &source, Mp4Atom file);

    [[nodiscard]] std::vector<LyricField> lyricFields() const override;
    [[nodiscard]] std::vector<std::string> otherFields() const override;
    [[nodiscard]] std::vector<Range> audio() const override;
    [[nodiscard]] std::vector<std::string> newFieldNames() const override { return {kLyricName}; }
    [[nodiscard]] Outcome<Edit> withLyrics(const std::vector<FieldEdit> &edits) const override;

private:
    [[nodiscard]] Patch changedLyric(const Mp4Atom &old, std::string_view text) const;
    [[nodiscard]] Patch newLyrics(const std::string &lyrics) const;
    [[nodiscard]] Edit lyricPatches(const std::vector<FieldEdit> &edits) const;
    void addOthers(const Mp4Atom &parent, std::string_view path, std::vector<std::string> &out) const;

    const ByteSource &m_source;
    Mp4Atom m_file;
    Place m_place;
    std::vector<const Mp4Atom *> m_lyrics;
};

/// The `hdlr` that tells a reader that a `meta` holds tags.
std::string tagHandler()
{
    return renderAtom("hdlr", std::string(8, '\0') + "mdirappl" + std::string(9, '\0'));
}

/// `more`: what stands behind the value, as it is.
std::string renderLyric(std::string_view text, std::string_view locale, const std::string &more = {})
{
    const std::string value = toBigEndian(Utf8, 4) + std::string(locale) + std::string(text);
    return renderAtom(kLyricAtom, renderAtom("data", value) + more);
}

Place findPlace(const Mp4Atom &file)
{
    Place place;
    const Mp4Atom *atom = &file;
    for (const std::string_view name : {"moov", "udta", "meta", "ilst"}) {
        atom = atom->child(name);
        if (!atom)
            return place;
        place.around.push_back(atom);
    }
    place.list = atom;
    return place;
}

Mp4Container::Mp4Container(const ByteSource &source, Mp4Atom file)
    : m_source(source), m_file(std::move(file)), m_place(findPlace(m_file))
{
    if (!m_place.list)
        return;
    for (const Mp4Atom &atom : m_place.list->children) {
        if (atom.name == kLyricAtom)
            m_lyrics.push_back(&atom);
    }
}

/// The first value of a tag: type, locale, text; empty when there is none.
std::string firstValue(const ByteSource &source, const Mp4Atom &atom)
{
    const std::string body = atom.body(source);
    const std::uint64_t size = bigEndian(body, 0, 4);
    if (size < 16 || size > body.size() || body.compare(4, 4, "data") != 0)
        return {};
    return body.substr(8, std::size_t(size) - 8);
}

std::vector<LyricField> Mp4Container::lyricFields() const
{
    std::vector<LyricField> fields;
    for (const Mp4Atom *atom : m_lyrics) {
        const std::string value = firstValue(m_source, *atom);
        LyricField field;
        field.tag = "MP4";
        field.name = kLyricName;
        field.text = value.size() < 8 ? std::string() : value.substr(8);
        if ((bigEndian(value, 0, 4) & 0xFFFFFF) == Utf16)
            field.text = utf8FromUtf16(field.text, true);
        fields.push_back(std::move(field));
    }
    return fields;
}

/// What is compared of an atom.
std::string contentOf(const ByteSource &source, const Mp4Atom &file, const Mp4Atom &atom)
{
    const std::optional<std::string> target = chunkTarget(source, file, atom);
    return target ? *target : comparable(source, atom.bodyAt(), atom.size - atom.header);
}

/// Every atom without children, with the path to it; chunk tables by what they point at.
void Mp4Container::addOthers(
    const Mp4Atom &parent, std::string_view path, std::vector<std::string> &out) const
{
    for (const Mp4Atom &atom : parent.children) {
        const std::string here = std::string(path) + '/' + atom.name;
        const bool isLyric = std::find(m_lyrics.begin(), m_lyrics.end(), &atom) != m_lyrics.end();
        if (here == "/mdat" || isLyric)
            continue;
        if (here == "/moov/udta/meta/hdlr"
            && m_source.read(atom.offset, std::size_t(atom.size)) == tagHandler())
            continue; // comes with the list when there was none
        if (!atom.children.empty() || here == "/moov/udta" || here == "/moov/udta/meta"
            || &atom == m_place.list)
            addOthers(atom, here, out);
        else
            out.push_back(here + ' ' + contentOf(m_source, m_file, atom));
    }
}

std::vector<std::string> Mp4Container::otherFields() const
{
    std::vector<std::string> others;
    addOthers(m_file, "", others);
    return others;
}

std::vector<Range> Mp4Container::audio() const
{
    std::vector<Range> ranges;
    for (const Mp4Atom &atom : m_file.children) {
        if (atom.name == "mdat")
            ranges.push_back({atom.bodyAt(), atom.size - atom.header});
    }
    return ranges;
}

Patch Mp4Container::changedLyric(const Mp4Atom &old, std::string_view text) const
{
    const std::string value = firstValue(m_source, old);
    const std::string locale = value.size() < 8 ? std::string(4, '\0') : value.substr(4, 4);
    const std::string more = value.empty() ? std::string() : old.body(m_source).substr(value.size() + 8);
    return {old.offset, old.size, text.empty() ? std::string() : renderLyric(text, locale, more)};
}

/// New lyrics, with as much of the structure around them as is missing.
Patch Mp4Container::newLyrics(const std::string &lyrics) const
{
    if (m_place.list)
        return {m_place.list->end(), 0, lyrics};
    const std::string list = renderAtom("ilst", lyrics);
    const Mp4Atom *inner = m_place.around.back();
    if (inner->name == "meta")
        return {inner->end(), 0, list};
    const std::string meta = renderAtom("meta", std::string(4, '\0') + tagHandler() + list);
    if (inner->name == "udta") // in front: at the end there may be a terminator
        return {inner->bodyAt(), 0, meta};
    return {inner->end(), 0, renderAtom("udta", meta)};
}

/// In file order.
Edit Mp4Container::lyricPatches(const std::vector<FieldEdit> &edits) const
{
    Edit patches;
    std::string added;
    for (const FieldEdit &edit : edits) {
        if (edit.place.field)
            patches.push_back(changedLyric(*m_lyrics.at(*edit.place.field), edit.text));
        else
            added += renderLyric(edit.text, std::string(4, '\0'));
    }
    std::sort(
        patches.begin(), patches.end(), [](const Patch &a, const Patch &b) { return a.offset < b.offset; });
    if (!added.empty())
        patches.push_back(newLyrics(added));
    return patches;
}

/// The new size of an atom that contains the edit; null when it does not fit.
std::optional<Patch> resized(const Mp4Atom &atom, std::uint64_t size)
{
    if (atom.longSize)
        return Patch{atom.offset + 8, 8, toBigEndian(size, 8)};
    if (size > 0xFFFFFFFFULL)
        return std::nullopt;
    return Patch{atom.offset, 4, toBigEndian(size, 4)};
}

Failure tooLong()
{
    return {Reason::TooLarge, "The lyric is too long for this MP4 file."};
}

Outcome<Edit> Mp4Container::withLyrics(const std::vector<FieldEdit> &edits) const
{
    if (m_place.around.empty())
        return Failure{Reason::Unsupported, "The MP4 file has no place for tags: it cannot hold a lyric."};
    const Mp4Atom *inner = m_place.around.back();
    if (inner->name == "meta" && inner->child("hdlr")
        && inner->child("hdlr")->body(m_source).compare(8, 4, "mdir") != 0) {
        return Failure{
            Reason::Unsupported, "The MP4 file keeps its tags in a form that cannot be edited here."};
    }
    Edit edit = lyricPatches(edits);
    if (edit.empty())
        return edit;
    std::uint64_t delta = 0; // modulo 2^64, as are the sums with it
    for (const Patch &patch : edit)
        delta += patch.inserted.size() - patch.removed;
    // No chunk of sound lies within the list of tags.
    Outcome<Edit> tables = movedChunks(m_source, m_file, edit.back().offset + edit.back().removed, delta);
    if (!tables.ok())
        return tables.failure();
    std::move(tables.value().begin(), tables.value().end(), std::back_inserter(edit));
    for (const Mp4Atom *atom : m_place.around) {
        std::optional<Patch> size = resized(*atom, atom->size + delta);
        if (!size)
            return tooLong();
        if (!atom->toTheEnd)
            edit.push_back(std::move(*size));
    }
    std::stable_sort(
        edit.begin(), edit.end(), [](const Patch &a, const Patch &b) { return a.offset < b.offset; });
    return edit;
}

} // namespace

ContainerOutcome parseMp4(const ByteSource &source)
{
    Outcome<Mp4Atom> file = parseMp4Atoms(source);
    if (!file.ok())
        return file.failure();
    if (auto failure = hostileTables(file.value()))
        return *failure;
    const Place place = findPlace(file.value());
    if (place.list && place.list->size > kMaxListBytes)
        return Failure{Reason::TooLarge,
            "The tags of the MP4 file are larger than 32 MiB, which is more than can be read."};
    return ContainerOutcome(std::make_shared<Mp4Container>(source, std::move(file.value())));
}

} // namespace tags
