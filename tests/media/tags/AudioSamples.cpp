// SPDX-License-Identifier: MIT
#include "media/tags/AudioSamples.h"

#include "media/tags/HandMade.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace samples {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

std::string quoted(const std::string &word)
{
    std::string out = "'";
    for (const char c : word)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

const Words kSound = {"-f", "lavfi", "-i", "sine=frequency=440:duration=2", "-f", "lavfi", "-i",
    "color=color=red:size=64x48:duration=1", "-map", "0:a", "-metadata", "title=The Title", "-metadata",
    "artist=The Artist", "-metadata", "album=The Album", "-metadata", "comment=kept"};
const Words kCover = {"-map", "1:v", "-frames:v", "1", "-c:v", "mjpeg", "-disposition:v", "attached_pic",
    "-metadata:s:v", "comment=Cover (front)"};
const Words kNoNames = {"-metadata", "title=", "-metadata", "artist=", "-metadata", "album=", "-metadata",
    "comment=", "-fflags", "+bitexact"};

Words joined(const Words &a, const Words &b)
{
    Words out = a;
    out.insert(out.end(), b.begin(), b.end());
    return out;
}

/// Arguments of ffmpeg by file name; the cover goes where the container takes one.
const std::map<std::string, Words> &recipes()
{
    static const std::map<std::string, Words> all = {
        {"v23.mp3", joined(kCover, {"-id3v2_version", "3", "-write_id3v1", "1"})},
        {"v24.mp3", joined(kCover, {"-id3v2_version", "4"})},
        {"untagged.mp3", {"-id3v2_version", "0", "-write_xing", "0"}},
        {"tagged.flac", kCover},
        {"tagged.m4a", joined(kCover, {"-c:a", "aac"})},
        {"faststart.m4a", joined(kCover, {"-c:a", "aac", "-movflags", "+faststart"})},
        {"untagged.m4a", joined(kNoNames, {"-c:a", "aac", "-movflags", "+faststart"})},
        {"tagged.ogg", {"-c:a", "libvorbis"}},
        {"tagged.opus", {"-c:a", "libopus"}},
        {"tagged.spx", {"-c:a", "libspeex", "-ar", "16000"}},
        {"tagged.oga", {"-c:a", "flac"}},
        {"tagged.wav", {"-c:a", "pcm_s16le"}}, // in its INFO list
        {"untagged.wav", joined(kNoNames, {"-c:a", "pcm_u8"})},
        {"tagged.aiff", joined(kCover, {"-write_id3v2", "1"})},
        {"untagged.aif", kNoNames},
        {"tagged.aac", {"-c:a", "aac", "-write_id3v2", "1"}},
        {"untagged.aac", {"-c:a", "aac"}},
        {"untagged.mp2", {"-c:a", "mp2"}},
        {"tagged.wv", {"-c:a", "wavpack"}},
        {"tagged.wma", {"-c:a", "wmav2"}},
        {"untagged.wma",
            {"-c:a", "wmav2", "-metadata", "title=", "-metadata", "artist=", "-metadata",
                "album=", "-metadata", "comment=", "-fflags", "+bitexact"}},
    };
    return all;
}

/// The content of those that ffmpeg reads but does not write.
const std::map<std::string, std::string> &handMade()
{
    static const std::string tag = apeTag(
        {{"Title", "The Title"}, {"Artist", "The Artist"}, {"Album", "The Album"}, {"Comment", "kept"}});
    static const std::map<std::string, std::string> all = {
        {"tagged.ape", silentMonkeysAudio() + tag},
        {"untagged.ape", silentMonkeysAudio()},
        {"tagged.mpc", silentMusepack() + tag},
    };
    return all;
}

/// All made on first use, and removed when the program ends.
const Folder &made()
{
    static const Folder folder;
    static const bool done = [] {
        for (const auto &[name, arguments] : recipes()) {
            Words command = joined({"ffmpeg", "-v", "error", "-nostdin", "-y"}, joined(kSound, arguments));
            command.push_back(folder.file(name));
            static_cast<void>(output(command));
        }
        for (const auto &[name, bytes] : handMade())
            write(folder.file(name), bytes);
        return true;
    }();
    static_cast<void>(done);
    return folder;
}

constexpr std::array<const char *, 4> kLyricKeys
    = {"TAG:lyrics", "TAG:LYRICS", "TAG:Lyrics", "TAG:WM/Lyrics"};

/// Where ffprobe's listing names a lyric; at its end when it names none.
std::size_t lyricAt(const std::string &listing)
{
    std::size_t at = listing.size();
    for (const char *key : kLyricKeys)
        at = std::min(at, listing.find(key));
    return at;
}

} // namespace

Folder::Folder(On on)
{
    const bool memory = on == On::Memory && access("/dev/shm", W_OK) == 0;
    std::string pattern
        = ((memory ? fs::path("/dev/shm") : fs::temp_directory_path()) / "tagtest-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder");
    m_path = pattern;
}

Folder::~Folder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::vector<std::string> Folder::names() const
{
    std::vector<std::string> out;
    for (const fs::directory_entry &entry : fs::directory_iterator(m_path))
        out.push_back(entry.path().filename().string());
    std::sort(out.begin(), out.end());
    return out;
}

std::string Folder::copy(const std::string &from, const std::string &as) const
{
    const std::string to = file(as.empty() ? fs::path(from).filename().string() : as);
    fs::copy_file(from, to);
    return to;
}

std::string output(const std::vector<std::string> &command)
{
    std::string line;
    for (const std::string &word : command)
        line += quoted(word) + ' ';
    FILE *pipe = popen(line.c_str(), "r");
    if (!pipe)
        throw std::runtime_error("cannot run " + line);
    std::string out;
    std::array<char, 4096> buffer;
    while (const std::size_t got = fread(buffer.data(), 1, buffer.size(), pipe))
        out.append(buffer.data(), got);
    if (pclose(pipe) != 0)
        throw std::runtime_error("failed: " + line);
    return out;
}

std::string contents(const std::string &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

void write(const std::string &path, const std::string &bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string sample(const std::string &name)
{
    return made().file(name);
}

const std::vector<std::string> &names()
{
    static const std::vector<std::string> all = [] {
        std::vector<std::string> out;
        for (const auto &recipe : recipes())
            out.push_back(recipe.first);
        for (const auto &file : handMade())
            out.push_back(file.first);
        return out;
    }();
    return all;
}

std::string soundOf(const std::string &path)
{
    return output({"ffmpeg", "-v", "error", "-nostdin", "-i", path, "-map", "0:a", "-f", "md5", "-"});
}

std::string lyricByFfprobe(const std::string &path)
{
    // Ogg keeps its tags with the stream, the others with the file.
    const std::string listing = output({"ffprobe", "-v", "error", "-show_entries", "format_tags:stream_tags",
        "-of", "default=noprint_wrappers=1", path});
    const std::size_t key = lyricAt(listing);
    if (key == listing.size())
        return {};
    const std::size_t from = listing.find('=', key) + 1;
    const std::size_t next = listing.find("\nTAG:", from);
    std::string text = listing.substr(from, next == std::string::npos ? next : next - from + 1);
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

std::string othersByFfprobe(const std::string &path)
{
    std::istringstream listing(output({"ffprobe", "-v", "error", "-show_entries",
        "format_tags=title,artist,album,comment:stream=index,codec_name,codec_type,duration:stream_tags="
        "title,artist,album,comment",
        "-of", "default=noprint_wrappers=1", path}));
    std::string out;
    for (std::string line; std::getline(listing, line);) {
        if (lyricAt(line) == line.size())
            out += line + '\n';
    }
    return out;
}

std::string id3v2(int version, const std::vector<std::pair<std::string, std::string>> &frames)
{
    const auto number = [](std::size_t value, int bytes, int bits) {
        std::string out;
        for (int i = bytes - 1; i >= 0; --i)
            out += static_cast<char>((value >> (i * bits)) & ((1U << bits) - 1));
        return out;
    };
    std::string body;
    for (const auto &[id, content] : frames) {
        body += id;
        if (version == 2)
            body += number(content.size(), 3, 8);
        else
            body += number(content.size(), 4, version == 4 ? 7 : 8) + std::string(2, '\0');
        body += content;
    }
    return std::string("ID3") + static_cast<char>(version) + std::string(2, '\0') + number(body.size(), 4, 7)
        + body;
}

std::string uslt(const std::string &language, const std::string &description, const std::string &text)
{
    return std::string(1, '\0') + language + description + '\0' + text;
}

} // namespace samples
