// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

namespace kit {

/// A question that must be answered before anything else: a message, buttons, and a view of
/// the asker's own between them.
///
/// Return presses the first button, Escape the one titled Cancel (in English or as the forms'
/// translator says it), else the last. Every text is shown as it is, never as markup. An alert
/// without a button gets one that reads OK.
class Alert
{
public:
    /// What the first button answers; the next ones count on.
    static constexpr int kFirstButton = 1000;

    void setMessageText(const QString &message) { m_message = message; }
    void setInformativeText(const QString &information) { m_information = information; }

    /// Shown between the texts and the buttons. Not taken over: when runModal() returns, and when
    /// the window under the alert is destroyed in the meantime, it has no parent and is hidden.
    void setAccessoryView(QWidget *view) { m_accessory = view; }

    /// \return what runModal() answers for this button.
    int addButtonWithTitle(const QString &title);

    /// Has the keyboard when the alert opens; a line edit has its text selected.
    void setInitialFirstResponder(QWidget *widget) { m_firstResponder = widget; }

    /// Shows the alert above the active window and blocks until a button is pressed.
    /// \return 1000 for the first button, 1001 for the second, and so on. Closing the alert's
    ///         window, or an end of the application, counts as Escape.
    int runModal();

private:
    [[nodiscard]] int cancelButton() const;

    QString m_message;
    QString m_information;
    QStringList m_buttons;
    QPointer<QWidget> m_accessory;
    QPointer<QWidget> m_firstResponder;
};

} // namespace kit
