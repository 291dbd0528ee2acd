// SPDX-License-Identifier: MIT
#include "preview/RBPreviewBgView.h"

#include <QtGui/QMouseEvent>

RBPreviewBgView::RBPreviewBgView(QWidget *parent) : MyStyledView(parent)
{ }

void RBPreviewBgView::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}
