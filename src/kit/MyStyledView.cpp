// SPDX-License-Identifier: MIT
#include "kit/MyStyledView.h"

#include <QtGui/QPainter>

MyStyledView::MyStyledView(QWidget *parent) : QWidget(parent)
{ }

QColor MyStyledView::backgroundColor() const
{
    return m_backgroundRole ? palette().color(*m_backgroundRole) : m_backgroundColor;
}

void MyStyledView::setBackgroundColor(const QColor &color)
{
    m_backgroundRole.reset();
    m_backgroundColor = color;
    update();
}

void MyStyledView::setBackgroundColor(QPalette::ColorRole role)
{
    m_backgroundRole = role;
    update();
}

void MyStyledView::setTopEdgeColor(const QColor &color)
{
    m_topEdgeColor = color;
    update();
}

void MyStyledView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QColor background = backgroundColor();
    if (background.isValid())
        painter.fillRect(rect(), background);
    if (m_topEdgeColor.isValid())
        painter.fillRect(QRectF(0, 0, width(), 1.0 / devicePixelRatioF()), m_topEdgeColor);
}
