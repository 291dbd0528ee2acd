// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QLabel>

/// A label that the mouse does not see: clicks, tooltips and the pointer's shape belong to what
/// lies beneath. Drawn as any label; its text is plain.
class RBNoResponseTextFiled : public QLabel
{
    Q_OBJECT

public:
    explicit RBNoResponseTextFiled(QWidget *parent = nullptr);
};
