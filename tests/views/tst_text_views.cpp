// SPDX-License-Identifier: MIT
#include "kit/FiguresLabel.h"
#include "kit/FormLoader.h"
#include "support/QtWarnings.h"
#include "views/RBMenuDisabledTextView.h"
#include "views/RBNoResponseTextFiled.h"
#include "views/SmallViews.h"
#include "views/TQLRCTextView.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QFontDatabase>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

#include <cmath>
#include <limits>

namespace {

const QColor kGreen = QColor::fromRgbF(0.118F, 0.663F, 0.337F);

template <class T>
std::unique_ptr<QWidget> formWith(const QString &className)
{
    views::registerSmallViews();
    QTemporaryDir folder;
    const QString path = folder.filePath("Form.ui");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return nullptr;
    file.write(
        QStringLiteral("<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">"
                       "<widget class=\"%1\" name=\"own\"/></widget></ui>")
            .arg(className)
            .toUtf8());
    file.close();
    return kit::FormLoader::load(path);
}

int pixelsLike(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - color.red()) < 8 && qAbs(pixel.green() - color.green()) < 8
                && qAbs(pixel.blue() - color.blue()) < 8;
        }
    }
    return count;
}

} // namespace

class tst_TextViews : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void caretIsThreeWideHoweverItIsMade();
    void caretIsDrawnAtItsWidth();
    void caretWidthsThatCannotBeDrawn();
    void caretWidthIsAPropertyOfForms();
    void lyricIsSetAsItIsFixed();
    void lyricOfAFormIsSetToo();
    void alignmentAppliesToTheWholeText();
    void userCannotSelectOrEdit();
    void rightClickShowsNoMenuAndGoesNoFurther();
    void clickDoesNotMoveTheFocus();
    void focusIsRefusedEvenWhenAskedDirectly();
    void selectionIsGreenOnNoGround();
    void paletteOfTheFormStillReachesTheLyric();
    void clickOnTheLabelReachesTheButton();
    void labelIsDrawnAsItsBase();
};

void tst_TextViews::caretIsThreeWideHoweverItIsMade()
{
    QCOMPARE(TQLRCTextView().caretWidth(), 3.0);
    const auto form = formWith<TQLRCTextView>("TQLRCTextView");
    QCOMPARE(form->findChild<TQLRCTextView *>("own")->caretWidth(), 3.0);
}

void tst_TextViews::caretIsDrawnAtItsWidth()
{
    TQLRCTextView view;
    QCOMPARE(view.cursorWidth(), 3);
    view.setCaretWidth(1.0);
    QCOMPARE(view.cursorWidth(), 1);
    QCOMPARE(view.cursorRect().width(), QTextEdit().cursorRect().width());
    const int narrow = view.cursorRect().width();
    view.setCaretWidth(5.0);
    QCOMPARE(view.cursorRect().width() - narrow, 4); // what is redrawn grows with it
    view.setCaretWidth(2.5);
    QCOMPARE(view.caretWidth(), 2.5);
    QCOMPARE(view.cursorWidth(), 3);
}

void tst_TextViews::caretWidthsThatCannotBeDrawn()
{
    TQLRCTextView view;
    view.setCaretWidth(-4.0);
    QCOMPARE(view.caretWidth(), -4.0);
    QCOMPARE(view.cursorWidth(), 0);
    view.setCaretWidth(std::nan(""));
    QCOMPARE(view.cursorWidth(), 0);
    view.setCaretWidth(std::numeric_limits<double>::infinity());
    QVERIFY(view.cursorWidth() > 0);
}

void tst_TextViews::caretWidthIsAPropertyOfForms()
{
    TQLRCTextView view;
    QVERIFY(view.setProperty("caretWidth", 7.0));
    QCOMPARE(view.caretWidth(), 7.0);
}

void tst_TextViews::lyricIsSetAsItIsFixed()
{
    RBMenuDisabledTextView view;
    QCOMPARE(view.font().pixelSize(), 16);
    QCOMPARE(view.font().family(), QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
    QCOMPARE(view.textAlignment(), Qt::AlignHCenter);
    QCOMPARE(view.focusPolicy(), Qt::NoFocus);
}

void tst_TextViews::lyricOfAFormIsSetToo()
{
    const auto form = formWith<RBMenuDisabledTextView>("RBMenuDisabledTextView");
    auto *const view = form->findChild<RBMenuDisabledTextView *>("own");
    QVERIFY(view != nullptr);
    QCOMPARE(view->textAlignment(), Qt::AlignHCenter);
    QCOMPARE(view->font().pixelSize(), 16);
}

void tst_TextViews::alignmentAppliesToTheWholeText()
{
    QWidget form;
    RBMenuDisabledTextView view(&form);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    form.setPalette(palette);
    view.resize(400, 200);
    form.show();
    const auto whiteAt = [&view](int from, int to) {
        return pixelsLike(view.grab(QRect(from, 0, to - from, 200)).toImage(), Qt::white);
    };
    // Text from right to left stands where the user put it, too.
    for (const QString &text : {QString("MMMM\nWWWW"), QString("שלום\nשלום")}) {
        view.setPlainText(text);
        view.setTextAlignment(Qt::AlignRight);
        QCOMPARE(view.textAlignment(), Qt::AlignRight);
        QVERIFY(whiteAt(300, 400) > 20);
        QCOMPARE(whiteAt(0, 300), 0);
        view.setTextAlignment(Qt::AlignLeft);
        view.setPlainText(text); // and the texts that come
        QVERIFY(whiteAt(0, 100) > 20);
        QCOMPARE(whiteAt(100, 400), 0);
        view.setTextAlignment(Qt::AlignHCenter);
        QVERIFY(whiteAt(150, 250) > 20);
        QCOMPARE(whiteAt(0, 100) + whiteAt(300, 400), 0);
    }
}

void tst_TextViews::userCannotSelectOrEdit()
{
    RBMenuDisabledTextView view;
    view.setPlainText("some text to select");
    view.resize(300, 100);
    view.show();
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, QPoint(150, 15));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, QPoint(80, 15));
    QTest::mouseMove(view.viewport(), QPoint(250, 15));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(250, 15));
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&view, "x");
    QTest::keyClick(&view, Qt::Key_Delete);
    QCOMPARE(view.selectedRange(), views::TextRange());
    QCOMPARE(view.toPlainText(), "some text to select");
}

void tst_TextViews::rightClickShowsNoMenuAndGoesNoFurther()
{
    class Parent : public QWidget
    {
    public:
        int menus = 0;
        int presses = 0;

    protected:
        void contextMenuEvent(QContextMenuEvent *) override { ++menus; }
        void mousePressEvent(QMouseEvent *) override { ++presses; }
    } parent;
    parent.resize(300, 100);
    RBMenuDisabledTextView view(&parent);
    view.resize(300, 100);
    view.setPlainText("text");
    parent.show();
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, QPoint(150, 15));
    QContextMenuEvent event(
        QContextMenuEvent::Mouse, QPoint(150, 15), view.viewport()->mapToGlobal(QPoint(150, 15)));
    QApplication::sendEvent(view.viewport(), &event);
    QCOMPARE(parent.menus, 0);
    QCOMPARE(parent.presses, 0);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QVERIFY(view.findChildren<QMenu *>().isEmpty());
}

void tst_TextViews::clickDoesNotMoveTheFocus()
{
    QWidget window;
    QLineEdit edit(&window);
    RBMenuDisabledTextView view(&window);
    view.setGeometry(0, 50, 200, 100);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit.setFocus();
    QVERIFY(edit.hasFocus());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(50, 50));
    QVERIFY(edit.hasFocus());
    QTest::keyClick(&edit, Qt::Key_Tab);
    QVERIFY(!view.hasFocus());
}

void tst_TextViews::focusIsRefusedEvenWhenAskedDirectly()
{
    QWidget window;
    QLineEdit edit(&window);
    RBMenuDisabledTextView view(&window);
    view.setGeometry(0, 50, 200, 100);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit.setFocus();
    view.setFocus();
    QVERIFY(!view.hasFocus());
    QVERIFY(QApplication::focusWidget() == nullptr); // the window itself is left with it
    QVERIFY(window.isActiveWindow());
}

void tst_TextViews::selectionIsGreenOnNoGround()
{
    RBMenuDisabledTextView view;
    view.resize(300, 100);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    view.setPalette(palette);
    view.setPlainText("MMMM\nWWWW");
    view.show();
    QCOMPARE(pixelsLike(view.grab().toImage(), kGreen), 0);
    view.setSelectedRange({0, 4});
    QCOMPARE(view.selectedText(), "MMMM");
    const QImage shown = view.grab().toImage();
    QVERIFY(pixelsLike(shown, kGreen) > 20);
    QVERIFY(pixelsLike(shown, Qt::white) > 20); // the other line
    QCOMPARE(view.palette().color(QPalette::Highlight).alpha(), 0);
}

void tst_TextViews::paletteOfTheFormStillReachesTheLyric()
{
    QWidget form;
    RBMenuDisabledTextView view(&form);
    QPalette palette;
    palette.setColor(QPalette::Text, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::red);
    form.setPalette(palette);
    QCOMPARE(view.palette().color(QPalette::Text), QColor(Qt::yellow));
    QCOMPARE(view.palette().color(QPalette::HighlightedText), kGreen);
}

void tst_TextViews::clickOnTheLabelReachesTheButton()
{
    QWidget window;
    window.resize(200, 100);
    QPushButton button(&window);
    button.setGeometry(0, 0, 200, 100);
    RBNoResponseTextFiled label(&button);
    label.setText("[00:00.00]");
    label.setGeometry(20, 20, 160, 60);
    RBNoResponseTextFiled sibling(&window);
    sibling.setGeometry(0, 0, 200, 20);
    window.show();
    int clicks = 0;
    connect(&button, &QPushButton::clicked, this, [&clicks] { ++clicks; });
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // Through the window, so that the toolkit finds the widget.
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(100, 50));
    QCOMPARE(clicks, 1);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(100, 10));
    QCOMPARE(clicks, 2);
    QCOMPARE(window.childAt(100, 50), &button);
}

void tst_TextViews::labelIsDrawnAsItsBase()
{
    RBNoResponseTextFiled ours;
    kit::FiguresLabel plain;
    for (QLabel *const label : {static_cast<QLabel *>(&ours), static_cast<QLabel *>(&plain)}) {
        label->setText("[01:07.42]");
        label->resize(120, 30);
    }
    QCOMPARE(ours.grab().toImage(), plain.grab().toImage());
    QCOMPARE(ours.focusPolicy(), Qt::NoFocus);
}

QTEST_MAIN(tst_TextViews)
#include "tst_text_views.moc"
