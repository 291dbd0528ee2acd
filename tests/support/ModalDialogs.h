// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <functional>

namespace support {

/// Runs `answer` once the next modal dialog is up. `answer` must end the dialog.
inline void whenDialogOpens(std::function<void(QWidget &dialog)> answer)
{
    auto *poll = new QTimer(qApp);
    poll->setInterval(0);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, answer = std::move(answer)] {
        QWidget *dialog = QApplication::activeModalWidget();
        if (dialog && dialog->isVisible()) {
            poll->stop();
            poll->deleteLater();
            answer(*dialog);
        }
    });
    poll->start();
}

inline QAbstractButton *buttonTitled(const QWidget &dialog, const QString &title)
{
    for (auto *button : dialog.findChildren<QAbstractButton *>()) {
        if (button->text().remove(QLatin1Char('&')) == title) {
            return button;
        }
    }
    return nullptr;
}

/// Every text that the dialog shows.
inline QStringList textsOf(const QWidget &dialog)
{
    QStringList texts;
    for (const auto *label : dialog.findChildren<QLabel *>()) {
        texts.append(label->text());
    }
    return texts;
}

} // namespace support
