// SPDX-License-Identifier: MIT
#include "cli/formats/Formats.h"

#include "cli/Inputs.h"
#include "lyrics/Blanks.h"

#include <algorithm>
#include <array>

namespace cli {
namespace {

constexpr std::array kFormats
    = {&kLrcFormat, &kEnhancedFormat, &kSrtFormat, &kVttFormat, &kAssFormat, &kTextFormat, &kTtmlFormat};

bool isOneOf(std::string_view word, std::string_view words)
{
    const std::string padded = " " + std::string(words) + " ";
    return padded.find(" " + std::string(word) + " ") != std::string::npos;
}

} // namespace

std::span<const LyricFormat *const> allFormats()
{
    return kFormats;
}

const LyricFormat *formatNamed(std::string_view name)
{
    const auto *found = std::ranges::find(kFormats, name, &LyricFormat::name);
    return found == kFormats.end() ? nullptr : *found;
}

const LyricFormat *formatOfPath(std::string_view path)
{
    const std::string ending = endingOf(path);
    const auto *found = std::ranges::find_if(kFormats, [&ending](const LyricFormat *format) {
        return !ending.empty() && (format->ending == ending || isOneOf(ending, format->otherEndings));
    });
    return found == kFormats.end() ? nullptr : *found;
}

const LyricFormat &formatOfText(std::string_view text)
{
    constexpr std::size_t kBeginning = 1024;
    text = text.substr(0, kBeginning);
    while (!text.empty() && (text.front() == '\n' || text.front() == '\r' || text.front() == ' '))
        text.remove_prefix(1);
    if (text.starts_with("WEBVTT"))
        return kVttFormat;
    if (text.starts_with("[Script Info]"))
        return kAssFormat;
    if (text.starts_with("<?xml") || text.starts_with("<tt"))
        return kTtmlFormat;
    return text.find(" --> ") != std::string_view::npos ? kSrtFormat : kLrcFormat;
}

} // namespace cli
