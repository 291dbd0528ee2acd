// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QBasicTimer>
#include <QtCore/QObject>
#include <QtCore/QRect>

class QPainter;
class TQLRCTextView;

namespace editor {

/// The caret of a text view, as wide as the view says and in the accent.
///
/// The toolkit draws a caret by inverting what lies beneath it, in no colour of ours; so it draws none, and
/// the view paints this one over its text. Blinks as the desktop's carets do.
class AccentCaret : public QObject
{
    Q_OBJECT

public:
    /// \param view  owns it.
    explicit AccentCaret(TQLRCTextView *view);

    /// To be called at the end of the viewport's painting.
    void paint(QPainter &painter) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void restart();
    void hide();
    [[nodiscard]] QRect rect() const;

    TQLRCTextView *m_view;
    QBasicTimer m_blink;
    QRect m_drawn;
    bool m_isOn = false;
};

} // namespace editor
