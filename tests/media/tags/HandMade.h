// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// Audio and tags that no program here writes, made byte by byte after their descriptions.
namespace samples {

/// Two seconds of silence in stereo at 44.1 kHz as Monkey's Audio 3.99: one frame that says "silence".
[[nodiscard]] std::string silentMonkeysAudio();
/// The same as Musepack SV8: 77 frames without any band.
[[nodiscard]] std::string silentMusepack();

/// An item of an APE tag. Flags: 0 text, 2 binary, 4 external, +1 read-only.
struct ApeItemOf
{
    std::string key;
    std::string value;
    std::uint32_t flags = 0;
};

enum class ApeHeader { Yes, No };

/// An APE tag with footer, of version 2000 unless told.
[[nodiscard]] std::string apeTag(
    const std::vector<ApeItemOf> &items, ApeHeader header = ApeHeader::Yes, unsigned version = 2000);

/// An ID3v1 tag with this title.
[[nodiscard]] std::string id3v1(const std::string &title);
/// A Lyrics3 v2 block with this lyric.
[[nodiscard]] std::string lyrics3(const std::string &lyric);

/// `ascii` as UTF-16 without mark, least significant byte first, with its terminator.
[[nodiscard]] std::string utf16(const std::string &ascii);

/// An ASF object: its identifier by its name in AsfGuids, its size, `body`.
[[nodiscard]] std::string asfObject(const std::string &guid, const std::string &body);
/// An attribute of an Extended Content Description object.
[[nodiscard]] std::string extendedAttribute(const std::string &name, unsigned type, const std::string &value);
/// An attribute of a Metadata or Metadata Library object.
[[nodiscard]] std::string libraryAttribute(
    unsigned language, unsigned stream, const std::string &name, unsigned type, const std::string &value);
/// The body of an object that holds these attributes.
[[nodiscard]] std::string attributes(const std::vector<std::string> &all);
/// The body of a Header Extension object that holds these objects.
[[nodiscard]] std::string asfExtension(const std::string &objects);
/// An ASF file of these objects of its header, each whole, and of the sound of `like`, an ASF file, whose
/// other objects stand before them. The size of the file is named rightly.
[[nodiscard]] std::string asfFile(const std::string &like, const std::vector<std::string> &objects);

namespace AsfGuids {
extern const std::string kExtension;
extern const std::string kExtendedContent;
extern const std::string kMetadata;
extern const std::string kMetadataLibrary;
extern const std::string kSignature;
extern const std::string kPadding;
} // namespace AsfGuids

/// `value` in `bytes` bytes, most significant or least significant first.
[[nodiscard]] std::string big(std::uint64_t value, int bytes);
[[nodiscard]] std::string little(std::uint64_t value, int bytes);

} // namespace samples
