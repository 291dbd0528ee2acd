// SPDX-License-Identifier: MIT
#include "editor/LeadingNumber.h"

#include <QtCore/QByteArray>

#include <charconv>
#include <cmath>

namespace editor {

double leadingNumber(QStringView text)
{
    QByteArray number = text.trimmed().toLatin1();
    if (number.startsWith('+')) {
        number.remove(0, 1);
    }
    double value = 0.0;
    const auto result = std::from_chars(number.begin(), number.end(), value, std::chars_format::fixed);
    // The words for what is no number are no number.
    return result.ec == std::errc() && std::isfinite(value) ? value : 0.0;
}

} // namespace editor
