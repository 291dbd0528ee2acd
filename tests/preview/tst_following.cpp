// SPDX-License-Identifier: MIT
//
// The preview follows the player.
#include "kit/NotificationCenter.h"
#include "preview/PreviewTest.h"
#include "shell/contracts/TQLRCNotifications.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace {

std::atomic<int> g_allocations{0};

} // namespace

void *operator new(std::size_t size)
{
    ++g_allocations;
    if (void *memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

/// The events of one kind that a widget gets.
class Events : public QObject
{
public:
    Events(QWidget *widget, QEvent::Type type) : QObject(widget), m_type(type)
    {
        widget->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type;
        return false;
    }
    int count = 0;

private:
    QEvent::Type m_type;
};

} // namespace

class tst_Following : public PreviewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void aLineIsCurrentFromItsTimeOn();
    void ofLinesOfOneTimeTheLaterIsCurrent();
    void beforeTheFirstLineNothingChanges();
    void whatIsNoPositionMatchesNoLine();
    void aRepeatedLineIsCurrentAtEachOfItsTimes();
    void everyScriptIsHighlightedWhole_data();
    void everyScriptIsHighlightedWhole();
    void anUnchangedLineCostsNothing();
    void theCurrentLineIsInTheMiddleThird();
    void theUserCannotChangeTheHighlight();
    void switchingTagLinesRebuildsTheText();
    void switchAndAlignmentStayWhileClosed();
    void otherAlignmentsChangeNothing();
    void segmentsAreChosenByClickAndKey();
    void beforeASongThereIsNothingToFollow();
    void eachItemIsAnotherSongAndEachTextTheSame();
    void aRetimedTextIsTakenOnlyInAWindow();
    void aGonePreviewHearsNoNotification();
    void offsetIsTheContainersCommand();
    void aHugeLyricIsFollowedToItsEnd();
    void theWholeOfAHugeLyricComesByItself();

private:
    void play(double seconds) { m_preview->notifyPlayProgress(seconds); }
    [[nodiscard]] QString current() const { return m_preview->textView()->selectedText(); }
};

void tst_Following::aLineIsCurrentFromItsTimeOn()
{
    show(kSong);
    play(1.0);
    QCOMPARE(current(), "one");
    play(1.999);
    QCOMPARE(current(), "one");
    play(2.0);
    QCOMPARE(current(), "two");
    play(1.5); // the user went back
    QCOMPARE(current(), "one");
    play(1e9);
    QCOMPARE(current(), "three");
}

void tst_Following::ofLinesOfOneTimeTheLaterIsCurrent()
{
    show("[00:01.00]original\n[00:01.00]translation\n[00:02.00]next\n");
    play(1.0);
    QCOMPARE(current(), "translation");
}

void tst_Following::beforeTheFirstLineNothingChanges()
{
    show(kSong);
    play(0.5);
    QCOMPARE(current(), "");
    play(2.5);
    play(0.5);
    QCOMPARE(current(), "two");
}

void tst_Following::whatIsNoPositionMatchesNoLine()
{
    show(kSong);
    play(2.0);
    for (const double position : {std::numeric_limits<double>::quiet_NaN(), -1.0}) {
        play(position);
        QCOMPARE(current(), "two");
    }
    play(std::numeric_limits<double>::infinity());
    QCOMPARE(current(), "three");
}

void tst_Following::aRepeatedLineIsCurrentAtEachOfItsTimes()
{
    show("[00:01.00][00:03.00]chorus\n[00:02.00]verse\n[00:04.00]end\n");
    QCOMPARE(m_preview->textView()->toPlainText(), "chorus\nverse\nchorus\nend");
    QList<int> locations;
    for (const double position : {1.0, 2.0, 3.0, 4.0}) {
        play(position);
        locations.append(m_preview->textView()->selectedRange().location);
    }
    QCOMPARE(locations, (QList<int>{0, 7, 13, 20}));
}

void tst_Following::everyScriptIsHighlightedWhole_data()
{
    QTest::addColumn<QString>("line");
    for (const char *line :
        {"千里之外", "שלום עולם", "مرحبا بالعالم", "𝄞🎵👩‍👩‍👧", "e\u0301té", "a\tb"})
        QTest::newRow(line) << QString::fromUtf8(line);
}

void tst_Following::everyScriptIsHighlightedWhole()
{
    QFETCH(QString, line);
    show(("[00:01.00]🎵 before\n[00:02.00]" + line + "\n[00:03.00]after\n").toUtf8());
    play(2.0);
    QCOMPARE(current(), line);
    play(3.0);
    QCOMPARE(current(), "after");
}

void tst_Following::anUnchangedLineCostsNothing()
{
    show(kSong);
    play(2.0);
    QTRY_VERIFY(!m_preview->textView()->isGliding());
    QApplication::processEvents();
    const Events paints(m_preview->textView()->viewport(), QEvent::Paint);
    const Events updates(m_preview->textView()->viewport(), QEvent::UpdateRequest);
    const int before = g_allocations;
    for (int tick = 0; tick < 99; ++tick)
        play(2.0 + tick / 100.0);
    QCOMPARE(g_allocations - before, 0);
    QApplication::processEvents();
    QCOMPARE(paints.count + updates.count, 0);
    play(3.0);
    QTRY_VERIFY(paints.count > 0); // the counting counts
}

void tst_Following::theCurrentLineIsInTheMiddleThird()
{
    QByteArray text;
    for (int line = 0; line < 100; ++line)
        text += QString("[00:%1.00]line %2\n").arg(line % 60, 2, 10, QChar('0')).arg(line).toUtf8();
    show(text);
    for (int second = 0; second < 60; second += 7) {
        play(second);
        const QRect line = m_preview->textView()->selectedLineRect();
        const int height = m_preview->textView()->viewport()->height();
        QVERIFY(line.top() >= height / 3);
        QVERIFY(line.bottom() < height - height / 3);
    }
}

void tst_Following::theUserCannotChangeTheHighlight()
{
    show(kSong);
    play(2.0);
    QWidget *const text = m_preview->textView()->viewport();
    QTest::mouseClick(text, Qt::LeftButton, {}, text->rect().center());
    QTest::mouseDClick(text, Qt::LeftButton, {}, text->rect().center());
    QTest::keyClick(m_window.get(), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(current(), "two");
}

void tst_Following::switchingTagLinesRebuildsTheText()
{
    show(kSong);
    QVERIFY(m_preview->tagSwitch()->isChecked());
    const QString whole = m_preview->textView()->toPlainText();
    play(2.0);
    const int location = m_preview->textView()->selectedRange().location;
    QTest::mouseClick(m_preview->tagSwitch(), Qt::LeftButton);
    QCOMPARE(m_preview->textView()->toPlainText(), "one\ntwo\nwords without a time\nthree");
    QVERIFY(whole.endsWith("\n" + m_preview->textView()->toPlainText()));
    play(2.0);
    QCOMPARE(current(), "two");
    QVERIFY(m_preview->textView()->selectedRange().location < location);
    QTest::keyClick(m_preview->tagSwitch(), Qt::Key_Space);
    QCOMPARE(m_preview->textView()->toPlainText(), whole);
    play(2.1);
    QCOMPARE(current(), "two");
    QCOMPARE(m_preview->textView()->selectedRange().location, location);
}

void tst_Following::switchAndAlignmentStayWhileClosed()
{
    show(kSong);
    QTest::mouseClick(m_preview->tagSwitch(), Qt::LeftButton);
    QTest::mouseClick(m_preview->segAlign()->segment(2), Qt::LeftButton);
    m_preview->view()->setParent(nullptr);
    show("[ti:x]\n[00:05.00]other\n");
    QCOMPARE(m_preview->textView()->toPlainText(), "other");
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignRight);
    QCOMPARE(m_preview->segAlign()->selectedSegment(), 2);
}

void tst_Following::otherAlignmentsChangeNothing()
{
    show(kSong);
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignHCenter);
    QCOMPARE(m_preview->segAlign()->selectedSegment(), 1);
    kit::SegmentedControl control;
    control.setSegmentCount(5);
    control.setSelectedSegment(0);
    m_preview->aligenClick(&control);
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignLeft);
    for (const int other : {3, 4, -1}) {
        control.setSelectedSegment(other);
        QCOMPARE(control.selectedSegment(), other);
        m_preview->aligenClick(&control);
        QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignLeft);
    }
    m_preview->aligenClick(nullptr);
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignLeft);
    QVERIFY(m_preview->segAligen() == nullptr);
}

void tst_Following::segmentsAreChosenByClickAndKey()
{
    show(kSong);
    QTest::mouseClick(m_preview->segAlign()->segment(0), Qt::LeftButton);
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignLeft);
    m_preview->segAlign()->segment(0)->setFocus();
    QTest::keyClick(m_preview->segAlign()->segment(0), Qt::Key_Right);
    QCOMPARE(m_preview->segAlign()->selectedSegment(), 1);
    QCOMPARE(m_preview->textView()->textAlignment(), Qt::AlignHCenter);
    QCOMPARE(m_preview->segAlign()->segment(0)->icon().name(), "text_align_left");
    QCOMPARE(m_preview->segAlign()->segment(1)->icon().name(), "text_align_center");
    QCOMPARE(m_preview->segAlign()->segment(2)->icon().name(), "text_align_right");
    QCOMPARE(m_preview->btnOffset()->icon().name(), "credit-offset");
}

void tst_Following::beforeASongThereIsNothingToFollow()
{
    QVERIFY(m_preview->view() != nullptr);
    QVERIFY(m_preview->song() == nullptr);
    play(1.0);
    m_preview->notifyLrcTextUpdated(kSong);
    QVERIFY(m_preview->lrcText().isNull());
    QVERIFY(m_preview->song() == nullptr);
    QCOMPARE(m_preview->textView()->toPlainText(), "");
}

void tst_Following::eachItemIsAnotherSongAndEachTextTheSame()
{
    show(kSong);
    const auto first = m_preview->song();
    QCOMPARE(first->aryLines().size(), 3U);
    m_preview->notifyLrcTextUpdated("[00:07.00]retimed\n");
    QCOMPARE(m_preview->song(), first);
    QCOMPARE(first->aryLines().size(), 1U);
    QCOMPARE(m_preview->lrcText(), QByteArray("[00:07.00]retimed\n"));
    m_preview->flushWithAudio_lrcText(m_item, kSong);
    QVERIFY(m_preview->song() != first);
    QCOMPARE(m_preview->audioitem(), std::static_pointer_cast<WXEAudioFile>(m_item));
}

void tst_Following::aRetimedTextIsTakenOnlyInAWindow()
{
    const auto post = [](const QByteArray &text) {
        kit::NotificationCenter::defaultCenter().post(TQLRCEditorAdjustTimeFinishNotification, text);
    };
    m_item->titleText = "Before";
    show(kSong);
    m_item->titleText = "After";
    post("[00:09.00]retimed\n");
    QCOMPARE(m_preview->textView()->toPlainText(), "retimed");
    QCOMPARE(m_preview->lblTitle()->text(), "Before"); // left as it was
    play(9.0);
    QCOMPARE(current(), "retimed");
    m_preview->view()->hide();
    m_preview->view()->setParent(nullptr);
    post("[00:10.00]unheard\n");
    QCOMPARE(m_preview->textView()->toPlainText(), "retimed");
}

void tst_Following::aGonePreviewHearsNoNotification()
{
    show(kSong);
    const std::weak_ptr<RBPreviewViewController> gone = m_preview;
    m_preview.reset();
    QTRY_VERIFY(gone.expired());
    kit::NotificationCenter::defaultCenter().post(TQLRCEditorAdjustTimeFinishNotification, kSong);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(m_window->findChild<RBMenuDisabledTextView *>() == nullptr);
}

void tst_Following::offsetIsTheContainersCommand()
{
    show(kSong);
    QTest::mouseClick(m_preview->btnOffset(), Qt::LeftButton);
    QCOMPARE(m_container->told, QStringList("previewOffsetClicked"));
    QCOMPARE(m_container->sender, m_preview->btnOffset());
    m_container.reset();
    m_preview->offsetClick();
    QVERIFY(m_preview->parentVC() == nullptr);
}

namespace {

QByteArray hugeLyric()
{
    QByteArray text;
    for (int line = 0; line < 100000; ++line)
        text += QString("[%1:%2.00]line %3\n")
                    .arg(line / 60, 2, 10, QChar('0'))
                    .arg(line % 60, 2, 10, QChar('0'))
                    .arg(line)
                    .toLatin1();
    return text;
}

} // namespace

void tst_Following::aHugeLyricIsFollowedToItsEnd()
{
    show(hugeLyric());
    for (const int line : {99999, 0, 50000, 50001}) {
        play(line);
        QCOMPARE(current(), QString("line %1").arg(line));
        QVERIFY(
            m_preview->textView()->viewport()->rect().contains(m_preview->textView()->selectedLineRect()));
    }
}

void tst_Following::theWholeOfAHugeLyricComesByItself()
{
    show(hugeLyric());
    auto *const text = m_preview->textView();
    const int scrolled = 200;
    text->verticalScrollBar()->setValue(scrolled);
    QTRY_COMPARE(text->toPlainText().count(u'\n'), 99'999);
    QCOMPARE(text->verticalScrollBar()->value(), scrolled);
    m_preview->flushWithAudio_lrcText(m_item, hugeLyric() + hugeLyric());
    QCOMPARE(text->verticalScrollBar()->value(), 0);
    QCOMPARE(m_preview->song()->aryLines().size(), 200'000U); // whoever asks gets all of it
}

QTEST_MAIN(tst_Following)
#include "tst_following.moc"
