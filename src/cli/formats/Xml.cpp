// SPDX-License-Identifier: MIT
#include "cli/formats/Xml.h"

#include "cli/formats/Markup.h"

#include <algorithm>

namespace cli {
namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::string_view withoutPrefix(std::string_view name)
{
    const std::size_t colon = name.rfind(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view withoutSpaceBefore(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(kSpace), text.size()));
}

/// Where the `>` stands that ends the tag at the beginning of `text`; those in quotes do not.
std::size_t tagEnd(std::string_view text)
{
    char quote = '\0';
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (quote)
            quote = text[i] == quote ? '\0' : quote;
        else if (text[i] == '"' || text[i] == '\'')
            quote = text[i];
        else if (text[i] == '>')
            return i;
    }
    return std::string_view::npos;
}

} // namespace

const std::string *XmlToken::attribute(std::string_view wanted) const
{
    const auto found
        = std::ranges::find(attributes, wanted, &std::pair<std::string_view, std::string>::first);
    return found == attributes.end() ? nullptr : &found->second;
}

void XmlReader::take(std::size_t size)
{
    m_line
        += static_cast<std::size_t>(std::count(m_rest.begin(), m_rest.begin() + std::ptrdiff_t(size), '\n'));
    m_rest.remove_prefix(size);
}

bool XmlReader::next(XmlToken &token)
{
    while (!m_rest.empty()) {
        token = {};
        token.line = m_line;
        if (m_rest.front() == '<') {
            if (readMarkup(token))
                return true;
            continue;
        }
        const std::size_t end = std::min(m_rest.find('<'), m_rest.size());
        appendUnescaped(token.text, m_rest.substr(0, end));
        take(end);
        return true;
    }
    return false;
}

/// \return false when it says nothing to us.
bool XmlReader::readMarkup(XmlToken &token)
{
    const auto skipTo = [this](std::string_view closing, std::size_t from) {
        const std::size_t found = m_rest.find(closing, from);
        take(found == std::string_view::npos ? m_rest.size() : found + closing.size());
    };
    if (m_rest.starts_with("<![CDATA[")) {
        const std::size_t end = std::min(m_rest.find("]]>"), m_rest.size());
        token.text = m_rest.substr(9, end - 9);
        take(std::min(end + 3, m_rest.size()));
        return true;
    }
    if (m_rest.starts_with("<!--")) {
        skipTo("-->", 4);
        return false;
    }
    if (m_rest.starts_with("<?")) {
        skipTo("?>", 2);
        return false;
    }
    if (m_rest.starts_with("<!")) {
        skipTo(">", 2);
        return false;
    }
    const std::size_t end = tagEnd(m_rest);
    if (end == std::string_view::npos) {
        // A tag without an end is text, and so is all behind it.
        token.text = m_rest;
        take(m_rest.size());
        return true;
    }
    readTag(m_rest.substr(1, end - 1), token);
    take(end + 1);
    return true;
}

void XmlReader::readTag(std::string_view inner, XmlToken &token) const
{
    token.kind = XmlToken::Kind::Open;
    if (inner.starts_with('/')) {
        token.kind = XmlToken::Kind::Close;
        inner.remove_prefix(1);
    } else if (inner.ends_with('/')) {
        token.kind = XmlToken::Kind::Empty;
        inner.remove_suffix(1);
    }
    const std::size_t nameEnd = std::min(inner.find_first_of(kSpace), inner.size());
    token.name = withoutPrefix(inner.substr(0, nameEnd));
    inner = withoutSpaceBefore(inner.substr(nameEnd));
    while (!inner.empty()) {
        const std::size_t equals = inner.find('=');
        if (equals == std::string_view::npos)
            return;
        const std::string_view name = inner.substr(0, std::min(inner.find_first_of(kSpace), equals));
        inner = withoutSpaceBefore(inner.substr(equals + 1));
        if (inner.empty() || (inner.front() != '"' && inner.front() != '\''))
            return;
        const std::size_t end = inner.find(inner.front(), 1);
        if (end == std::string_view::npos)
            return;
        token.attributes.emplace_back(withoutPrefix(name), std::string());
        appendUnescaped(token.attributes.back().second, inner.substr(1, end - 1));
        inner = withoutSpaceBefore(inner.substr(end + 1));
    }
}

} // namespace cli
