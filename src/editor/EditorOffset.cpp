// SPDX-License-Identifier: MIT
//
// Shifting every time of the document.
#include "editor/LeadingNumber.h"
#include "editor/LineCommands.h"
#include "editor/TQLRCEditorViewCtl.h"
#include "kit/AfterDelay.h"
#include "kit/Alert.h"
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

} // namespace

void TQLRCEditorViewCtl::offsetClick(QObject *sender)
{
    moveForward(sender);
}

void TQLRCEditorViewCtl::moveForward(QObject *sender)
{
    Q_UNUSED(sender)
    const auto alive = self();
    kit::Alert alert;
    alert.setMessageText(
        localized(QStringLiteral("Set offset of all time labels:(positive forward，negtive backward)")));
    alert.setAccessoryView(m_offsetSetView.get());
    alert.addButtonWithTitle(localized(QStringLiteral("Apply")));
    alert.addButtonWithTitle(localized(QStringLiteral("Cancel")));
    alert.setInitialFirstResponder(m_lblOffsetTime);
    if (alert.runModal() == kit::Alert::kFirstButton) {
        qCInfo(lcEditor, "user click apply");
        adjustTimeTag(editor::leadingNumber(m_lblOffsetTime ? m_lblOffsetTime->text() : QString()));
    }
    kit::afterDelay(100ms, [self = self()] {
        if (self->m_lblOffsetTime) {
            self->m_lblOffsetTime->setFocus();
        }
    });
}

void TQLRCEditorViewCtl::adjustTimeTag(double seconds)
{
    if (!(std::abs(seconds) >= kSmallestOffsetSeconds)) {
        return;
    }
    editor::shiftAll(m_song, lyrics::millisFromSeconds(seconds));
    reloadDataWithLrcChanged();
}
