// SPDX-License-Identifier: MIT
#include "media/tags/AsfLyrics.h"

#include "media/tags/AsfSynced.h"
#include "media/tags/Comparable.h"
#include "media/tags/TextCodec.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace tags {

namespace {

constexpr std::string_view kSynced = "WM/Lyrics_Synchronised";
constexpr std::array<std::string_view, 2> kLyricNames = {"WM/Lyrics", kSynced};

/// UTF-16 without what terminates it.
std::string_view withoutTerminator(std::string_view text)
{
    while (text.size() >= 2 && text.substr(text.size() - 2) == std::string_view("\0\0", 2))
        text.remove_suffix(2);
    return text;
}

std::string terminatedUtf16(std::string_view text)
{
    return markedUtf16FromUtf8(text).substr(2) + std::string(2, '\0');
}

/// The lyric that `attribute` is, if it is one called `name`.
std::optional<LyricField> lyricOf(const AsfAttribute &attribute, std::string_view name)
{
    const bool isSynced = attribute.type == kAsfBytes && name == kSynced;
    if ((attribute.type != kAsfText && !isSynced)
        || utf8FromUtf16(withoutTerminator(attribute.name), false) != name)
        return std::nullopt;
    LyricField field;
    field.tag = "ASF";
    field.name = name;
    field.synchronised = isSynced;
    if (!isSynced) {
        field.text = utf8FromUtf16(withoutTerminator(attribute.value()), false);
        return field;
    }
    const std::optional<AsfSynced> synced = AsfSynced::parse(attribute.value());
    if (!synced)
        return std::nullopt;
    field.description = utf8FromUtf16(synced->description, false);
    field.text = lrcFromEntries(synced->entries);
    return field;
}

bool isLyric(const AsfAttribute &attribute)
{
    return std::any_of(kLyricNames.begin(), kLyricNames.end(),
        [&attribute](std::string_view name) { return lyricOf(attribute, name).has_value(); });
}

/// The value with which an attribute like `old` says `text`; none when it can say nothing of it.
std::string valueOf(const AsfAttribute &old, std::string_view text)
{
    if (old.type == kAsfText)
        return text.empty() ? std::string() : terminatedUtf16(text);
    AsfSynced synced = AsfSynced::parse(old.value()).value_or(AsfSynced());
    // A new one tells its lines apart by line breaks, as in other tags.
    const LineBreaks breaks = synced.entries.empty() ? LineBreaks::Leading : lineBreaksOf(synced.entries);
    synced.entries = entriesFromLrc(text, breaks);
    return synced.entries.empty() ? std::string() : synced.render();
}

/// The objects that hold attributes, in file order. `Header` may be constant.
template <typename Header>
auto attributeObjects(Header &header)
{
    std::vector<decltype(&header.objects.front())> objects;
    for (auto &object : header.objects) {
        if (object.holdsAttributes())
            objects.push_back(&object);
        for (auto &child : object.children) {
            if (child.holdsAttributes())
                objects.push_back(&child);
        }
    }
    return objects;
}

AsfObject &firstOf(std::vector<AsfObject> &objects, AsfKind kind)
{
    const auto found = std::find_if(
        objects.begin(), objects.end(), [kind](const AsfObject &object) { return object.kind == kind; });
    return found != objects.end() ? *found : objects.emplace_back(AsfObject::make(kind));
}

void addTo(AsfObject &object, AsfAttribute attribute, const std::string &value)
{
    attribute.language = 0;
    object.attributes.push_back(makeAsfAttribute(object.kind, attribute, value));
}

/// Adds an attribute to the object for new ones, or to the metadata library when it is too long for that.
std::optional<Failure> addAttribute(AsfHeader &header, AsfAttribute attribute, const std::string &value)
{
    if (value.size() <= largestAsfValue(AsfKind::ExtendedContent)) {
        addTo(firstOf(header.objects, AsfKind::ExtendedContent), std::move(attribute), value);
        return std::nullopt;
    }
    const auto extension = std::find_if(header.objects.begin(), header.objects.end(),
        [](const AsfObject &object) { return object.kind == AsfKind::HeaderExtension; });
    if (extension == header.objects.end()) {
        return Failure{Reason::TooLarge,
            "The lyric is too long for this WMA file, whose header has no place for texts of more than "
            "32,766 "
            "characters."};
    }
    addTo(firstOf(extension->children, AsfKind::MetadataLibrary), std::move(attribute), value);
    return std::nullopt;
}

/// Takes `object` out of `objects`, if it is one of them.
bool erased(std::vector<AsfObject> &objects, const AsfObject *object)
{
    for (std::size_t i = 0; i < objects.size(); ++i) {
        if (&objects[i] == object || erased(objects[i].children, object)) {
            if (&objects[i] == object)
                objects.erase(objects.begin() + std::ptrdiff_t(i));
            return true;
        }
    }
    return false;
}

/// Several changes of a header's attributes. None is taken out or added before the end, so that each keeps
/// its place till then.
class AttributeEdit
{
public:
    explicit AttributeEdit(AsfHeader &header) : m_header(header), m_objects(attributeObjects(header)) { }

    /// Gives the attribute at `at`, which counts all of the header, this text; an empty one takes it out.
    void change(std::size_t at, std::string_view text);
    void add(std::string_view name, std::string_view text);
    [[nodiscard]] std::optional<Failure> finish();

private:
    struct NewAttribute
    {
        AsfAttribute like;
        std::string value;
    };

    AsfHeader &m_header;
    std::vector<AsfObject *> m_objects;
    std::map<const AsfObject *, std::vector<std::size_t>> m_gone; ///< indices into its attributes
    std::vector<NewAttribute> m_added;
};

void AttributeEdit::change(std::size_t at, std::string_view text)
{
    auto object = m_objects.begin();
    for (; at >= (*object)->attributes.size(); ++object)
        at -= (*object)->attributes.size();
    const AsfAttribute old = (*object)->attributes[at];
    std::string value = valueOf(old, text);
    if (!value.empty() && value.size() <= largestAsfValue((*object)->kind)) {
        (*object)->attributes[at] = makeAsfAttribute((*object)->kind, old, value);
        return;
    }
    m_gone[*object].push_back(at);
    if (!value.empty())
        m_added.push_back({old, std::move(value)});
}

void AttributeEdit::add(std::string_view name, std::string_view text)
{
    AsfAttribute attribute;
    attribute.name = terminatedUtf16(name);
    attribute.type = name == kSynced ? kAsfBytes : kAsfText;
    std::string value = valueOf(attribute, text);
    m_added.push_back({std::move(attribute), std::move(value)});
}

std::optional<Failure> AttributeEdit::finish()
{
    // From the last one on: an object that goes moves those behind it.
    for (auto object = m_objects.rbegin(); object != m_objects.rend(); ++object) {
        if (const auto gone = m_gone.find(*object); gone != m_gone.end()) {
            eraseAt((*object)->attributes, gone->second);
            if ((*object)->attributes.empty() && (*object)->tail.empty())
                erased(m_header.objects, *object);
        }
    }
    for (NewAttribute &attribute : m_added) {
        if (auto failure = addAttribute(m_header, std::move(attribute.like), attribute.value))
            return failure;
    }
    return std::nullopt;
}

std::optional<Failure> refusal(const AsfHeader &header)
{
    const bool isSigned = std::any_of(header.objects.begin(), header.objects.end(),
        [](const AsfObject &object) { return object.kind == AsfKind::Signature; });
    if (isSigned) {
        return Failure{Reason::Unsupported,
            "The WMA file is signed by its author, which a change of the lyric would make void."};
    }
    return std::nullopt;
}

void appendOthers(std::vector<std::string> &others, const AsfObject &object, std::uint64_t fileSize)
{
    if (object.holdsAttributes()) {
        const std::string prefix = std::to_string(int(object.kind)) + ' ';
        for (const AsfAttribute &attribute : object.attributes) {
            if (!isLyric(attribute))
                others.push_back(prefix + comparable(attribute.raw));
        }
        if (!object.tail.empty())
            others.push_back(prefix + "tail " + object.tail);
        return;
    }
    AsfObject copy = object;
    copy.children.clear(); // and with them goes the size that they had
    if (object.kind == AsfKind::FileProperties && asfFileSize(object) == fileSize)
        setAsfFileSize(copy, 0);
    others.push_back(comparable(copy.render()));
    for (const AsfObject &child : object.children)
        appendOthers(others, child, fileSize);
}

} // namespace

std::vector<FoundLyric> lyricsOf(const AsfHeader &header)
{
    std::vector<FoundLyric> lyrics;
    for (const std::string_view name : kLyricNames) {
        std::size_t at = 0;
        for (const AsfObject *object : attributeObjects(header)) {
            for (const AsfAttribute &attribute : object->attributes) {
                if (std::optional<LyricField> field = lyricOf(attribute, name))
                    lyrics.push_back({at, std::move(*field)});
                ++at;
            }
        }
    }
    return lyrics;
}

std::vector<std::string> newAsfNames()
{
    return {kLyricNames.begin(), kLyricNames.end()};
}

std::optional<Failure> setLyrics(
    AsfHeader &header, const std::vector<FoundLyric> &lyrics, const std::vector<FieldEdit> &edits)
{
    if (std::optional<Failure> failure = refusal(header))
        return failure;
    AttributeEdit change(header);
    for (const FieldEdit &edit : edits) {
        const std::string &name = edit.place.newName;
        if (!isTagText(edit.text))
            return notTagText("a WMA file");
        if (!edit.place.field && name == kSynced && holdableText(edit.text).empty())
            return nothingTimed();
        if (edit.place.field)
            change.change(lyrics.at(*edit.place.field).at, edit.text);
        else
            change.add(name.empty() ? kLyricNames.front() : name, edit.text);
    }
    return change.finish();
}

std::vector<std::string> otherParts(const AsfHeader &header, std::uint64_t fileSize)
{
    std::vector<std::string> others = {"reserved " + header.head.substr(header.head.size() - 2)};
    for (const AsfObject &object : header.objects)
        appendOthers(others, object, fileSize);
    others.push_back("tail " + header.tail);
    return others;
}

} // namespace tags
