// SPDX-License-Identifier: MIT
#include "lyrics/MultiByte.h"

#include <algorithm>
#include <array>

namespace lyrics {
namespace {

constexpr std::array<ByteRange, 1> kGbkLeads = {{{0x81, 0xFE}}};
constexpr std::array<ByteRange, 2> kGbkTrails = {{{0x40, 0x7E}, {0x80, 0xFE}}};
// Ideographs of the first level, and punctuation.
constexpr std::array<ByteRange, 2> kGbkUsual = {{{0xA1A1, 0xA3FE}, {0xB0A1, 0xD7F9}}};
// 的我你一不是了在爱心有人这天想过来们没会着就都要好看说能话里到时候夜风花梦泪情
constexpr std::array<std::uint16_t, 39> kGbkFrequent = {0xB0AE, 0xB2BB, 0xB5BD, 0xB5C4, 0xB6BC, 0xB7E7,
    0xB9FD, 0xBAC3, 0xBAF2, 0xBBA8, 0xBBB0, 0xBBE1, 0xBECD, 0xBFB4, 0xC0B4, 0xC0E1, 0xC0EF, 0xC1CB, 0xC3BB,
    0xC3C7, 0xC3CE, 0xC4DC, 0xC4E3, 0xC7E9, 0xC8CB, 0xCAB1, 0xCAC7, 0xCBB5, 0xCCEC, 0xCED2, 0xCFEB, 0xD0C4,
    0xD2AA, 0xD2B9, 0xD2BB, 0xD3D0, 0xD4DA, 0xD5E2, 0xD7C5};

constexpr std::array<ByteRange, 1> kBig5Leads = {{{0x81, 0xFE}}};
constexpr std::array<ByteRange, 2> kBig5Trails = {{{0x40, 0x7E}, {0xA1, 0xFE}}};
constexpr std::array<ByteRange, 2> kBig5Usual = {{{0xA140, 0xA3BF}, {0xA440, 0xC67E}}};
// 的我你一不是了在愛心有人這天想過來們沒會著就都要好看說能話裡到時候夜風花夢淚情
constexpr std::array<std::uint16_t, 39> kBig5Frequent = {0xA440, 0xA446, 0xA448, 0xA4A3, 0xA4D1, 0xA4DF,
    0xA662, 0xA66E, 0xA6B3, 0xA741, 0xA7DA, 0xA853, 0xA8D3, 0xA8EC, 0xA95D, 0xAABA, 0xAAE1, 0xAC4F, 0xACDD,
    0xAD6E, 0xADB7, 0xADCC, 0xADD4, 0xAEC9, 0xAFE0, 0xB1A1, 0xB25C, 0xB36F, 0xB3A3, 0xB44E, 0xB5DB, 0xB751,
    0xB752, 0xB77C, 0xB8CC, 0xB8DC, 0xB94C, 0xB9DA, 0xBBA1};

constexpr std::array<ByteRange, 2> kShiftJisLeads = {{{0x81, 0x9F}, {0xE0, 0xFC}}};
constexpr std::array<ByteRange, 2> kShiftJisTrails = {{{0x40, 0x7E}, {0x80, 0xFC}}};
constexpr std::array<ByteRange, 1> kShiftJisSingles = {{{0xA1, 0xDF}}};
// Punctuation, kana, ideographs of the first level.
constexpr std::array<ByteRange, 4> kShiftJisUsual
    = {{{0x8140, 0x81AC}, {0x829F, 0x82F1}, {0x8340, 0x8396}, {0x889F, 0x9872}}};
// のにをてはたいるとがなしかもでくきられれさあこうそっんだまよすりえ君僕夢心空愛今日
constexpr std::array<std::uint16_t, 40> kShiftJisFrequent = {0x82A0, 0x82A2, 0x82A4, 0x82A6, 0x82A9, 0x82AA,
    0x82AB, 0x82AD, 0x82B1, 0x82B3, 0x82B5, 0x82B7, 0x82BB, 0x82BD, 0x82BE, 0x82C1, 0x82C4, 0x82C5, 0x82C6,
    0x82C8, 0x82C9, 0x82CC, 0x82CD, 0x82DC, 0x82E0, 0x82E6, 0x82E7, 0x82E8, 0x82E9, 0x82EA, 0x82F0, 0x82F1,
    0x88A4, 0x8BF3, 0x8C4E, 0x8DA1, 0x9053, 0x93FA, 0x966C, 0x96B2};

bool isIn(std::span<const ByteRange> ranges, unsigned value)
{
    return std::any_of(
        ranges.begin(), ranges.end(), [value](const ByteRange &range) { return range.has(value); });
}

} // namespace

const MultiByteEncoding kGbk = {kGbkLeads, kGbkTrails, {}, kGbkUsual, {0xA1, 0xFE}, kGbkFrequent};
const MultiByteEncoding kBig5 = {kBig5Leads, kBig5Trails, {}, kBig5Usual, {0x40, 0xFE}, kBig5Frequent};
const MultiByteEncoding kShiftJis
    = {kShiftJisLeads, kShiftJisTrails, kShiftJisSingles, kShiftJisUsual, {0x40, 0xFC}, kShiftJisFrequent};

double multiByteScore(std::string_view bytes, const MultiByteEncoding &encoding)
{
    std::size_t all = 0;
    std::size_t wrong = 0;
    std::size_t usual = 0;
    std::size_t frequent = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned lead = static_cast<unsigned char>(bytes[i]);
        if (lead < 0x80)
            continue;
        ++all;
        if (isIn(encoding.singles, lead))
            continue;
        const unsigned trail = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0;
        if (!isIn(encoding.leads, lead) || !isIn(encoding.trails, trail)) {
            ++wrong;
            continue;
        }
        ++i;
        const unsigned pair = lead << 8 | trail;
        usual += isIn(encoding.usual, pair) && encoding.usualTrails.has(trail) ? 1 : 0;
        frequent += std::binary_search(encoding.frequent.begin(), encoding.frequent.end(), pair) ? 1 : 0;
    }
    // More than one wrong place in twenty is another encoding.
    if (all == 0 || wrong * 20 > all)
        return 0;
    const auto share
        = [all](std::size_t count) { return static_cast<double>(count) / static_cast<double>(all); };
    return 0.5 * share(usual) + 0.5 * std::min(1.0, 4 * share(frequent)) - share(wrong);
}

} // namespace lyrics
