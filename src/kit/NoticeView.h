// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

class QTimer;
class QVariantAnimation;

/// A short message above the lower edge of a widget, for what went well but not quite as asked.
///
/// It goes by itself after some seconds, the longer the longer its text, or when it is clicked, or
/// gives way to the next message. It stays as long as the mouse is on it. It never takes the
/// keyboard focus, screen readers are told of it, and a click beside it reaches what is beneath. It
/// fades where the desktop animates.
class NoticeView : public QWidget
{
    Q_OBJECT

public:
    using QWidget::show;
    /// Shows `text` (plain, one sentence) over `over`, in place of what is shown there; an empty text
    /// takes that away. A null `over` is ignored.
    static void show(QWidget *over, const QString &text);
    /// What is shown over `over`; null when nothing is.
    [[nodiscard]] static QString currentText(const QWidget *over);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    explicit NoticeView(QWidget *over);

    [[nodiscard]] static NoticeView *shownOver(const QWidget *over);
    void setText(const QString &text);
    void place();
    void fadeIn();
    void dismiss();

    QString m_text;
    QTimer *m_timer;
    QVariantAnimation *m_fade;
    bool m_isGone = false;
};
