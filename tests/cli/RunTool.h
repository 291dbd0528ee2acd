// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Program.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <unistd.h>
#include <vector>

/// lrctool within the test's own process.
namespace support {

/// What a run left behind.
struct Ran
{
    int status = 0;
    std::string out;
    std::string err;
};

/// A file without a name.
class Scratch
{
public:
    explicit Scratch(const std::string &content = {}) : m_file(std::tmpfile())
    {
        if (!m_file)
            throw std::runtime_error("no temporary file");
        std::fwrite(content.data(), 1, content.size(), m_file);
        std::rewind(m_file);
    }
    ~Scratch() { std::fclose(m_file); }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;

    [[nodiscard]] int fd() const { return fileno(m_file); }
    [[nodiscard]] std::string content() const
    {
        std::string content;
        char buffer[4096];
        ssize_t got = 0;
        for (off_t at = 0; (got = pread(fd(), buffer, sizeof buffer, at)) > 0; at += got)
            content.append(buffer, static_cast<std::size_t>(got));
        return content;
    }

private:
    std::FILE *m_file;
};

inline Ran run(const std::vector<std::string> &arguments, const std::string &input = {})
{
    const Scratch in(input);
    const Scratch out;
    const Scratch err;
    cli::Surroundings around;
    around.in = in.fd();
    around.out = out.fd();
    around.err = err.fd();
    const int status = cli::runProgram(arguments, around);
    return {status, out.content(), err.content()};
}

/// A folder that goes with what is in it.
class Folder
{
public:
    Folder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "lrctool-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("no temporary folder");
        m_path = pattern;
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    [[nodiscard]] std::string path() const { return m_path.string(); }
    [[nodiscard]] std::string operator/(const std::string &name) const { return (m_path / name).string(); }
    std::string write(const std::string &name, const std::string &content) const
    {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << content;
        return *this / name;
    }
    [[nodiscard]] std::string read(const std::string &name) const
    {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// How many entries there are, hidden ones included.
    [[nodiscard]] std::size_t count() const
    {
        return static_cast<std::size_t>(std::distance(
            std::filesystem::directory_iterator(m_path), std::filesystem::directory_iterator()));
    }

private:
    std::filesystem::path m_path;
};

} // namespace support
