// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QDialog>

class QLabel;
class QVBoxLayout;

namespace kit {

/// The window of an Alert. Finished with the index of the button that was pressed, from 0.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    AlertDialog(const QString &message, const QString &information, QWidget *parent);
    /// Gives the accessory view back before the children die.
    ~AlertDialog() override;

    void addAccessory(QWidget *view);
    /// \param cancel  index of the button that Escape presses.
    void addButtons(const QStringList &titles, int cancel);
    void focusFirst(QWidget *widget);

    /// Escape, and closing the window.
    void reject() override;

private:
    QLabel *addText(const QString &text);

    QVBoxLayout *m_column;
    QPointer<QWidget> m_accessory;
    int m_cancel = 0;
};

} // namespace kit
