// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <memory>

class DropTipView;
class QBoxLayout;
class QLabel;
class QPushButton;

class DropTipViewDelegate
{
public:
    virtual ~DropTipViewDelegate() = default;

    /// Files were dropped; `paths` are local and never empty.
    virtual void dropView_didDropFiles(DropTipView *view, const QStringList &paths) = 0;

protected:
    DropTipViewDelegate() = default;
    DropTipViewDelegate(const DropTipViewDelegate &) = default;
    DropTipViewDelegate &operator=(const DropTipViewDelegate &) = default;
};

/// What an empty table shows: a prompt and a button that read as one sentence, help below them,
/// and a place to drop files.
///
/// Both buttons are for its owner to title and connect. Without a living delegate no drop is
/// accepted.
class DropTipView : public QWidget
{
    Q_OBJECT

public:
    explicit DropTipView(QWidget *parent = nullptr);

    void setPrompt(const QString &prompt);
    [[nodiscard]] QString prompt() const;

    /// Ends the sentence that the prompt begins.
    [[nodiscard]] QPushButton *btnFunction() const { return m_btnFunction; }
    /// Hidden until its clicked() is connected to something.
    [[nodiscard]] QPushButton *btnHelp() const { return m_btnHelp; }

    void setDelegate(const std::weak_ptr<DropTipViewDelegate> &delegate) { m_delegate = delegate; }
    [[nodiscard]] std::shared_ptr<DropTipViewDelegate> delegate() const { return m_delegate.lock(); }

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void buildSentence();
    void applyTheme();
    void setHighlighted(bool highlighted);

    QBoxLayout *m_sentence = nullptr;
    QLabel *m_prompt = nullptr;
    QPushButton *m_btnFunction = nullptr;
    QPushButton *m_btnHelp = nullptr;
    std::weak_ptr<DropTipViewDelegate> m_delegate;
    bool m_highlighted = false;
};
