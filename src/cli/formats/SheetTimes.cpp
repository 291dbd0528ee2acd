// SPDX-License-Identifier: MIT
#include "cli/formats/SheetTimes.h"

#include "lyrics/Blanks.h"

#include <algorithm>
#include <limits>

namespace cli {
namespace {

bool hasWords(const SheetLine &line)
{
    return !lyrics::trimmed(line.text()).empty();
}

bool isOffset(std::string_view key)
{
    return std::ranges::equal(
        key, std::string_view("offset"), [](char a, char b) { return (a | 0x20) == b; });
}

/// For each line the start of the next later one; the largest number when none comes.
std::vector<std::int64_t> nextStarts(const std::vector<SheetLine> &lines)
{
    std::vector<std::int64_t> next(lines.size());
    std::int64_t later = std::numeric_limits<std::int64_t>::max();
    std::int64_t current = later;
    for (std::size_t i = lines.size(); i-- > 0;) {
        if (lines[i].start && *lines[i].start != current) {
            later = current;
            current = *lines[i].start;
        }
        next[i] = later;
    }
    return next;
}

std::int64_t endOf(const SheetLine &line, std::int64_t next)
{
    constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();
    if (line.end && *line.end > *line.start)
        return *line.end;
    if (next != kNever)
        return next;
    return *line.start > kNever - kLastLineMillis ? kNever : *line.start + kLastLineMillis;
}

} // namespace

void sortLines(Sheet &sheet)
{
    std::vector<std::pair<std::int64_t, std::size_t>> order;
    std::int64_t last = std::numeric_limits<std::int64_t>::min();
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
        last = sheet.lines[i].start.value_or(last);
        order.emplace_back(last, i);
    }
    std::ranges::stable_sort(order, {}, &std::pair<std::int64_t, std::size_t>::first);
    std::vector<SheetLine> lines;
    lines.reserve(order.size());
    for (const auto &[start, index] : order)
        lines.push_back(std::move(sheet.lines[index]));
    sheet.lines = std::move(lines);
}

std::vector<SheetLine> shownLines(const Sheet &sheet, Losses &losses)
{
    const std::vector<std::int64_t> next = nextStarts(sheet.lines);
    std::vector<SheetLine> shown;
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
        const SheetLine &line = sheet.lines[i];
        if (!line.start) {
            losses.add(line.source,
                hasWords(line) ? "the untimed line is left out." : "the blank line is left out.");
        } else if (hasWords(line)) {
            if (*line.start < 0)
                losses.add(line.source, "the time below zero becomes zero.");
            shown.push_back(line);
            shown.back().end = endOf(line, next[i]);
        }
    }
    return shown;
}

void noteTags(const Sheet &sheet, std::string_view kept, std::string_view format, Losses &losses)
{
    bool isKept = false;
    for (const SheetTag &tag : sheet.tags) {
        const bool isFirst = tag.key == kept && !isKept;
        isKept = isKept || isFirst;
        if (isFirst)
            continue;
        losses.add(tag.source,
            "the tag [" + tag.key + ":" + tag.value + "] is left out; " + std::string(format)
                + (isOffset(tag.key)
                        ? " has no place for it; 'lrctool bake-offset' puts it into the times first."
                        : " has no place for it."));
    }
}

void noteWordTimes(const std::vector<SheetLine> &lines, std::string_view format, Losses &losses)
{
    for (const SheetLine &line : lines) {
        if (line.hasWordTimes())
            losses.add(line.source,
                "the times of its words are left out; " + std::string(format) + " has no place for them.");
    }
}

std::string tagValue(const Sheet &sheet, std::string_view key)
{
    const auto found = std::ranges::find(sheet.tags, key, &SheetTag::key);
    return found == sheet.tags.end() ? std::string() : found->value;
}

} // namespace cli
