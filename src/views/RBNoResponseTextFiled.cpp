// SPDX-License-Identifier: MIT
#include "views/RBNoResponseTextFiled.h"

RBNoResponseTextFiled::RBNoResponseTextFiled(QWidget *parent) : FiguresLabel(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}
