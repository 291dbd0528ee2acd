// SPDX-License-Identifier: MIT
//
// Everybody may go first, and in any callback.
#include "kit/ProgressSliderView.h"
#include "shell/World.h"
#include "support/EveryOrder.h"
#include "support/LyricService.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

namespace {

const std::vector<int> kEverybody{
    World::ItsHost, World::ItsPlayer, World::ItsItem, World::ItsContainer, World::ItsWindow};

} // namespace

class Lifetime : public QObject
{
    Q_OBJECT

private:
    static void useWhatIsLeft(const World &world)
    {
        if (world.player) {
            world.player->tick(1.0);
        }
        if (world.container) {
            world.editor()->insertTimeTag();
            world.container->serializeToAudioItem();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everybodyMayGoInAnyOrder()
    {
        support::inEveryOrder(kEverybody, [](const std::vector<int> &order) {
            World world;
            const std::weak_ptr<TQWLRCEditorViewCtl> container = world.container;
            for (const int who : order) {
                world.letGo(who);
                useWhatIsLeft(world);
            }
            QVERIFY(container.expired());
        });
    }

    void everybodyMayGoInAnyOrderDuringADrag()
    {
        support::inEveryOrder(kEverybody, [](const std::vector<int> &order) {
            World world;
            const std::weak_ptr<TQWLRCEditorViewCtl> container = world.container;
            const QPointer<ProgressSliderView> slider = world.strip()->prgSlider();
            QTest::mousePress(slider, Qt::LeftButton, {}, QPoint(40, 12));
            QVERIFY(!world.player->playing);
            for (const int who : order) {
                world.letGo(who);
                if (slider) {
                    QTest::mouseMove(slider, QPoint(60 + 10 * who, 12));
                }
                useWhatIsLeft(world);
            }
            QVERIFY(container.expired());
            QVERIFY(!slider);
        });
    }

    void everybodyMayGoInAnyOrderDuringASearch()
    {
        constexpr int kTheAnswer = World::OfATest;
        support::inEveryOrder(
            {World::ItsHost, World::ItsPlayer, World::ItsContainer, World::ItsWindow, kTheAnswer},
            [](const std::vector<int> &order) {
                World world;
                const standin::RegisteredBridge bridge;
                const std::weak_ptr<TQWLRCEditorViewCtl> container = world.container;
                const std::weak_ptr<TQLRCEditorViewCtl> editor = world.editor();
                world.editor()->searchLyricClick();
                QCOMPARE(bridge.service().requests.size(), std::size_t(1));
                bool isContainerThere = true;
                for (const int who : order) {
                    isContainerThere = isContainerThere && who != World::ItsContainer;
                    if (who == kTheAnswer) {
                        bridge.service().answer("[00:01.00]found\n");
                        QCOMPARE(editor.expired(), !isContainerThere);
                    } else {
                        world.letGo(who);
                    }
                    if (world.player) {
                        world.player->tick(1.0);
                    }
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                }
                QVERIFY(container.expired());
                QVERIFY(editor.expired());
            });
    }

    // Also those that the container made: a host may hold them, and let them go when it likes.
    void everybodyMayGoInAnyOrderInACallback()
    {
        enum Child { Editor = World::OfATest, Strip };
        support::inEveryOrder({World::ItsHost, World::ItsContainer, World::ItsWindow, Editor, Strip},
            [](const std::vector<int> &order) {
                World world;
                std::shared_ptr<TQLRCEditorViewCtl> editor = world.editor();
                std::shared_ptr<TQLRCEditorMiniPlayerViewCtl> strip = world.strip();
                const std::weak_ptr<TQWLRCEditorViewCtl> container = world.container;
                QAbstractButton *const stamp = editor->btnInsertTime();
                bool wasTold = false;
                world.host->onChanged = [&] {
                    if (std::exchange(wasTold, true)) {
                        return;
                    }
                    for (const int who : order) {
                        if (who == Editor) {
                            editor.reset();
                        } else if (who == Strip) {
                            strip.reset();
                        } else {
                            world.letGo(who);
                        }
                    }
                };
                QTest::mouseClick(stamp, Qt::LeftButton);
                QVERIFY(wasTold);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(container.expired());
            });
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
