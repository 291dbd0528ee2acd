// SPDX-License-Identifier: MIT
#include "project/IncludeRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string_view>

namespace project {
namespace {

namespace fs = std::filesystem;

enum class Outside {
    StandardLibrary,
    AnythingButQt,
    QtWithoutWidgets,
    Anything,
};

struct Rule
{
    std::string_view folder;
    std::string_view mayInclude; ///< other folders, one blank between
    Outside outside;
};

constexpr std::string_view kBelowTheChildren = "views kit resources lyrics shell/contracts";

// A folder may include itself, and what is named here; nothing else.
constexpr std::array kRules{
    Rule{"lyrics", "", Outside::StandardLibrary},
    Rule{"kit", "", Outside::Anything},
    Rule{"catalogue", "", Outside::QtWithoutWidgets},
    Rule{"resources", "kit catalogue", Outside::Anything},
    Rule{"shell/contracts", "", Outside::QtWithoutWidgets},
    Rule{"views", "kit resources", Outside::Anything},
    Rule{"player", kBelowTheChildren, Outside::Anything},
    Rule{"preview", kBelowTheChildren, Outside::Anything},
    Rule{"editor", kBelowTheChildren, Outside::Anything},
    Rule{"shell", "editor player preview views kit resources lyrics shell/contracts", Outside::Anything},
    Rule{"media/tags", "", Outside::AnythingButQt},
    Rule{"media/items", "media/tags shell/contracts catalogue", Outside::Anything},
    Rule{"media/player", "media/tags media/items shell/contracts", Outside::Anything},
    Rule{"host", "shell shell/contracts media/tags media/items media/player", Outside::Anything},
    Rule{"cli", "lyrics media/tags", Outside::AnythingButQt},
};

const Rule *ruleOf(std::string_view file)
{
    const Rule *longest = nullptr;
    for (const Rule &rule : kRules) {
        const bool inside = file.starts_with(rule.folder) && file.size() > rule.folder.size()
            && file[rule.folder.size()] == '/';
        if (inside && (longest == nullptr || rule.folder.size() > longest->folder.size())) {
            longest = &rule;
        }
    }
    return longest;
}

bool isNamed(std::string_view list, std::string_view folder)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(' '), list.size());
        if (list.substr(0, end) == folder) {
            return true;
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// What the toolkit's own tools write: it has no folder, and belongs to who includes it.
bool isGenerated(std::string_view path)
{
    return path.find('/') == std::string_view::npos
        && (path.ends_with(".moc") || path.starts_with("ui_") || path.starts_with("moc_"));
}

bool isQt(std::string_view path)
{
    return path.size() > 1 && path[0] == 'Q'
        && (path[1] == 't' || std::isupper(static_cast<unsigned char>(path[1])) != 0);
}

bool isStandard(std::string_view path)
{
    return std::ranges::all_of(path,
        [](unsigned char byte) { return std::islower(byte) != 0 || std::isdigit(byte) != 0 || byte == '_'; });
}

std::string outsideFault(const Rule &rule, const std::string &path)
{
    const bool inMedia = rule.folder.starts_with("media/");
    if (rule.outside == Outside::StandardLibrary && !isStandard(path)) {
        return "only the standard library here: " + path;
    }
    if (rule.outside == Outside::AnythingButQt && isQt(path)) {
        return "no Qt here: " + path;
    }
    if (rule.outside == Outside::QtWithoutWidgets && path.starts_with("QtWidgets")) {
        return "no widgets here: " + path;
    }
    if (isQt(path) && path.find('/') == std::string::npos) {
        return "Qt headers carry their module: " + path;
    }
    if (path.starts_with("gst/") && rule.folder != "media/player") {
        return "GStreamer belongs to media/player: " + path;
    }
    if (path.starts_with("taglib/") && !inMedia) {
        return "TagLib belongs to media: " + path;
    }
    return {};
}

std::string insideFault(const Rule &rule, const std::string &path, const fs::path &root)
{
    if (isGenerated(path)) {
        return {};
    }
    if (path.find("..") != std::string::npos || path.find('/') == std::string::npos) {
        return "quotes carry the folder: " + path;
    }
    if (!fs::exists(root / path)) {
        return "no such file: " + path;
    }
    const Rule *target = ruleOf(path);
    if (target == nullptr || (target != &rule && !isNamed(rule.mayInclude, target->folder))) {
        return std::string(rule.folder) + " may not include " + path;
    }
    return {};
}

std::string faultOf(const Rule &rule, const Include &include, const fs::path &root)
{
    return include.quoted ? insideFault(rule, include.path, root) : outsideFault(rule, include.path);
}

} // namespace

std::vector<Include> includesOf(const std::string &text)
{
    static const std::regex form(R"(^[ \t]*#[ \t]*include[ \t]*(["<])([^">]+)[">])");
    std::vector<Include> found;
    int number = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        ++number;
        std::smatch match;
        if (std::regex_search(line, match, form)) {
            found.push_back({number, match[1] == "\"", match[2]});
        }
        begin = end + 1;
    }
    return found;
}

std::string moduleOf(const std::string &file)
{
    const Rule *rule = ruleOf(file);
    return rule != nullptr ? std::string(rule->folder) : std::string();
}

std::vector<std::string> cppFilesBelow(const fs::path &root)
{
    std::vector<std::string> files;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp")) {
            files.push_back(entry.path().lexically_relative(root).generic_string());
        }
    }
    std::ranges::sort(files);
    return files;
}

std::string contentsOf(const fs::path &file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<Violation> violationsBelow(const fs::path &root)
{
    std::vector<Violation> found;
    for (const std::string &file : cppFilesBelow(root)) {
        const Rule *rule = ruleOf(file);
        if (rule == nullptr) {
            found.push_back({file, 0, "no rule for this folder"});
            continue;
        }
        for (const Include &include : includesOf(contentsOf(root / file))) {
            if (std::string fault = faultOf(*rule, include, root); !fault.empty()) {
                found.push_back({file, include.line, std::move(fault)});
            }
        }
    }
    return found;
}

} // namespace project
