// SPDX-License-Identifier: MIT
#include "project/HeaderRules.h"

#include <sstream>
#include <stdexcept>

namespace project {
namespace {

bool isHeader(const std::string &file)
{
    return file.ends_with(".h");
}

bool isOfProgram(const std::string &file)
{
    const std::string module = moduleOf(file);
    return module == "host" || module == "cli";
}

std::string faultOf(const std::string &file, const Include &include, const DeclaredHeaders &declared)
{
    if (!include.quoted || !declared.privateOnes.contains(include.path)) {
        return {};
    }
    if (moduleOf(file) != moduleOf(include.path)) {
        return "private to another module: " + include.path;
    }
    if (declared.publicOnes.contains(file)) {
        return "a public header includes a private one: " + include.path;
    }
    return {};
}

} // namespace

DeclaredHeaders readDeclaredHeaders(const std::string &text)
{
    DeclaredHeaders declared;
    std::istringstream lines(text);
    std::string kind;
    std::string path;
    while (lines >> kind >> path) {
        if (kind != "public" && kind != "private") {
            throw std::runtime_error("neither public nor private: " + path);
        }
        (kind == "public" ? declared.publicOnes : declared.privateOnes).insert(path);
    }
    return declared;
}

std::vector<Violation> headerViolationsBelow(
    const std::filesystem::path &root, const DeclaredHeaders &declared)
{
    std::vector<Violation> found;
    for (const std::string &file : cppFilesBelow(root)) {
        const bool known = declared.publicOnes.contains(file) || declared.privateOnes.contains(file);
        if (isHeader(file) && !isOfProgram(file) && !known) {
            found.push_back({file, 0, "not listed by its target, as public (HEADERS) or private (SOURCES)"});
        }
        for (const Include &include : includesOf(contentsOf(root / file))) {
            if (std::string fault = faultOf(file, include, declared); !fault.empty()) {
                found.push_back({file, include.line, std::move(fault)});
            }
        }
    }
    return found;
}

} // namespace project
