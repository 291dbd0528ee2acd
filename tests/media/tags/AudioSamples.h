// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace samples {

/// A folder of its own for each object, removed with what is in it.
class Folder
{
public:
    /// Memory, where the system has such a folder, does not wait for the disk.
    enum class On { Disk, Memory };
    explicit Folder(On on = On::Disk);
    ~Folder();
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    [[nodiscard]] const std::string &path() const { return m_path; }
    [[nodiscard]] std::string file(const std::string &name) const { return m_path + '/' + name; }
    /// Sorted, hidden ones included.
    [[nodiscard]] std::vector<std::string> names() const;
    /// A copy of the file at `from`, under its own name or `as`.
    [[nodiscard]] std::string copy(const std::string &from, const std::string &as = {}) const;

private:
    std::string m_path;
};

/// What a program wrote to its standard output; its exit code is 0, or the test fails.
[[nodiscard]] std::string output(const std::vector<std::string> &command);

[[nodiscard]] std::string contents(const std::string &path);
void write(const std::string &path, const std::string &bytes);

/// Two seconds of a tone as "title" by "artist" on "album", made by ffmpeg once in a program.
/// The names say what is in them: see AudioSamples.cpp. Not to be changed: copy them.
[[nodiscard]] std::string sample(const std::string &name);
/// The names of all samples, each of another format or shape.
[[nodiscard]] const std::vector<std::string> &names();

/// A checksum of the decoded sound, by ffmpeg.
[[nodiscard]] std::string soundOf(const std::string &path);
/// The lyric as ffprobe finds it, whatever it calls the field; the line end it adds is taken off.
[[nodiscard]] std::string lyricByFfprobe(const std::string &path);
/// Every tag but lyrics, and the streams, as ffprobe lists them.
[[nodiscard]] std::string othersByFfprobe(const std::string &path);

/// An ID3v2 tag made by hand: `frames` are (identifier, body).
[[nodiscard]] std::string id3v2(int version, const std::vector<std::pair<std::string, std::string>> &frames);
/// The body of a lyric frame in Latin-1.
[[nodiscard]] std::string uslt(
    const std::string &language, const std::string &description, const std::string &text);

} // namespace samples
