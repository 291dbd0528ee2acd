// SPDX-License-Identifier: MIT
#include "media/tags/Mp4ChunkTables.h"

#include "media/tags/ByteSource.h"
#include "media/tags/Hash.h"
#include "media/tags/Mp4Atom.h"

#include <algorithm>
#include <vector>

namespace tags {

namespace {

constexpr std::size_t kSampledBytes = 32;
constexpr std::uint64_t kMaxOffsets = 2000000;
constexpr std::uint64_t kLargest32 = 0xFFFFFFFFULL;

/// The offsets in a table, and where in its body they stand.
struct Table
{
    std::string body;
    std::size_t at = 0;
    std::size_t width = 4; ///< bytes an offset
    std::size_t count = 0;

    [[nodiscard]] std::uint64_t offset(std::size_t i) const { return bigEndian(body, at + i * width, width); }
};

bool isTable(const Mp4Atom &atom)
{
    return atom.name == "stco" || atom.name == "co64" || atom.name == "tfhd";
}

/// Null when `atom` is no table of offsets into the file, or too short to be one.
std::optional<Table> tableOf(const ByteSource &source, const Mp4Atom &atom)
{
    if (!isTable(atom))
        return std::nullopt;
    Table table;
    table.body = atom.body(source);
    table.at = 8; // behind flags and count, or track
    if (table.body.size() < table.at)
        return std::nullopt;
    table.width = atom.name == "stco" ? 4 : 8;
    const std::size_t room = (table.body.size() - table.at) / table.width;
    const bool hasBase = bigEndian(table.body, 0, 4) & 1U;
    const std::uint64_t claimed = atom.name == "tfhd" ? hasBase : bigEndian(table.body, 4, 4);
    table.count = std::size_t(std::min<std::uint64_t>(claimed, room));
    return table;
}

/// The table's body with what lies from `from` on moved; null when an offset does not fit.
std::optional<std::string> moved(const Table &table, std::uint64_t from, std::uint64_t delta)
{
    std::string body = table.body;
    for (std::size_t i = 0; i < table.count; ++i) {
        const std::uint64_t old = table.offset(i);
        if (old < from)
            continue;
        const std::uint64_t now = old + delta;
        if (table.width == 4 && now > kLargest32)
            return std::nullopt;
        body.replace(table.at + i * table.width, table.width, toBigEndian(now, table.width));
    }
    return body;
}

void collectTables(const Mp4Atom &atom, std::vector<const Mp4Atom *> &out)
{
    for (const Mp4Atom &child : atom.children) {
        if (isTable(child))
            out.push_back(&child);
        collectTables(child, out);
    }
}

/// How much is looked at of what begins at `offset`: nothing of another part of the file, which may change.
std::size_t sampledBytes(const Mp4Atom &file, std::uint64_t offset)
{
    const auto behind = std::upper_bound(file.children.begin(), file.children.end(), offset,
        [](std::uint64_t at, const Mp4Atom &part) { return at < part.offset; });
    const std::uint64_t end = behind == file.children.end() ? file.size : behind->offset;
    return std::size_t(std::min<std::uint64_t>(kSampledBytes, end - std::min(offset, end)));
}

/// Whether `atom` holds offsets into the file of a kind that hardly a song has, and that are not moved here:
/// of encryption (`saio`), of items (`iloc`), in tables that are deflated (`cmov`).
bool holdsOtherOffsets(const Mp4Atom &atom)
{
    return atom.name == "saio" || atom.name == "iloc" || atom.name == "cmov"
        || std::any_of(atom.children.begin(), atom.children.end(), holdsOtherOffsets);
}

} // namespace

std::optional<Failure> hostileTables(const Mp4Atom &file)
{
    std::vector<const Mp4Atom *> tables;
    collectTables(file, tables);
    std::uint64_t offsets = 0;
    for (const Mp4Atom *atom : tables)
        offsets += (atom->size - atom->header) / (atom->name == "stco" ? 4 : 8); // whatever it claims
    if (offsets <= kMaxOffsets)
        return std::nullopt;
    return Failure{Reason::Hostile,
        "The MP4 file says of its sound that it lies in millions of pieces, which cannot be read safely."};
}

Outcome<Edit> movedChunks(
    const ByteSource &source, const Mp4Atom &file, std::uint64_t from, std::uint64_t delta)
{
    Edit edit;
    const bool movesSound
        = std::any_of(file.children.begin(), file.children.end(), [from](const Mp4Atom &part) {
              return part.end() > from && part.name != "moov" && part.name != "free";
          });
    if (delta == 0 || !movesSound)
        return edit;
    if (const Mp4Atom *index = file.child("mfra"); index && index->offset >= from) {
        return Failure{Reason::Unsupported,
            "The MP4 file is split into fragments with an index of its own, which cannot be edited here."};
    }
    if (holdsOtherOffsets(file)) {
        return Failure{Reason::Unsupported,
            "The MP4 file is encrypted or holds more than sound, in a form that cannot be edited here."};
    }
    std::vector<const Mp4Atom *> tables;
    collectTables(file, tables);
    for (const Mp4Atom *atom : tables) {
        const std::optional<Table> table = tableOf(source, *atom);
        if (!table)
            continue;
        const std::optional<std::string> body = moved(*table, from, delta);
        if (!body)
            return Failure{Reason::TooLarge, "The lyric is too long for this MP4 file."};
        if (*body != table->body)
            edit.push_back({atom->bodyAt(), body->size(), *body});
    }
    return edit;
}

std::optional<std::string> chunkTarget(const ByteSource &source, const Mp4Atom &file, const Mp4Atom &atom)
{
    const std::optional<Table> table = tableOf(source, atom);
    if (!table)
        return std::nullopt;
    Hash hash;
    hash.add(table->body.substr(0, table->at));
    for (std::size_t i = 0; i < table->count; ++i)
        hash.add(source.read(table->offset(i), sampledBytes(file, table->offset(i))));
    hash.add(table->body.substr(table->at + table->count * table->width));
    return std::to_string(table->count) + ' ' + std::to_string(hash.value());
}

} // namespace tags
