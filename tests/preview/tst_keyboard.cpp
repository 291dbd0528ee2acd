// SPDX-License-Identifier: MIT
//
// Who has the keyboard while the preview is on screen, and what its keys do.
#include "preview/PreviewTest.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

class tst_Keyboard : public PreviewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void theKeyboardGoesNowhere();
    void theKeyboardStaysWhenThePreviewIsGoneAgain();
    void theFocusIsWaitedForStrongly();
    void spacePausesWhereNobodyHasTheKeyboard();
    void spaceIsWhosHasTheKeyboard();
    void spaceIsNotThePreviewsWhileItIsClosed();
    void escapeCloses();
};

void tst_Keyboard::theKeyboardGoesNowhere()
{
    show(kSong);
    m_edit->setFocus();
    QVERIFY(m_edit->hasFocus()); // not at once
    QTRY_VERIFY(QApplication::focusWidget() == nullptr);
    QVERIFY(m_window->isActiveWindow());
}

void tst_Keyboard::theKeyboardStaysWhenThePreviewIsGoneAgain()
{
    show(kSong);
    m_preview->view()->hide();
    m_preview->view()->setParent(nullptr);
    m_edit->setFocus();
    const std::weak_ptr<RBPreviewViewController> waiting = m_preview;
    m_preview.reset();
    QTRY_VERIFY(waiting.expired()); // it was asked, and did nothing
    QVERIFY(m_edit->hasFocus());
}

void tst_Keyboard::theFocusIsWaitedForStrongly()
{
    m_preview->flushWithAudio_lrcText(m_item, kSong);
    const std::weak_ptr<RBPreviewViewController> waiting = m_preview;
    m_preview.reset();
    QVERIFY(!waiting.expired());
    QTRY_VERIFY(waiting.expired());
}

void tst_Keyboard::spacePausesWhereNobodyHasTheKeyboard()
{
    show(kSong);
    QTRY_VERIFY(QApplication::focusWidget() == nullptr);
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QCOMPARE(m_container->told, QStringList("pressPlayPause"));
    QTest::keyClick(m_window.get(), Qt::Key_Space, Qt::ControlModifier);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, " ", true);
    QCoreApplication::sendEvent(m_window.get(), &held);
    QCOMPARE(m_container->told.size(), 1);
    // Also from what has the keyboard and does nothing with the key.
    auto *const idle = new QWidget(m_window.get());
    idle->setFocusPolicy(Qt::StrongFocus);
    idle->show();
    idle->setFocus();
    QTest::keyClick(idle, Qt::Key_Space);
    QCOMPARE(m_container->told.size(), 2);
}

void tst_Keyboard::spaceIsWhosHasTheKeyboard()
{
    show(kSong);
    QTRY_VERIFY(QApplication::focusWidget() == nullptr);
    m_edit->setFocus();
    QTest::keyClick(m_edit, Qt::Key_Space);
    QCOMPARE(m_edit->text(), QString(" "));
    const bool tags = m_preview->tagSwitch()->isChecked();
    m_preview->tagSwitch()->setFocus();
    QTest::keyClick(m_preview->tagSwitch(), Qt::Key_Space);
    QCOMPARE(m_preview->tagSwitch()->isChecked(), !tags);
    QCOMPARE(m_container->told, QStringList());
    // A click does not take it there.
    QApplication::focusWidget()->clearFocus();
    QTest::mouseClick(m_preview->tagSwitch(), Qt::LeftButton);
    QVERIFY(QApplication::focusWidget() == nullptr);
}

void tst_Keyboard::spaceIsNotThePreviewsWhileItIsClosed()
{
    show(kSong);
    m_preview->view()->hide();
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QCOMPARE(m_container->told, QStringList());
    m_preview->view()->show();
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QCOMPARE(m_container->told, QStringList("pressPlayPause"));
    // In another window it is that one's.
    QWidget other;
    m_preview->view()->setParent(&other);
    m_preview->view()->show();
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QCOMPARE(m_container->told.size(), 1);
    QTest::keyClick(&other, Qt::Key_Space);
    QCOMPARE(m_container->told.size(), 2);
    const std::weak_ptr<RBPreviewViewController> gone = m_preview;
    m_preview.reset();
    QTRY_VERIFY(gone.expired());
    QTest::keyClick(&other, Qt::Key_Space);
    QCOMPARE(m_container->told.size(), 2);
}

void tst_Keyboard::escapeCloses()
{
    show(kSong);
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    QTRY_COMPARE(m_container->told, QStringList("backFromPreview"));
    QVERIFY(m_preview->btnClose()->toolTip().contains("Esc"));
}

QTEST_MAIN(tst_Keyboard)
#include "tst_keyboard.moc"
