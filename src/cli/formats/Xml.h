// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace cli {

/// One piece of an XML text.
struct XmlToken
{
    enum class Kind { Open, Close, Empty, Text };

    Kind kind = Kind::Text;
    std::size_t line = 1; ///< where it begins, from 1
    std::string_view name; ///< of the element, without its prefix
    std::vector<std::pair<std::string_view, std::string>> attributes; ///< names without prefixes
    std::string text; ///< characters, references resolved

    /// Null when there is none of that name.
    [[nodiscard]] const std::string *attribute(std::string_view wanted) const;
};

/// Goes through an XML text piece by piece, forgiving what is not well-formed. Comments, declarations and
/// instructions are passed over; no document type is read, so that nothing in it can expand.
class XmlReader
{
public:
    explicit XmlReader(std::string_view text) : m_rest(text) { }

    /// \return false at the end.
    bool next(XmlToken &token);

private:
    void take(std::size_t size);
    bool readMarkup(XmlToken &token);
    void readTag(std::string_view inner, XmlToken &token) const;

    std::string_view m_rest;
    std::size_t m_line = 1;
};

} // namespace cli
