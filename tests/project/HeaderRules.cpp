// SPDX-License-Identifier: MIT
#include "project/HeaderRules.h"

#include <sstream>
#include <stdexcept>

namespace project {
namespace {

std::string faultOf(const std::string &file, const Include &include, const Headers &publicHeaders)
{
    const bool ours = include.quoted && !moduleOf(include.path).empty();
    if (!ours || publicHeaders.contains(include.path)) {
        return {};
    }
    if (moduleOf(file) != moduleOf(include.path)) {
        return "private to another module: " + include.path;
    }
    if (publicHeaders.contains(file)) {
        return "a public header includes a private one: " + include.path;
    }
    return {};
}

} // namespace

Headers readHeaders(const std::string &text)
{
    Headers headers;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.ends_with(".h")) {
            throw std::runtime_error("not a header: " + line);
        }
        headers.insert(line);
    }
    return headers;
}

std::vector<Violation> headerViolationsBelow(const std::filesystem::path &root, const Headers &publicHeaders)
{
    std::vector<Violation> found;
    for (const std::string &header : publicHeaders) {
        if (!std::filesystem::exists(root / header)) {
            found.push_back({header, 0, "declared as public, and not there"});
        }
    }
    for (const std::string &file : cppFilesBelow(root)) {
        for (const Include &include : includesOf(contentsOf(root / file))) {
            if (std::string fault = faultOf(file, include, publicHeaders); !fault.empty()) {
                found.push_back({file, include.line, std::move(fault)});
            }
        }
    }
    return found;
}

} // namespace project
