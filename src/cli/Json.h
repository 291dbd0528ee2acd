// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cli {

/// Appends `text` as a JSON string, quotes included. Bytes that are no UTF-8 become U+FFFD, one for each
/// maximal wrong part.
/// \return false when there were such bytes.
bool appendJsonString(std::string &out, std::string_view text);

/// Writes one JSON value, commas and all, on one line.
///
/// What is opened has to be closed, and each member of an object begins with its `key`.
class JsonWriter
{
public:
    explicit JsonWriter(std::string &out) : m_out(out) { }

    JsonWriter &beginObject() { return open('{'); }
    JsonWriter &endObject() { return close('}'); }
    JsonWriter &beginArray() { return open('['); }
    JsonWriter &endArray() { return close(']'); }
    JsonWriter &key(std::string_view name);
    JsonWriter &string(std::string_view text);
    JsonWriter &number(std::int64_t number);
    JsonWriter &boolean(bool value);
    /// Whether every string so far was UTF-8, so that nothing of it was replaced.
    [[nodiscard]] bool isExact() const { return m_isExact; }

private:
    JsonWriter &open(char bracket);
    JsonWriter &close(char bracket);
    void separate();

    std::string &m_out;
    bool m_needsComma = false;
    bool m_isExact = true;
};

} // namespace cli
