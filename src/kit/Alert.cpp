// SPDX-License-Identifier: MIT
#include "kit/Alert.h"

#include "kit/AlertDialog.h"
#include "kit/FormLoader.h"

#include <QtWidgets/QApplication>

namespace kit {

int Alert::addButtonWithTitle(const QString &title)
{
    m_buttons.append(title);
    return kFirstButton + static_cast<int>(m_buttons.size()) - 1;
}

int Alert::cancelButton() const
{
    const QString english = QStringLiteral("Cancel");
    const auto index = m_buttons.indexOf(FormLoader::translated(english));
    if (index >= 0)
        return static_cast<int>(index);
    const auto englishIndex = m_buttons.indexOf(english);
    return static_cast<int>(englishIndex >= 0 ? englishIndex : m_buttons.size() - 1);
}

int Alert::runModal()
{
    if (m_buttons.isEmpty())
        addButtonWithTitle(FormLoader::translated(QStringLiteral("OK")));
    const int cancel = cancelButton();

    // On the heap and watched: the window above which it opens may take it along.
    const QPointer<AlertDialog> dialog
        = new AlertDialog(m_message, m_information, QApplication::activeWindow());
    bool answered = false;
    int answer = cancel;
    QObject::connect(dialog, &QDialog::finished, dialog, [&answered, &answer](int index) {
        answered = true;
        answer = index;
    });
    if (m_accessory != nullptr)
        dialog->addAccessory(m_accessory);
    dialog->addButtons(m_buttons, cancel);
    if (m_firstResponder != nullptr)
        dialog->focusFirst(m_firstResponder);
    dialog->exec();
    delete dialog;
    return kFirstButton + (answered ? answer : cancel);
}

} // namespace kit
