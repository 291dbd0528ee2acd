// SPDX-License-Identifier: MIT
#pragma once

#include "kit/MyStyledView.h"

/// The ground of the preview: clicks on it end here.
class RBPreviewBgView : public MyStyledView
{
    Q_OBJECT

public:
    explicit RBPreviewBgView(QWidget *parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
