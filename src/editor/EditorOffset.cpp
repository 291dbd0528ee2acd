// SPDX-License-Identifier: MIT
//
// Shifting the times of the document, or of the selected lines.
#include "editor/EditorStep.h"
#include "editor/LeadingNumber.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"
#include "kit/Alert.h"
#include "kit/NoticeView.h"
#include "lyrics/Millis.h"
#include "resources/Localized.h"

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QLineEdit>

#include <chrono>
#include <cmath>

namespace {

Q_LOGGING_CATEGORY(lcEditor, "tqlrceditor.editor")

using namespace std::chrono_literals;

constexpr double kSmallestOffsetSeconds = 0.01;

// False for what is no number, too.
bool isOffset(double seconds)
{
    return std::abs(seconds) >= kSmallestOffsetSeconds;
}

} // namespace

void TQLRCEditorViewCtl::offsetClick(QObject *sender)
{
    moveForward(sender);
}

double TQLRCEditorViewCtl::offsetFromDialog(const QString &message)
{
    kit::Alert alert;
    alert.setMessageText(message);
    alert.setAccessoryView(m_offsetSetView.get());
    alert.addButtonWithTitle(localized(QStringLiteral("Apply")));
    alert.addButtonWithTitle(localized(QStringLiteral("Cancel")));
    alert.setInitialFirstResponder(m_lblOffsetTime);
    if (alert.runModal() != kit::Alert::kFirstButton) {
        return 0.0;
    }
    qCInfo(lcEditor, "user click apply");
    return editor::leadingNumber(m_lblOffsetTime ? m_lblOffsetTime->text() : QString());
}

void TQLRCEditorViewCtl::focusOffsetSoon()
{
    kit::afterDelay(100ms, [self = self()] {
        if (self->m_lblOffsetTime) {
            self->m_lblOffsetTime->setFocus();
        }
    });
}

void TQLRCEditorViewCtl::moveForward(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    adjustTimeTag(offsetFromDialog(
        localized(QStringLiteral("Set offset of all time labels:(positive forward，negtive backward)"))));
    focusOffsetSoon();
}

void TQLRCEditorViewCtl::offsetSelectionClick(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    if (!selection().rows.empty()) {
        adjustSelectedTimeTags(offsetFromDialog(localized(QStringLiteral(
            "Set offset of the time labels of the selected lines: (positive forward, negative backward)"))));
        focusOffsetSoon();
    }
}

void TQLRCEditorViewCtl::adjustTimeTag(double seconds)
{
    if (isOffset(seconds)) {
        const Step step(*this, localized(QStringLiteral("offset")));
        shiftTimes(changes().allRows(), lyrics::millisFromSeconds(seconds));
        tellOffset(seconds);
    }
}

void TQLRCEditorViewCtl::adjustSelectedTimeTags(double seconds)
{
    const auto rows = selection().rows;
    if (isOffset(seconds) && !rows.empty()) {
        const Step step(*this, localized(QStringLiteral("offset of selected lines")));
        shiftTimes(rows, lyrics::millisFromSeconds(seconds));
        tellOffset(seconds);
    }
}

void TQLRCEditorViewCtl::shiftTimes(const kit::RowRanges &rows, std::int64_t millis)
{
    const std::size_t cut = changes().shift(rows, millis);
    reloadDataWithLrcChanged();
    if (cut == 1) {
        tell(localized(QStringLiteral("1 time would have been before the start: it is 00:00.00 now.")));
    } else if (cut > 1) {
        tell(localized(QStringLiteral("%1 times would have been before the start: they are 00:00.00 now."))
                 .arg(cut));
    }
}

void TQLRCEditorViewCtl::tellOffset(double seconds)
{
    // What was understood of the field: a comma, or a word, ends the number. What was cut matters more.
    if (NoticeView::currentText(viewIfLoaded()).isEmpty()) {
        const QString amount = QString::number(std::abs(seconds), 'f', 2);
        tell((seconds > 0 ? localized(QStringLiteral("The times are %1 s later now."))
                          : localized(QStringLiteral("The times are %1 s earlier now.")))
                 .arg(amount));
    }
}
