// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class ProgressSliderView;

namespace kit {
class TickMarks;
class WaveformPicture;
struct Theme;
} // namespace kit

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
/// movement: the delegate does not hear of it. Without a length nothing can be moved. The time under
/// the pointer stands in a tip. Time runs from left to right in every language, as on all players.
///
/// Shows the waveform behind the position, a plain bar while there is none, and a mark for each tick.
class ProgressSliderView : public QWidget
{
    Q_OBJECT

public:
    static constexpr double kKeyStepSeconds = 5.0;
    static constexpr double kPageStepSeconds = 30.0;

    explicit ProgressSliderView(QWidget *parent = nullptr);
    ~ProgressSliderView() override;

    /// Length in seconds; not a number and what is below 0 counts as 0.
    void setDLength(double seconds);
    [[nodiscard]] double dLength() const { return m_length; }

    /// Position in seconds, kept as given, drawn within the length. Not a number is ignored.
    /// Costs nothing to speak of while the mark stays on the same pixel.
    void setDCurValue(double seconds);
    [[nodiscard]] double dCurValue() const { return m_value; }

    /// How loud it is: level i, 0 to 1, is of the seconds from i * `secondsPerLevel` (above 0) on.
    /// Levels may be missing at the end while they are not known yet; none at all show a plain bar.
    void setPeaks(std::vector<float> levels, double secondsPerLevel);
    /// Marks, in seconds and any order; what is outside the length is not shown. Only their strip
    /// is painted again, and nothing when they are the same.
    void setTicks(const std::vector<double> &seconds);
    /// Marks that stand out above the others.
    void setEmphasisedTicks(const std::vector<double> &seconds);
    /// How a time is written, in the tip and to screen readers; minutes and seconds without it.
    void setTimeText(std::function<QString(double seconds)> text) { m_timeText = std::move(text); }
    [[nodiscard]] QString timeText(double seconds) const;

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
    bool event(QEvent *event) override;
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
    [[nodiscard]] double room() const;
    [[nodiscard]] QRectF waveformArea() const;
    [[nodiscard]] QRectF barArea() const;
    [[nodiscard]] QRectF marksArea() const;
    void updateBetween(double x, double otherX);
    void paintBar(QPainter &painter, const kit::Theme &theme);
    void paintWaveform(QPainter &painter, const kit::Theme &theme);
    void paintMarks(QPainter &painter, const kit::Theme &theme, const QRect &exposed);
    void showTip(const QMouseEvent *event);
    void beginDrag(double seconds);
    void drag(double seconds);
    void endDrag();
    void tellReaders();

    double m_length = 0.0;
    double m_value = 0.0;
    int m_wheelRest = 0;
    bool m_dragging = false;
    std::function<QString(double seconds)> m_timeText;
    std::unique_ptr<kit::WaveformPicture> m_waveform;
    std::unique_ptr<kit::TickMarks> m_ticks;
    std::unique_ptr<kit::TickMarks> m_emphasisedTicks;
    std::weak_ptr<SliderViewDelegate> m_delegate;
};
