// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// As much of JSON as the tests read: one value in a text that is known to be well formed.
namespace json {

struct Value
{
    enum class Type { Null, Bool, Number, String, Array, Object };

    Type type = Type::Null;
    bool boolean = false;
    std::string text; ///< of a string; of a number as it is written
    std::vector<Value> array;
    std::map<std::string, Value> object;

    [[nodiscard]] bool has(const std::string &key) const { return object.count(key) > 0; }
    [[nodiscard]] const Value &operator[](const std::string &key) const { return object.at(key); }
    [[nodiscard]] long long integer() const { return std::strtoll(text.c_str(), nullptr, 10); }
};

class Parser
{
public:
    explicit Parser(std::string_view text) : m_text(text) { }

    Value value()
    {
        Value result;
        switch (peek()) {
        case '{':
            result.type = Value::Type::Object;
            list('}', [this, &result] {
                std::string key = string();
                expect(':');
                result.object[std::move(key)] = value();
            });
            break;
        case '[':
            result.type = Value::Type::Array;
            list(']', [this, &result] { result.array.push_back(value()); });
            break;
        case '"':
            result.type = Value::Type::String;
            result.text = string();
            break;
        default:
            word(result);
        }
        return result;
    }

private:
    char peek()
    {
        while (m_at < m_text.size() && (m_text[m_at] == ' ' || m_text[m_at] == '\n'))
            ++m_at;
        if (m_at == m_text.size())
            throw std::runtime_error("JSON ends early");
        return m_text[m_at];
    }
    void expect(char c)
    {
        if (peek() != c)
            throw std::runtime_error(std::string("JSON without ") + c);
        ++m_at;
    }
    template <typename Item>
    void list(char closing, Item item)
    {
        ++m_at;
        while (peek() != closing) {
            item();
            if (peek() == ',')
                ++m_at;
        }
        ++m_at;
    }
    void word(Value &result)
    {
        const std::size_t end = std::min(m_text.find_first_of(",]} \n", m_at), m_text.size());
        result.text = m_text.substr(m_at, end - m_at);
        m_at = end;
        const bool isBool = result.text == "true" || result.text == "false";
        result.boolean = result.text == "true";
        result.type = isBool        ? Value::Type::Bool
            : result.text == "null" ? Value::Type::Null
                                    : Value::Type::Number;
    }
    unsigned hex()
    {
        const unsigned long unit = std::strtoul(std::string(m_text.substr(m_at, 4)).c_str(), nullptr, 16);
        m_at += 4;
        return static_cast<unsigned>(unit);
    }
    void appendCharacter(std::string &out)
    {
        unsigned c = hex();
        if (c >= 0xD800 && c < 0xDC00 && m_text.substr(m_at, 2) == "\\u") {
            m_at += 2;
            c = 0x10000 + ((c - 0xD800) << 10) + (hex() - 0xDC00);
        }
        if (c < 0x80) {
            out += static_cast<char>(c);
            return;
        }
        const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        const unsigned lead = following == 1 ? 0xC0U : following == 2 ? 0xE0U : 0xF0U;
        out += static_cast<char>(lead | c >> (6 * following));
        for (int i = following - 1; i >= 0; --i)
            out += static_cast<char>(0x80U | (c >> (6 * i) & 0x3FU));
    }
    std::string string()
    {
        expect('"');
        std::string out;
        for (; m_text.at(m_at) != '"'; ++m_at) {
            if (m_text[m_at] != '\\') {
                out += m_text[m_at];
                continue;
            }
            const char c = m_text.at(++m_at);
            constexpr std::string_view kNames = "bfnrt";
            const std::size_t name = kNames.find(c);
            if (c == 'u') {
                ++m_at;
                appendCharacter(out);
                --m_at;
            } else {
                out += name == std::string_view::npos ? c : std::string_view("\b\f\n\r\t")[name];
            }
        }
        ++m_at;
        return out;
    }

    std::string_view m_text;
    std::size_t m_at = 0;
};

} // namespace json
