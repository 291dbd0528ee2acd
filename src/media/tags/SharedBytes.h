// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tags {

/// Bytes that nobody changes, which all copies and slices of it share.
class SharedBytes
{
public:
    SharedBytes() = default;
    explicit SharedBytes(std::string bytes)
        : m_owner(std::make_shared<const std::string>(std::move(bytes))), m_view(*m_owner)
    { }

    [[nodiscard]] std::string_view view() const { return m_view; }
    [[nodiscard]] std::size_t size() const { return m_view.size(); }
    [[nodiscard]] SharedBytes slice(std::size_t from, std::size_t count) const
    {
        SharedBytes out = *this;
        out.m_view = m_view.substr(from, count);
        return out;
    }

private:
    std::shared_ptr<const std::string> m_owner;
    std::string_view m_view;
};

} // namespace tags
