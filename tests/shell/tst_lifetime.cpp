// SPDX-License-Identifier: MIT
//
// Everybody may go first, and in any callback.
#include "editor/TQLRCEditorViewCtl.h"
#include "player/TQLRCEditorMiniPlayerViewCtl.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/QtWarnings.h"
#include "support/StandIns.h"

#include <QtTest/QTest>
#include <QtWidgets/QMainWindow>

#include <algorithm>
#include <numeric>

namespace {

struct World
{
    World()
    {
        container = TQWLRCEditorViewCtl::initWithPlayer(player);
        container->setDelegate(host);
        host->onPlay = [this](const std::shared_ptr<WXEAudioFile> &asked) {
            player->music = asked;
            player->playing = true;
        };
        window->setCentralWidget(container->view());
        window->show();
        container->flushWithAudioItem(item);
    }

    std::shared_ptr<standin::Player> player = std::make_shared<standin::Player>();
    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>();
    std::shared_ptr<standin::Item> item = std::make_shared<standin::Item>("a\nb\n");
    std::shared_ptr<TQWLRCEditorViewCtl> container;
    std::unique_ptr<QMainWindow> window = std::make_unique<QMainWindow>();
};

} // namespace

class Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everybodyMayGoInAnyOrder()
    {
        std::vector<int> order(5);
        std::iota(order.begin(), order.end(), 0);
        do {
            World world;
            const std::weak_ptr<TQWLRCEditorViewCtl> container = world.container;
            for (const int who : order) {
                switch (who) {
                case 0:
                    world.host->onPlay = {};
                    world.host.reset();
                    break;
                case 1:
                    world.player.reset();
                    break;
                case 2:
                    world.item.reset();
                    break;
                case 3:
                    world.container.reset();
                    break;
                default:
                    world.window.reset();
                    break;
                }
                if (world.player) {
                    world.player->tick(1.0);
                }
                if (world.container) {
                    world.container->editorViewCtl()->insertTimeTag();
                    world.container->serializeToAudioItem();
                }
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            QVERIFY(container.expired());
        } while (std::next_permutation(order.begin(), order.end()));
    }

    void theContainerMayGoInEveryCallbackOfTheHost_data()
    {
        QTest::addColumn<int>("callback");
        QTest::newRow("asked to play") << 0;
        QTest::newRow("told of a change") << 1;
        QTest::newRow("told of a selection") << 2;
    }

    void theContainerMayGoInEveryCallbackOfTheHost()
    {
        QFETCH(int, callback);
        World world;
        const std::weak_ptr<TQWLRCEditorViewCtl> gone = world.container;
        world.player->playing = false;
        const auto letGo = [&world] { world.container.reset(); };
        world.host->onPlay = {};
        if (callback == 0) {
            world.host->onPlay = [letGo](const std::shared_ptr<WXEAudioFile> &) { letGo(); };
        } else if (callback == 1) {
            world.host->onChanged = letGo;
        } else {
            world.host->onSelected = letGo;
        }
        QTest::mouseClick(world.container->editorViewCtl()->btnInsertTime(), Qt::LeftButton);
        QVERIFY(!world.container);
        QVERIFY(gone.expired());
        world.player->tick(2.0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void theContainerMayGoWhileACellIsBeingCommitted()
    {
        World world;
        world.host->onChanged = [&world] { world.container.reset(); };
        MyTableView *table = world.container->editorViewCtl()->tableView();
        table->editColumn_row_select(1, 0, true);
        world.container->commitEditing();
        QVERIFY(!world.container);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!world.window->centralWidget());
    }

    // The toolkit is in the middle of its own work then: on the way back nothing of ours may be
    // touched any more.
    void theWindowMayGoInACallback_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("told of a commit") << 0;
        QTest::newRow("told of a selection by a stamp") << 1;
        QTest::newRow("told of a selection by a key") << 2;
        QTest::newRow("told of a change by a stamp") << 3;
    }

    void theWindowMayGoInACallback()
    {
        QFETCH(int, way);
        World world;
        const auto editor = world.container->editorViewCtl();
        const auto closeWindow = [&world] { world.window.reset(); };
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        editor->tableView()->setFocus();
        if (way == 0) {
            editor->tableView()->editColumn_row_select(1, 0, true);
            world.host->onChanged = closeWindow;
            world.container->commitEditing();
        } else if (way == 1) {
            world.host->onSelected = closeWindow;
            editor->insertTimeTag();
        } else if (way == 2) {
            world.host->onSelected = closeWindow;
            QTest::sendKeyEvent(QTest::Press, editor->tableView(), Qt::Key_Down, QString(), Qt::NoModifier);
        } else {
            world.host->onChanged = closeWindow;
            editor->insertTimeTag();
        }
        QVERIFY(!world.window);
        QVERIFY(!editor->tableView());
        QVERIFY(world.container->serializeToAudioItem() || way == 2 || way == 0);
        QVERIFY(!world.container->songText().isEmpty());
    }

    void theHostMayCallBackFromACallback()
    {
        World world;
        int depth = 0;
        world.host->onChanged = [&] {
            if (++depth == 1) {
                world.container->serializeToAudioItem();
                world.container->editorViewCtl()->flushWithSongText("x\ny\nz\n");
            }
        };
        QTest::mouseClick(world.container->editorViewCtl()->btnInsertTime(), Qt::LeftButton);
        QCOMPARE(world.item->lyric(), QByteArray("[00:00.00]a\nb\n"));
        QCOMPARE(world.container->editorViewCtl()->songText(), QByteArray("x\ny\nz\n"));
        QCOMPARE(world.container->editorViewCtl()->tableView()->selectedRow(), 1);
    }

    void twoContainersLiveSideBySide()
    {
        World one;
        World two;
        one.container->editorViewCtl()->flushWithSongText("one\n");
        QCOMPARE(two.container->editorViewCtl()->songText(), QByteArray("a\nb\n"));
        QCOMPARE(one.container->config(), two.container->config());
        one.container.reset();
        two.container->editorViewCtl()->insertTimeTag();
        QVERIFY(two.container->serializeToAudioItem());
    }

    void oddPositionsAreShownAsZeroOrTheirValue()
    {
        World world;
        for (const double position : {std::numeric_limits<double>::quiet_NaN(), -5.0, 0.0}) {
            world.player->tick(position);
            QCOMPARE(world.container->editorViewCtl()->lblTabTime()->text(), QStringLiteral("[00:00.00]"));
        }
        world.player->tick(std::numeric_limits<double>::infinity());
        world.player->tick(5.0);
        world.player->tick(4.0);
        QCOMPARE(world.container->editorViewCtl()->lblTabTime()->text(), QStringLiteral("[00:04.00]"));
    }
};

QTEST_MAIN(Lifetime)
#include "tst_lifetime.moc"
