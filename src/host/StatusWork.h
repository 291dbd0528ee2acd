// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

class QLabel;
class QMainWindow;
class QProgressBar;
class QWidget;

namespace desk {

/// Work that goes on beside the window: its status bar says what it is and how far, and lets the user cancel
/// it, by a button or Escape.
class StatusWork final : public QObject
{
    Q_OBJECT

public:
    /// The user's words for it, for its button and for screen readers.
    struct Words
    {
        QString name; ///< "Searching"
        QString cancel; ///< "Cancel the search"
    };

    /// \param buttonName  the button's object name.
    /// \param window  outlives this.
    StatusWork(QMainWindow &window, const Words &words, const QString &buttonName);

    /// Shows `text`; how far it is, is not known yet.
    void show(const QString &text);
    /// `done` of the whole, 0 to 1.
    void setDone(double done);
    void hide();
    [[nodiscard]] bool isShown() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void cancelled();

private:
    QMainWindow &m_window;
    QWidget *m_panel = nullptr;
    QLabel *m_label = nullptr;
    QProgressBar *m_bar = nullptr;
};

} // namespace desk
