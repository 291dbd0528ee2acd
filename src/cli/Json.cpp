// SPDX-License-Identifier: MIT
#include "cli/Json.h"

#include "cli/Utf8.h"

namespace cli {
namespace {

void appendEscaped(std::string &out, unsigned char c)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    switch (c) {
    case '"':
        out += "\\\"";
        break;
    case '\\':
        out += "\\\\";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        out += "\\u00";
        out += kDigits[c >> 4];
        out += kDigits[c & 0xF];
    }
}

bool isPlain(unsigned char c)
{
    return c >= 0x20 && c < 0x7F && c != '"' && c != '\\';
}

} // namespace

bool appendJsonString(std::string &out, std::string_view text)
{
    bool isExact = true;
    out += '"';
    const char *end = text.data() + text.size();
    for (const char *p = text.data(); p < end;) {
        const char *run = p;
        while (p < end && isPlain(static_cast<unsigned char>(*p)))
            ++p;
        out.append(run, p);
        if (p == end)
            break;
        const Utf8Step step = utf8At(p, end);
        if (step.bytes == 1 && step.valid)
            appendEscaped(out, static_cast<unsigned char>(*p));
        else if (step.valid)
            out.append(p, static_cast<std::size_t>(step.bytes));
        else
            out += kReplacement;
        isExact = isExact && step.valid;
        p += step.bytes;
    }
    out += '"';
    return isExact;
}

void JsonWriter::separate()
{
    if (m_needsComma)
        m_out += ',';
    m_needsComma = true;
}

JsonWriter &JsonWriter::open(char bracket)
{
    separate();
    m_out += bracket;
    m_needsComma = false;
    return *this;
}

JsonWriter &JsonWriter::close(char bracket)
{
    m_out += bracket;
    m_needsComma = true;
    return *this;
}

JsonWriter &JsonWriter::key(std::string_view name)
{
    string(name);
    m_out += ':';
    m_needsComma = false;
    return *this;
}

JsonWriter &JsonWriter::string(std::string_view text)
{
    separate();
    m_isExact = appendJsonString(m_out, text) && m_isExact;
    return *this;
}

JsonWriter &JsonWriter::number(std::int64_t number)
{
    separate();
    m_out += std::to_string(number);
    return *this;
}

JsonWriter &JsonWriter::boolean(bool value)
{
    separate();
    m_out += value ? "true" : "false";
    return *this;
}

} // namespace cli
