// SPDX-License-Identifier: MIT
#include "kit/AccentButton.h"
#include "kit/AutoResize.h"
#include "kit/CoverView.h"
#include "kit/ElidedLabel.h"
#include "kit/FiguresLabel.h"
#include "kit/MyStyledView.h"
#include "kit/RoundButton.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QProxyStyle>

class tst_SmallWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void styledViewPaintsGroundAndEdge();
    void styledViewWithoutColoursPaintsNothing();
    void styledViewFollowsARole();
    void elidedLabelGivesWayAndKeepsItsText();
    void elidedLabelIsPlainAndOneLine();
    void figuresDoNotMoveWhatFollows();
    void figuresKeepTheirSize();
    void figuresAreAlignedAsTheLabelIs();
    void coverIsCutToASquareWithRoundCorners();
    void coverShowsTheWholePictureOnce();
    void clearedCoverHasNoPixmap();
    void roundButtonIsPressedByKeyAndMouse();
    void accentButtonFlashesAndIsCalmAgain();
    void accentButtonDoesNotFlashWithoutAnimations();
    void autoResizeKeepsTheMargins();
    void autoResizeFollowsANewParentAndAHiddenOne();
};

void tst_SmallWidgets::styledViewPaintsGroundAndEdge()
{
    MyStyledView view;
    view.resize(20, 20);
    view.setBackgroundColor(Qt::white);
    view.setTopEdgeColor(QColor(0, 0, 0, 128));
    const QImage image = view.grab().toImage();
    QCOMPARE(image.pixelColor(10, 1), QColor(Qt::white));
    QVERIFY(image.pixelColor(10, 0).lightness() < 140);
    QCOMPARE(view.backgroundColor(), QColor(Qt::white));
    QCOMPARE(view.topEdgeColor(), QColor(0, 0, 0, 128));
}

void tst_SmallWidgets::styledViewWithoutColoursPaintsNothing()
{
    MyStyledView view;
    view.resize(20, 20);
    QImage image(view.size(), QImage::Format_ARGB32);
    image.fill(Qt::magenta);
    view.render(&image, {}, {}, QWidget::RenderFlags());
    QCOMPARE(image.pixelColor(10, 0), QColor(Qt::magenta));
    QCOMPARE(image.pixelColor(10, 10), QColor(Qt::magenta));
    QVERIFY(!view.backgroundColor().isValid());
}

void tst_SmallWidgets::styledViewFollowsARole()
{
    MyStyledView view;
    view.setBackgroundColor(QPalette::Base);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::yellow);
    view.setPalette(palette);
    QCOMPARE(view.backgroundColor(), QColor(Qt::yellow));
    view.setBackgroundColor(Qt::green);
    QCOMPARE(view.backgroundColor(), QColor(Qt::green));
}

void tst_SmallWidgets::elidedLabelGivesWayAndKeepsItsText()
{
    kit::ElidedLabel label;
    const QString title(500, 'W');
    label.setText(title);
    QVERIFY(label.minimumSizeHint().width() < 100);
    label.resize(80, 20);
    QVERIFY(!label.grab().isNull());
    QCOMPARE(label.text(), title);
}

void tst_SmallWidgets::elidedLabelIsPlainAndOneLine()
{
    kit::ElidedLabel label;
    label.resize(300, 20);
    label.setText("<b>a</b>\nb");
    const QImage shown = label.grab().toImage();
    label.setText("<b>a</b> b");
    QCOMPARE(label.grab().toImage(), shown);
    label.setText("a b");
    QVERIFY(label.grab().toImage() != shown);
}

void tst_SmallWidgets::figuresDoNotMoveWhatFollows()
{
    kit::FiguresLabel label;
    label.setFigures("11:11.11");
    const QSize narrow = label.sizeHint();
    label.setFigures("00:00.00");
    QCOMPARE(label.sizeHint(), narrow);
    QCOMPARE(label.text(), "00:00.00");
}

void tst_SmallWidgets::figuresKeepTheirSize()
{
    QWidget parent;
    kit::FiguresLabel label(&parent);
    label.setFigures("00:00.00");
    QCOMPARE(label.minimumSize(), label.maximumSize());
    const QSize before = label.size();
    label.setFigures("00:00.01");
    QCOMPARE(label.size(), before);
    label.setFigures("100:00.01");
    QVERIFY(label.width() > before.width());
    QFont large = label.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    const int width = label.width();
    label.setFont(large);
    QVERIFY(label.width() > width);
}

void tst_SmallWidgets::figuresAreAlignedAsTheLabelIs()
{
    kit::FiguresLabel label;
    label.setProperty("text", "00:00.00"); // as a form sets it: without a size of its own
    label.resize(300, 30);
    const auto inkFrom = [&label] {
        const QImage shown = label.grab().toImage();
        for (int x = 0; x < shown.width(); ++x) {
            for (int y = 0; y < shown.height(); ++y) {
                if (shown.pixelColor(x, y).lightness() < 128)
                    return qRound(x / shown.devicePixelRatio());
            }
        }
        return -1;
    };
    const int width = label.sizeHint().width();
    label.setAlignment(Qt::AlignLeft);
    QVERIFY(qAbs(inkFrom()) < 4);
    label.setAlignment(Qt::AlignCenter);
    QVERIFY(qAbs(inkFrom() - (300 - width) / 2) < 4);
    label.setAlignment(Qt::AlignRight);
    QVERIFY(qAbs(inkFrom() - (300 - width)) < 4);
}

void tst_SmallWidgets::coverIsCutToASquareWithRoundCorners()
{
    kit::CoverView cover;
    cover.resize(56, 56);
    QImage wide(400, 100, QImage::Format_RGB32);
    wide.fill(Qt::red);
    cover.setImage(wide);
    QCOMPARE(cover.pixmap(Qt::ReturnByValue).deviceIndependentSize(), QSizeF(56, 56));
    QImage shown(cover.size(), QImage::Format_ARGB32);
    shown.fill(Qt::transparent);
    cover.render(&shown, {}, {}, QWidget::RenderFlags());
    QCOMPARE(shown.pixelColor(28, 28), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(28, 1), QColor(Qt::red));
    QCOMPARE(shown.pixelColor(0, 0).alpha(), 0);
}

void tst_SmallWidgets::coverShowsTheWholePictureOnce()
{
    kit::CoverView cover;
    cover.resize(56, 56);
    QImage halves(200, 200, QImage::Format_RGB32);
    halves.fill(Qt::red);
    for (int x = 100; x < 200; ++x) {
        for (int y = 0; y < 200; ++y)
            halves.setPixelColor(x, y, Qt::blue);
    }
    cover.setImage(halves);
    const QImage shown = cover.grab().toImage();
    const auto at = [&shown](double x, double y) {
        return shown.pixelColor(static_cast<int>(shown.width() * x), static_cast<int>(shown.height() * y));
    };
    for (const double y : {0.25, 0.45, 0.75}) {
        for (const double x : {0.2, 0.3, 0.4})
            QCOMPARE(at(x, y), QColor(Qt::red));
        for (const double x : {0.6, 0.7, 0.8})
            QCOMPARE(at(x, y), QColor(Qt::blue));
    }
    QCOMPARE(cover.pixmap(Qt::ReturnByValue).devicePixelRatio(), cover.devicePixelRatioF());
}

void tst_SmallWidgets::clearedCoverHasNoPixmap()
{
    kit::CoverView cover;
    cover.resize(56, 56);
    QImage image(10, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    cover.setImage(image);
    cover.setImage(QImage());
    QVERIFY(cover.pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(cover.image().isNull());
    QVERIFY(cover.grab().toImage().pixelColor(28, 28) != QColor(Qt::red));
}

void tst_SmallWidgets::roundButtonIsPressedByKeyAndMouse()
{
    kit::RoundButton button;
    button.resize(40, 40);
    int clicks = 0;
    connect(&button, &QPushButton::clicked, this, [&clicks] { ++clicks; });
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(clicks, 2);
    QVERIFY(button.focusPolicy() & Qt::TabFocus);
    const QImage filled = button.grab().toImage();
    button.setQuiet(true);
    QVERIFY(button.grab().toImage() != filled);
}

namespace {

// A desktop that wants animations to last so long; 0 for none.
class Motion : public QProxyStyle
{
public:
    explicit Motion(int millis) : QProxyStyle(QStringLiteral("Fusion")), m_millis(millis) { }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? m_millis
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int m_millis;
};

} // namespace

void tst_SmallWidgets::accentButtonFlashesAndIsCalmAgain()
{
    Motion motion(200);
    AccentButton button;
    button.setStyle(&motion);
    button.setFocusPolicy(Qt::NoFocus); // its ring would come and go with the window
    button.resize(120, 46);
    button.flash(); // not on screen yet
    button.show();
    // The pointer may stand where the window comes up.
    QVERIFY(QTest::qWaitForWindowActive(&button));
    QCoreApplication::processEvents();
    const QImage calm = button.grab().toImage();
    int clicks = 0;
    connect(&button, &AccentButton::clicked, this, [&clicks] { ++clicks; });
    button.flash();
    QVERIFY(button.grab().toImage() != calm);
    button.click(); // takes clicks meanwhile
    QCOMPARE(clicks, 1);
    button.flash();
    QTRY_COMPARE(button.grab().toImage(), calm);
}

void tst_SmallWidgets::accentButtonDoesNotFlashWithoutAnimations()
{
    Motion motion(0);
    AccentButton button;
    button.setStyle(&motion);
    button.resize(120, 46);
    button.show();
    const QImage calm = button.grab().toImage();
    button.flash();
    QCOMPARE(button.grab().toImage(), calm);
}

void tst_SmallWidgets::autoResizeKeepsTheMargins()
{
    QWidget parent;
    parent.resize(400, 300);
    QWidget child(&parent);
    child.setGeometry(10, 20, 300, 200);
    kit::AutoResize::install(&child);
    parent.show();
    parent.resize(500, 250);
    QCOMPARE(child.geometry(), QRect(10, 20, 400, 150));
    parent.resize(400, 300);
    QCOMPARE(child.geometry(), QRect(10, 20, 300, 200));
}

void tst_SmallWidgets::autoResizeFollowsANewParentAndAHiddenOne()
{
    auto child = std::make_unique<QWidget>();
    kit::AutoResize::install(child.get());
    QWidget parent;
    parent.resize(400, 300);
    child->setParent(&parent);
    child->setGeometry(0, 0, 400, 220);
    parent.show();
    parent.hide();
    parent.resize(500, 300);
    parent.resize(600, 400); // told once, when it is shown
    parent.show();
    QCOMPARE(child->geometry(), QRect(0, 0, 600, 320));
    child->setParent(nullptr);
    parent.resize(100, 100);
    QCOMPARE(child->size(), QSize(600, 320));
}

QTEST_MAIN(tst_SmallWidgets)
#include "tst_small_widgets.moc"
