// SPDX-License-Identifier: MIT
#include "cli/Iconv.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <iconv.h>

namespace cli {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

class Converter
{
public:
    explicit Converter(const std::string &name) : m_handle(iconv_open("UTF-8", name.c_str())) { }
    ~Converter()
    {
        if (isOpen())
            iconv_close(m_handle);
    }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;

    [[nodiscard]] bool isOpen() const
    {
        // What the manual calls (iconv_t) −1.
        return reinterpret_cast<std::ptrdiff_t>(m_handle) != -1;
    }
    [[nodiscard]] Converted convert(std::string_view bytes)
    {
        Converted converted;
        // It writes to none of them, whatever its signature says.
        char *in = const_cast<char *>(bytes.data()); // NOLINT(cppcoreguidelines-pro-type-const-cast)
        std::size_t left = bytes.size();
        std::array<char, 16384> buffer{};
        for (bool isFlush = false; left > 0 || !isFlush;) {
            isFlush = left == 0;
            char *out = buffer.data();
            std::size_t room = buffer.size();
            const std::size_t answer = isFlush ? iconv(m_handle, nullptr, nullptr, &out, &room)
                                               : iconv(m_handle, &in, &left, &out, &room);
            converted.text.append(buffer.data(), out);
            if (answer == static_cast<std::size_t>(-1) && errno != E2BIG) {
                converted.wrongAt = bytes.size() - left;
                return converted;
            }
        }
        return converted;
    }

private:
    iconv_t m_handle;
};

} // namespace

bool isEncoding(const std::string &name)
{
    // An option such as //TRANSLIT would lose what the target does not have, and our target has everything.
    return !name.empty() && name.find('/') == std::string::npos && Converter(name).isOpen();
}

Converted toUtf8(std::string_view bytes, const std::string &name)
{
    Converted converted = Converter(name).convert(bytes);
    if (converted.text.starts_with(kMark))
        converted.text.erase(0, kMark.size());
    return converted;
}

} // namespace cli
