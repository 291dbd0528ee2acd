// SPDX-License-Identifier: MIT
#include "views/TQLRCTextView.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kDefaultCaretWidth = 3.0;
constexpr double kWidestCaret = 1000.0; // keeps a wild value within what an int and a view can hold

} // namespace

TQLRCTextView::TQLRCTextView(QWidget *parent) : QTextEdit(parent)
{
    setCaretWidth(kDefaultCaretWidth);
}

void TQLRCTextView::setCaretWidth(double width)
{
    m_caretWidth = width;
    const double drawn = std::isnan(width) ? 0.0 : std::clamp(width, 0.0, kWidestCaret);
    // The text control paints and invalidates by this width.
    setCursorWidth(static_cast<int>(std::lround(drawn)));
}
