// SPDX-License-Identifier: MIT
#include "media/tags/Mp4Atom.h"

#include "media/tags/ByteSource.h"

#include <algorithm>
#include <array>

namespace tags {

namespace {

constexpr int kMaxDepth = 32;
constexpr std::size_t kMaxAtoms = 150000;

constexpr std::array<std::string_view, 11> kContainers
    = {"moov", "udta", "mdia", "meta", "ilst", "stbl", "minf", "moof", "traf", "trak", "stsd"};

Failure damaged()
{
    return {
        Reason::Damaged, "The parts of the MP4 file do not fit together: the file is damaged or incomplete."};
}

Failure hostile()
{
    return {
        Reason::Hostile, "The MP4 file is nested too deeply or split into too many parts to be read safely."};
}

bool isContainer(const std::string &name)
{
    return std::find(kContainers.begin(), kContainers.end(), name) != kContainers.end();
}

/// `meta` has four bytes of version and flags before its first child; QuickTime's has not.
unsigned metaPrefix(const ByteSource &source, const Mp4Atom &atom)
{
    const std::string first = source.read(atom.bodyAt() + 4, 4);
    const bool plain
        = first == "hdlr" || first == "ilst" || first == "mhdr" || first == "ctry" || first == "lang";
    return plain ? 0 : 4;
}

unsigned childrenOffset(const ByteSource &source, const Mp4Atom &atom)
{
    if (atom.name == "meta")
        return metaPrefix(source, atom);
    return atom.name == "stsd" ? 8 : 0; // its version, flags and count of entries
}

class Walk
{
public:
    explicit Walk(const ByteSource &source) : m_source(source) { }

    [[nodiscard]] std::optional<Failure> children(Mp4Atom &parent, int depth)
    {
        std::uint64_t at = parent.bodyAt();
        // What is left over and too short for a header is padding; QuickTime ends lists with it.
        while (at < parent.end() && parent.end() - at >= 8) {
            Mp4Atom atom = header(at);
            if (atom.toTheEnd && depth == 0)
                atom.size = parent.end() - at;
            if (atom.size < atom.header || atom.size > parent.end() - at)
                return damaged();
            if (++m_count > kMaxAtoms)
                return hostile();
            if (auto failure = descend(atom, depth))
                return failure;
            at = atom.end();
            parent.children.push_back(std::move(atom));
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] Mp4Atom header(std::uint64_t at) const
    {
        const std::string bytes = m_source.read(at, 16);
        Mp4Atom atom;
        atom.name = bytes.size() < 8 ? std::string(4, '\0') : bytes.substr(4, 4);
        atom.offset = at;
        atom.size = bigEndian(bytes, 0, 4);
        atom.toTheEnd = atom.size == 0;
        atom.longSize = atom.size == 1;
        if (atom.longSize) {
            atom.size = bigEndian(bytes, 8, 8);
            atom.header = 16;
        }
        return atom;
    }

    [[nodiscard]] std::optional<Failure> descend(Mp4Atom &atom, int depth)
    {
        if (!isContainer(atom.name))
            return std::nullopt;
        if (depth + 1 >= kMaxDepth)
            return hostile();
        atom.header += childrenOffset(m_source, atom);
        if (atom.header > atom.size) {
            atom.header = unsigned(atom.size); // too short for what it should begin with: no children
            return std::nullopt;
        }
        return children(atom, depth + 1);
    }

    const ByteSource &m_source;
    std::size_t m_count = 0;
};

} // namespace

const Mp4Atom *Mp4Atom::child(std::string_view childName) const
{
    const auto found = std::find_if(children.begin(), children.end(),
        [childName](const Mp4Atom &atom) { return atom.name == childName; });
    return found == children.end() ? nullptr : &*found;
}

std::string Mp4Atom::body(const ByteSource &source) const
{
    return source.read(bodyAt(), std::size_t(size - header));
}

Outcome<Mp4Atom> parseMp4Atoms(const ByteSource &source)
{
    Mp4Atom file;
    file.size = source.size();
    file.header = 0;
    if (auto failure = Walk(source).children(file, 0))
        return *failure;
    return file;
}

std::string renderAtom(const std::string &name, const std::string &body)
{
    return toBigEndian(body.size() + 8, 4) + name + body;
}

} // namespace tags
