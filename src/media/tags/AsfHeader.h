// SPDX-License-Identifier: MIT
#pragma once

#include "media/tags/Outcome.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tags {

class ByteSource;

/// What an object of a header is, as far as it matters here.
enum class AsfKind {
    Other,
    FileProperties,
    HeaderExtension, ///< holds objects
    ExtendedContent, ///< the next three hold attributes
    Metadata,
    MetadataLibrary,
    Signature, ///< of what stands before it
};

/// One attribute, kept as it stands in the file.
struct AsfAttribute
{
    std::string raw;
    std::string name; ///< UTF-16, little endian, its terminator included
    unsigned type = 0;
    unsigned language = 0; ///< index into the file's list of languages; 0 where the object has none
    unsigned stream = 0; ///< number of the stream that it is about; 0: the file
    std::size_t valueAt = 0; ///< where in `raw` the value begins

    [[nodiscard]] std::string_view value() const { return std::string_view(raw).substr(valueAt); }
};

inline constexpr unsigned kAsfText = 0; ///< UTF-16, little endian
inline constexpr unsigned kAsfBytes = 1;

/// One object of a header. Parts that are not known stay in `head`.
struct AsfObject
{
    AsfKind kind = AsfKind::Other;
    std::string head; ///< from the identifier on
    std::vector<AsfAttribute> attributes;
    std::vector<AsfObject> children;
    std::string tail; ///< what follows the last attribute

    /// An empty one of a kind that holds attributes.
    [[nodiscard]] static AsfObject make(AsfKind kind);
    [[nodiscard]] bool holdsAttributes() const;
    [[nodiscard]] std::string render() const;
};

/// The header of an ASF file, to be edited attribute by attribute. What is not edited is written back byte
/// for byte; sizes and counts are computed.
///
/// Source: "Advanced Systems Format (ASF) Specification", revision 01.20.03, sections 2 to 4 and 10.
struct AsfHeader
{
    std::string head; ///< identifier, size, number of objects, two reserved bytes
    std::uint64_t bytes = 0; ///< of the whole header in the file
    std::vector<AsfObject> objects;
    std::string tail; ///< what follows the last object

    /// The header at the start of `source`. Refused when its parts do not fit together, and above 32 MiB,
    /// 100,000 objects or 100,000 attributes.
    [[nodiscard]] static Outcome<AsfHeader> parse(const ByteSource &source);
    [[nodiscard]] Outcome<std::string> render() const;
};

/// Bytes of an attribute's value that an object of `kind` can hold.
[[nodiscard]] std::uint64_t largestAsfValue(AsfKind kind);
/// An attribute as objects of `kind` hold it. What `kind` has no room for (language, stream) is left out.
[[nodiscard]] AsfAttribute makeAsfAttribute(AsfKind kind, const AsfAttribute &like, std::string_view value);

/// The identifier that an ASF file begins with.
[[nodiscard]] std::string_view asfHeaderGuid();

/// What the header of `source` says of its size, at most that of the file.
[[nodiscard]] std::uint64_t asfHeaderSize(const ByteSource &source);

/// The size of the file, as `object`, which is FileProperties, tells it.
[[nodiscard]] std::uint64_t asfFileSize(const AsfObject &object);
void setAsfFileSize(AsfObject &object, std::uint64_t size);

} // namespace tags
