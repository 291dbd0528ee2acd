// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QWidget>

class SourceView;

namespace editor {

/// The quiet margin at the left of the source view: numbers of physical lines from 1, and a dot where a line
/// has a problem. It has a tooltip with the problem, and leaves the mouse otherwise to what lies beneath.
class SourceMargin : public QWidget
{
    Q_OBJECT

public:
    explicit SourceMargin(SourceView *view);

    /// The width for line numbers up to `lines`, in logical pixels.
    [[nodiscard]] int widthFor(int lines) const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    SourceView *m_view;
};

} // namespace editor
