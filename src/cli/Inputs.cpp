// SPDX-License-Identifier: MIT
#include "cli/Inputs.h"

#include "cli/ReadFile.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>

namespace cli {
namespace {

constexpr std::uint64_t kLargestList = 1ULL << 30;
// Deeper than any folder of music; a bound on the stack.
constexpr int kDeepest = 128;

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};

enum class Kind { File, Folder, Other };

/// What the entry is. The system mostly tells it along with the name, which saves a call for each file.
Kind kindOf(const std::string &path, unsigned char told)
{
    if (told == DT_REG)
        return Kind::File;
    if (told == DT_DIR)
        return Kind::Folder;
    struct stat status = {};
    if (told == DT_LNK && stat(path.c_str(), &status) == 0)
        return S_ISREG(status.st_mode) ? Kind::File : Kind::Other;
    if (told == DT_UNKNOWN && lstat(path.c_str(), &status) == 0)
        return S_ISREG(status.st_mode) ? Kind::File : S_ISDIR(status.st_mode) ? Kind::Folder : Kind::Other;
    return Kind::Other;
}

class Finder
{
public:
    Finder(std::span<const std::string_view> endings, InputList &list) : m_endings(endings), m_list(list) { }

    void addFolder(const std::string &folder, int depth)
    {
        const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.c_str()));
        if (!open) {
            m_list.complaints.push_back(
                folder + ": the folder could not be read: " + std::generic_category().message(errno) + ".");
            return;
        }
        std::vector<Entry> entries = entriesOf(*open);
        std::ranges::sort(entries, {}, &Entry::name);
        for (const Entry &entry : entries)
            addEntry(folder.ends_with('/') ? folder + entry.name : folder + '/' + entry.name, entry, depth);
    }

private:
    struct Entry
    {
        std::string name;
        unsigned char told = DT_UNKNOWN;
    };

    std::vector<Entry> entriesOf(DIR &folder) const
    {
        std::vector<Entry> entries;
        while (const dirent *entry = readdir(&folder)) {
            const std::string_view name = entry->d_name;
            const bool isWanted = entry->d_type == DT_REG ? hasEnding(name) : true;
            if (name.front() != '.' && isWanted)
                entries.push_back({std::string(name), entry->d_type});
        }
        return entries;
    }

    void addEntry(const std::string &path, const Entry &entry, int depth)
    {
        const bool mayBeFile = hasEnding(entry.name);
        if (!mayBeFile && entry.told == DT_LNK)
            return;
        const Kind kind = kindOf(path, entry.told);
        if (kind == Kind::File && mayBeFile)
            m_list.inputs.push_back({path, false, true});
        else if (kind == Kind::Folder && depth < kDeepest)
            addFolder(path, depth + 1);
        else if (kind == Kind::Folder)
            m_list.complaints.push_back(path + ": left out: folders are nested too deeply.");
    }

    [[nodiscard]] bool hasEnding(std::string_view name) const
    {
        return std::ranges::any_of(m_endings, [name](std::string_view ending) {
            return name.size() > ending.size() && name[name.size() - ending.size() - 1] == '.'
                && std::equal(ending.begin(), ending.end(), name.end() - std::ptrdiff_t(ending.size()),
                    [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); });
        });
    }

    std::span<const std::string_view> m_endings;
    InputList &m_list;
};

bool isFolder(const std::string &path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void addNames(std::string_view list, char separator, std::vector<std::string> &names)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(separator), list.size());
        if (end > 0)
            names.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

/// Adds the names in the list of --files-from.
void readList(const Invocation &invocation, std::vector<std::string> &names, InputList &list)
{
    const std::string name(invocation.value(Option::FilesFrom));
    const bool isStandardInput = name == "-";
    const FileText text = isStandardInput ? readDescriptor(invocation.around().in, kLargestList)
                                          : readFile(name, kLargestList);
    if (text.ok())
        addNames(text.bytes, invocation.has(Option::Null) ? '\0' : '\n', names);
    else
        list.complaints.push_back((isStandardInput ? "standard input" : name) + ": " + text.refusal);
}

void addOperand(const std::string &name, Finder &finder, InputList &list)
{
    if (name == "-") {
        list.inputs.push_back({name, true, false});
    } else if (isFolder(name)) {
        list.isSeveral = true;
        finder.addFolder(name, 0);
    } else {
        list.inputs.push_back({name, false, false});
    }
}

} // namespace

std::string endingOf(std::string_view path)
{
    const std::size_t point = path.rfind('.');
    const std::size_t slash = path.rfind('/');
    if (point == std::string_view::npos || (slash != std::string_view::npos && point < slash))
        return {};
    std::string ending(path.substr(point + 1));
    for (char &c : ending)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return ending;
}

InputList findInputs(const Invocation &invocation, std::span<const std::string> operands,
    std::span<const std::string_view> endings)
{
    InputList list;
    std::vector<std::string> names(operands.begin(), operands.end());
    const bool hasList = invocation.has(Option::FilesFrom);
    if (invocation.has(Option::Null) && !hasList)
        list.wrongUse = "--null says how the list of --files-from is written; there is none.";
    if (!list.wrongUse.empty())
        return list;
    if (hasList)
        readList(invocation, names, list);
    if (names.empty() && !hasList) {
        if (invocation.around().inIsTerminal)
            list.wrongUse = "Name a file, or - to type a lyric here (end it with Ctrl+D).";
        names.emplace_back("-");
    }
    list.isSeveral = hasList || names.size() > 1;
    Finder finder(endings, list);
    for (const std::string &name : names)
        addOperand(name, finder, list);
    const auto readsInput = [](const Input &input) { return input.isStandardInput; };
    const auto times = std::ranges::count_if(list.inputs, readsInput);
    if (times > (invocation.value(Option::FilesFrom) == "-" ? 0 : 1))
        list.wrongUse = "Standard input can be read only once.";
    return list;
}

} // namespace cli
