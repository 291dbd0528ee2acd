// SPDX-License-Identifier: MIT
#include "views/RBNoResponseTextFiled.h"

RBNoResponseTextFiled::RBNoResponseTextFiled(QWidget *parent) : QLabel(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setTextFormat(Qt::PlainText);
}
