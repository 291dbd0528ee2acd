// SPDX-License-Identifier: MIT
#include "cli/Report.h"

#include "cli/Utf8.h"

namespace cli {

void Report::remark(std::string_view label, std::string_view sentence)
{
    if (!m_invocation.has(Option::Quiet))
        m_result.err += shown(std::string(label) + ": " + std::string(sentence)) + '\n';
}

void Report::remarkAt(std::size_t line, std::string_view sentence)
{
    remark(m_input.label() + ":" + std::to_string(line), sentence);
}

void Report::refuse(std::string_view label, std::string_view sentence)
{
    m_result.err += "lrctool: " + shown(std::string(label) + ": " + std::string(sentence)) + '\n';
    noteFindings();
}

JsonWriter Report::beginJson()
{
    JsonWriter json(m_result.out);
    json.beginObject();
    if (m_isSeveral)
        json.key("file").string(m_input.isStandardInput ? "-" : m_input.path);
    return json;
}

void Report::endJson(JsonWriter &json)
{
    json.endObject();
    m_result.out += '\n';
    if (!json.isExact())
        remark(m_isSeveral || !m_input.path.empty() ? m_input.label() : "diff",
            "bytes that are no UTF-8 are shown as U+FFFD in the JSON.");
}

} // namespace cli
