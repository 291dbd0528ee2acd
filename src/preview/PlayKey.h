// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QWidget;

namespace preview {

/// The space key of a view that never has the keyboard itself: wherever in the window it is pressed while the
/// view is on screen, unless somebody there uses it, a focused button or a field of the host's.
class PlayKey : public QObject
{
    Q_OBJECT

public:
    /// Owned by `view`.
    explicit PlayKey(QWidget *view);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Once for each press, not while the key is held down.
    void pressed();

private:
    void watchWindow();

    QWidget *m_view;
    QPointer<QWidget> m_window;
};

} // namespace preview
