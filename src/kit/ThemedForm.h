// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

class QWidget;

namespace kit {

/// Gives the texts of a form their size and colour, and again when the palette or the font
/// changes: those widgets that have the property "kitText", a list of words:
/// `caption small body large figure`, `semibold bold`, `quiet accent ink warning`.
class ThemedForm : public QObject
{
    Q_OBJECT

public:
    /// Looks after `root` from now on, as its child.
    static void install(QWidget *root);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit ThemedForm(QWidget *root);

    void apply();

    QWidget *m_root;
    bool m_applying = false;
};

} // namespace kit
