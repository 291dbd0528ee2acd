// SPDX-License-Identifier: MIT
#include "kit/TextKeys.h"

#include <QtGui/QKeyEvent>

#include <algorithm>
#include <array>

namespace kit {

namespace {

bool isMovingOrDeleting(int key)
{
    constexpr std::array<int, 10> kKeys = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down,
        Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Backspace, Qt::Key_Delete};
    return std::find(kKeys.begin(), kKeys.end(), key) != kKeys.end();
}

bool isClipboardKey(const QKeyEvent &key)
{
    return key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Cut)
        || key.matches(QKeySequence::Paste) || key.matches(QKeySequence::SelectAll);
}

} // namespace

bool isTextKey(const QKeyEvent &key)
{
    if (isClipboardKey(key)) {
        return true;
    }
    const auto commands = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (isMovingOrDeleting(key.key())) {
        return (commands & ~Qt::ControlModifier) == 0;
    }
    const QString text = key.text();
    const bool isPrinting = !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
    if (commands == Qt::NoModifier) {
        return isPrinting || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    }
    // Held together they are the third level of some keyboards, and only then a character is typed.
    return commands == (Qt::ControlModifier | Qt::AltModifier) && isPrinting;
}

bool isHistoryKey(const QKeyEvent &key)
{
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool isControlY = modifiers == Qt::ControlModifier && key.key() == Qt::Key_Y;
    const bool isControlShiftZ
        = modifiers == (Qt::ControlModifier | Qt::ShiftModifier) && key.key() == Qt::Key_Z;
    return isControlY || isControlShiftZ || key.matches(QKeySequence::Undo)
        || key.matches(QKeySequence::Redo);
}

} // namespace kit
