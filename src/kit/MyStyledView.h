// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPalette>
#include <QtWidgets/QWidget>

#include <optional>

/// A view that paints a background colour and a line along its top edge.
///
/// Without a colour (an invalid one, the default) it paints nothing there. A background may be
/// given as a role of the palette instead, and then follows it.
class MyStyledView : public QWidget
{
    Q_OBJECT

public:
    explicit MyStyledView(QWidget *parent = nullptr);

    /// The colour as it is painted now; invalid when there is none.
    [[nodiscard]] QColor backgroundColor() const;
    void setBackgroundColor(const QColor &color);
    void setBackgroundColor(QPalette::ColorRole role);

    /// One device pixel high.
    [[nodiscard]] QColor topEdgeColor() const { return m_topEdgeColor; }
    void setTopEdgeColor(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_backgroundColor;
    std::optional<QPalette::ColorRole> m_backgroundRole;
    QColor m_topEdgeColor;
};
