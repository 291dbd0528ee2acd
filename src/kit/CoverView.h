// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QLabel>

namespace kit {

/// A picture with round corners, as large as fits, cut to a square; a quiet square without one.
class CoverView : public QLabel
{
    Q_OBJECT

public:
    explicit CoverView(QWidget *parent = nullptr);

    /// A null image clears it; pixmap() is null then.
    void setImage(const QImage &image);
    [[nodiscard]] QImage image() const { return m_image; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void cutPicture();
    [[nodiscard]] QRect square() const;

    QImage m_image;
};

} // namespace kit
