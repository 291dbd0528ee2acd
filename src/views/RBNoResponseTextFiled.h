// SPDX-License-Identifier: MIT
#pragma once

#include "kit/FiguresLabel.h"

/// A label that the mouse does not see: clicks, tooltips and the pointer's shape belong to what
/// lies beneath. Drawn as its base draws it, plain text in figures of equal width.
class RBNoResponseTextFiled : public kit::FiguresLabel
{
    Q_OBJECT

public:
    explicit RBNoResponseTextFiled(QWidget *parent = nullptr);
};
