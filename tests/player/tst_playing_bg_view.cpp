// SPDX-License-Identifier: MIT
#include "player/RBPlayingBgView.h"
#include "support/Drags.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using support::DraggedFiles;

namespace {

const QColor kBlue(117, 187, 231);
const QColor kEdge = QColor::fromRgbF(0.0F, 0.0F, 0.0F, 0.15F);

class Receiver : public RBPlayingBgViewDelegate
{
public:
    void plyingBgView_acceptDrop(RBPlayingBgView *view, const QString &path) override
    {
        from = view;
        paths << path;
        colorThen = view->backgroundColor();
    }
    RBPlayingBgView *from = nullptr;
    QStringList paths;
    QColor colorThen;
};

} // namespace

class tst_PlayingBgView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_view.reset(); }

    void startsEnabledAndCalm();
    void extensionRule_data();
    void extensionRule();
    void firstPathDecides();
    void whatIsNoFileIsNoPath();
    void supportedDragLightsUpAndCopies();
    void unsupportedDragChangesNothingWhileItHovers();
    void unsupportedDragThatLeftResetsTheGround();
    void unsupportedDragThatWentElsewhereInTheWindow();
    void dropGoesToTheDelegate();
    void dropWithoutADelegateIsAccepted();
    void unsupportedDropIsRefused();
    void disabledViewHearsOfNoDrag();
    void ownersGroundLastsUntilTheFirstDrag();
    void delegateMayDestroyTheView();

private:
    [[nodiscard]] QColor calm() const { return m_view->palette().color(QPalette::Button); }

    std::unique_ptr<RBPlayingBgView> m_view;
    std::shared_ptr<Receiver> m_receiver;
};

void tst_PlayingBgView::init()
{
    support::failOnUnexpectedWarnings();
    m_view = std::make_unique<RBPlayingBgView>();
    m_receiver = std::make_shared<Receiver>();
    m_view->setDelegate(m_receiver);
    m_view->resize(400, 80);
}

void tst_PlayingBgView::startsEnabledAndCalm()
{
    QVERIFY(m_view->dropEnabled());
    QVERIFY(m_view->acceptDrops());
    QCOMPARE(m_view->backgroundColor(), calm());
    QCOMPARE(m_view->topEdgeColor(), kEdge);
    QCOMPARE(m_view->delegate(), m_receiver);
}

void tst_PlayingBgView::extensionRule_data()
{
    QTest::addColumn<bool>("supported");
    for (const char *path : {"/m/Song.mp3", "/m/Song.MP3", "/m/Song.m4a", "/m/Song.ogg", "/m/Song.oga",
             "/m/Song.aiff", "/m/Song.wma", "/m/Song.wav", "/m/Song.Flac", "/m/Song.FLAC", "/m/Song.ape",
             "/m/Song.asf", "/m/track.mp3x", "/m/track.xwav", "/m/a.b.mp3", "/m/folder.mp3/",
             "/m/folder.txt/Song.mp3", "/m/\xC3\xA9 \xE5.flac"})
        QTest::newRow(path) << true;
    for (const char *path : {"/m/track.aif", "/m/track", "/m/notes.txt", "/m/mp3", "/m/Song.mp3.txt",
             "/m/folder.mp3/track", "/m/Song.", "/m/Song.mp", "/"})
        QTest::newRow(path) << false;
}

void tst_PlayingBgView::extensionRule()
{
    QFETCH(bool, supported);
    const DraggedFiles files({QString::fromUtf8(QTest::currentDataTag())});
    QCOMPARE(m_view->isDraggingSupported(&files), supported);
    QCOMPARE(support::dragInto(m_view.get(), files), supported);
}

void tst_PlayingBgView::firstPathDecides()
{
    const DraggedFiles good({"/m/a.mp3", "/m/b.txt", "/m/c.flac"});
    const DraggedFiles bad({"/m/b.txt", "/m/a.mp3"});
    QCOMPARE(m_view->getDraggingFilePath(&good), "/m/a.mp3");
    QVERIFY(support::dragInto(m_view.get(), good));
    QVERIFY(support::dropOnto(m_view.get(), good));
    QCOMPARE(m_receiver->paths, QStringList("/m/a.mp3"));
    QVERIFY(!support::dragInto(m_view.get(), bad));
}

void tst_PlayingBgView::whatIsNoFileIsNoPath()
{
    QMimeData text;
    text.setText("/m/a.mp3");
    QVERIFY(m_view->getDraggingFilePath(&text).isNull());
    QVERIFY(!m_view->isDraggingSupported(&text));
    const DraggedFiles remote({"https://example.org/a.mp3"});
    QVERIFY(m_view->getDraggingFilePath(&remote).isNull());
    QVERIFY(!m_view->isDraggingSupported(&remote));
    const DraggedFiles none({});
    QVERIFY(m_view->getDraggingFilePath(&none).isNull());
    QVERIFY(m_view->getDraggingFilePath(nullptr).isNull());
}

void tst_PlayingBgView::supportedDragLightsUpAndCopies()
{
    QVERIFY(support::dragInto(m_view.get(), DraggedFiles({"/m/Song.FLAC"})));
    QCOMPARE(m_view->backgroundColor(), kBlue);
    QCOMPARE(m_view->topEdgeColor(), kEdge);
    QCOMPARE(m_view->grab().toImage().pixelColor(200, 40), kBlue);
    support::dragOut(m_view.get());
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::unsupportedDragChangesNothingWhileItHovers()
{
    m_view->setBackgroundColor(Qt::white);
    QVERIFY(!support::dragInto(m_view.get(), DraggedFiles({"/m/notes.txt"})));
    QCOMPARE(m_view->backgroundColor(), QColor(Qt::white));
}

void tst_PlayingBgView::unsupportedDragThatLeftResetsTheGround()
{
    m_view->setBackgroundColor(Qt::white);
    m_view->show();
    const DraggedFiles files({"/m/notes.txt"});
    QWindow *const window = m_view->windowHandle();
    QVERIFY(!support::dragInto(m_view.get(), files));
    QDragMoveEvent inside(QPoint(210, 45), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window, &inside);
    QCOMPARE(m_view->backgroundColor(), QColor(Qt::white));
    QDragLeaveEvent leave;
    QApplication::sendEvent(window, &leave);
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::unsupportedDragThatWentElsewhereInTheWindow()
{
    QWidget window;
    window.resize(400, 300);
    m_view->setParent(&window);
    m_view->move(0, 220);
    m_view->setBackgroundColor(Qt::white);
    window.show();
    const DraggedFiles files({"/m/notes.txt"});
    QDragEnterEvent enter(QPoint(200, 260), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window.windowHandle(), &enter);
    QVERIFY(!enter.isAccepted());
    QDragMoveEvent above(QPoint(200, 100), Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(window.windowHandle(), &above);
    QCOMPARE(m_view->backgroundColor(), calm());
    m_view->setParent(nullptr);
}

void tst_PlayingBgView::dropGoesToTheDelegate()
{
    const DraggedFiles files({"/m/a song.mp3"});
    QVERIFY(support::dragInto(m_view.get(), files));
    QVERIFY(support::dropOnto(m_view.get(), files));
    QCOMPARE(m_receiver->from, m_view.get());
    QCOMPARE(m_receiver->paths, QStringList("/m/a song.mp3"));
    QCOMPARE(m_receiver->colorThen, kBlue); // the light goes out after the call
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::dropWithoutADelegateIsAccepted()
{
    m_receiver.reset();
    const DraggedFiles files({"/m/a.mp3"});
    QVERIFY(support::dragInto(m_view.get(), files));
    QVERIFY(support::dropOnto(m_view.get(), files));
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::unsupportedDropIsRefused()
{
    // The drag was of a song when it came, and is of something else now.
    QVERIFY(support::dragInto(m_view.get(), DraggedFiles({"/m/a.mp3"})));
    QVERIFY(!support::dropOnto(m_view.get(), DraggedFiles({"/m/a.txt"})));
    QVERIFY(m_receiver->paths.isEmpty());
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::disabledViewHearsOfNoDrag()
{
    m_view->setDropEnabled(false);
    QVERIFY(!m_view->dropEnabled());
    const DraggedFiles files({"/m/a.mp3"});
    QVERIFY(!support::dragInto(m_view.get(), files));
    QCOMPARE(m_view->backgroundColor(), calm());
    m_view->setDropEnabled(true);
    QVERIFY(support::dragInto(m_view.get(), files));
}

void tst_PlayingBgView::ownersGroundLastsUntilTheFirstDrag()
{
    m_view->setBackgroundColor(QPalette::Base);
    QCOMPARE(m_view->backgroundColor(), m_view->palette().color(QPalette::Base));
    support::dragInto(m_view.get(), DraggedFiles({"/m/a.mp3"}));
    support::dragOut(m_view.get());
    QCOMPARE(m_view->backgroundColor(), calm());
}

void tst_PlayingBgView::delegateMayDestroyTheView()
{
    class Destroyer : public RBPlayingBgViewDelegate
    {
    public:
        std::unique_ptr<RBPlayingBgView> *view = nullptr;
        void plyingBgView_acceptDrop(RBPlayingBgView *, const QString &) override { view->reset(); }
    };
    const auto destroyer = std::make_shared<Destroyer>();
    destroyer->view = &m_view;
    m_view->setDelegate(destroyer);
    const DraggedFiles files({"/m/a.mp3"});
    QVERIFY(support::dragInto(m_view.get(), files));
    support::dropOnto(m_view.get(), files);
    QVERIFY(m_view == nullptr);
}

QTEST_MAIN(tst_PlayingBgView)
#include "tst_playing_bg_view.moc"
