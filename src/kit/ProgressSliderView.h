// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QWidget>

#include <memory>

class ProgressSliderView;

/// Hears of each movement that the user makes: one begin, changes, one end. Seconds.
class SliderViewDelegate
{
public:
    virtual ~SliderViewDelegate() = default;

    virtual void sliderView_beginDragAt(ProgressSliderView *slider, double seconds) = 0;
    virtual void sliderView_didChangeValue(ProgressSliderView *slider, double seconds) = 0;
    virtual void sliderView_endDragAt(ProgressSliderView *slider, double seconds) = 0;

protected:
    SliderViewDelegate() = default;
    SliderViewDelegate(const SliderViewDelegate &) = default;
    SliderViewDelegate &operator=(const SliderViewDelegate &) = default;
};

/// Where in the item the player is, and the way to go elsewhere.
///
/// A press goes to the place under the pointer and drags from there; arrow keys, Page Up and
/// Down, Home, End and the wheel are whole movements of their own. Setting a value is not a
/// movement: the delegate does not hear of it. Without a length nothing can be moved.
class ProgressSliderView : public QWidget
{
    Q_OBJECT

public:
    static constexpr double kKeyStepSeconds = 5.0;
    static constexpr double kPageStepSeconds = 30.0;

    explicit ProgressSliderView(QWidget *parent = nullptr);

    /// Length in seconds; not a number and what is below 0 counts as 0.
    void setDLength(double seconds);
    [[nodiscard]] double dLength() const { return m_length; }

    /// Position in seconds, kept as given, drawn within the length. Not a number is ignored.
    /// Costs nothing to speak of while the mark stays on the same pixel.
    void setDCurValue(double seconds);
    [[nodiscard]] double dCurValue() const { return m_value; }

    void setDelegate(const std::weak_ptr<SliderViewDelegate> &delegate) { m_delegate = delegate; }
    [[nodiscard]] std::shared_ptr<SliderViewDelegate> delegate() const { return m_delegate.lock(); }

    /// True between a press and its release.
    [[nodiscard]] bool isDragging() const { return m_dragging; }
    /// One whole movement to `seconds`, as a key does it. Clamped to the length.
    void moveTo(double seconds);

    /// Horizontal place of a position, and back; logical pixels from the view's left edge.
    [[nodiscard]] double xAt(double seconds) const;
    [[nodiscard]] double secondsAt(double x) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    [[nodiscard]] double clamped(double seconds) const;
    void beginDrag(double seconds);
    void drag(double seconds);
    void endDrag();
    void tellReaders();

    double m_length = 0.0;
    double m_value = 0.0;
    int m_wheelRest = 0;
    bool m_dragging = false;
    std::weak_ptr<SliderViewDelegate> m_delegate;
};
