// SPDX-License-Identifier: MIT
#include "kit/DropTipView.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using support::DraggedFiles;

namespace {

class Receiver : public DropTipViewDelegate
{
public:
    void dropView_didDropFiles(DropTipView *view, const QStringList &paths) override
    {
        from = view;
        dropped << paths;
    }
    DropTipView *from = nullptr;
    QList<QStringList> dropped;
};

} // namespace

class tst_DropTipView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void droppedLocalFilesReachTheDelegate();
    void remoteFilesAndTextAreRefused();
    void withoutADelegateNothingIsAccepted();
    void outlineShowsTheDrag();
    void helpShowsOnceSomebodyListens();
    void promptAndButtonReadAsOneSentence();
    void narrowViewStacksTheSentence();
    void keyboardReachesBothButtons();
};

void tst_DropTipView::droppedLocalFilesReachTheDelegate()
{
    DropTipView view;
    const auto receiver = std::make_shared<Receiver>();
    view.setDelegate(receiver);
    const DraggedFiles files({"/a/b.lrc", "https://example.org/c.lrc", "/d e.txt"});
    QVERIFY(support::dragInto(&view, files));
    QVERIFY(support::dropOnto(&view, files));
    QCOMPARE(receiver->from, &view);
    QCOMPARE(receiver->dropped, QList<QStringList>({{"/a/b.lrc", "/d e.txt"}}));
}

void tst_DropTipView::remoteFilesAndTextAreRefused()
{
    DropTipView view;
    const auto receiver = std::make_shared<Receiver>();
    view.setDelegate(receiver);
    QMimeData text;
    text.setText("/a/b.lrc");
    QVERIFY(!support::dragInto(&view, text));
    QVERIFY(!support::dragInto(&view, DraggedFiles({"https://example.org/c.lrc"})));
    QVERIFY(!support::dragInto(&view, QMimeData()));
    QVERIFY(receiver->dropped.isEmpty());
}

void tst_DropTipView::withoutADelegateNothingIsAccepted()
{
    DropTipView view;
    auto receiver = std::make_shared<Receiver>();
    view.setDelegate(receiver);
    const DraggedFiles files({"/a/b.lrc"});
    QVERIFY(support::dragInto(&view, files));
    receiver.reset(); // between the drag and the drop
    QVERIFY(!support::dropOnto(&view, files));
    QVERIFY(!support::dragInto(&view, files));
    QVERIFY(view.delegate() == nullptr);
}

void tst_DropTipView::outlineShowsTheDrag()
{
    DropTipView view;
    view.resize(600, 300);
    const auto receiver = std::make_shared<Receiver>();
    view.setDelegate(receiver);
    const QImage calm = view.grab().toImage();
    support::dragInto(&view, DraggedFiles({"/a/b.lrc"}));
    QVERIFY(view.grab().toImage() != calm);
    support::dragOut(&view);
    QCOMPARE(view.grab().toImage(), calm);
}

void tst_DropTipView::helpShowsOnceSomebodyListens()
{
    DropTipView view;
    view.show();
    QVERIFY(view.btnFunction()->isVisible());
    QVERIFY(!view.btnHelp()->isVisible());
    int clicks = 0;
    connect(view.btnHelp(), &QPushButton::clicked, this, [&clicks] { ++clicks; });
    QVERIFY(view.btnHelp()->isVisible());
    QVERIFY(!view.btnHelp()->text().isEmpty());
    QVERIFY(!view.btnHelp()->toolTip().isEmpty());
    QTest::mouseClick(view.btnHelp(), Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

void tst_DropTipView::promptAndButtonReadAsOneSentence()
{
    DropTipView view;
    view.resize(900, 400);
    view.setPrompt("Drag & <drop> the file here or");
    view.btnFunction()->setText("Start with empty file");
    view.show();
    const auto *const label = view.findChild<QLabel *>();
    QCOMPARE(view.prompt(), "Drag & <drop> the file here or");
    QCOMPARE(label->textFormat(), Qt::PlainText);
    const QPoint labelMiddle = label->mapTo(&view, label->rect().center());
    const QPoint buttonMiddle = view.btnFunction()->mapTo(&view, view.btnFunction()->rect().center());
    QVERIFY(qAbs(labelMiddle.y() - buttonMiddle.y()) <= 1);
    QVERIFY(label->geometry().right() < view.btnFunction()->geometry().left());
    const int middle = (label->geometry().left() + view.btnFunction()->geometry().right()) / 2;
    QVERIFY(qAbs(middle - view.width() / 2) <= 1);
}

void tst_DropTipView::narrowViewStacksTheSentence()
{
    DropTipView view;
    view.setPrompt("Drag and drop the lyrics file here or");
    view.btnFunction()->setText("Start with empty file");
    view.resize(320, 400);
    view.show();
    QTRY_VERIFY(view.findChild<QLabel *>()->geometry().bottom() < view.btnFunction()->geometry().top());
}

void tst_DropTipView::keyboardReachesBothButtons()
{
    DropTipView view;
    connect(view.btnHelp(), &QPushButton::clicked, this, [] {});
    QVERIFY(view.btnFunction()->focusPolicy() & Qt::TabFocus);
    QVERIFY(view.btnHelp()->focusPolicy() & Qt::TabFocus);
    QCOMPARE(view.btnFunction()->nextInFocusChain(), view.btnHelp());
}

QTEST_MAIN(tst_DropTipView)
#include "tst_drop_tip_view.moc"
