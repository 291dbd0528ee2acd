// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSize>

class QWidget;

namespace kit {

/// Lets a widget grow and shrink with whatever parent it has at the time: the margins around it
/// stay as they were when it came into that parent.
class AutoResize : public QObject
{
    Q_OBJECT

public:
    /// Looks after `widget` from now on, as its child.
    static void install(QWidget *widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit AutoResize(QWidget *widget);

    void watchParent();
    void followParent();

    QWidget *m_widget;
    QPointer<QWidget> m_parent;
    QSize m_parentSize;
};

} // namespace kit
