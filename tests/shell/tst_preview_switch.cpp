// SPDX-License-Identifier: MIT
//
// From the lines to the finished lyric and back, as a user does it.
#include "editor/TQLRCEditorViewCtl.h"
#include "preview/RBPreviewViewController.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"
#include "support/StandIns.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleFactory>

#include <algorithm>
#include <numeric>

namespace {

/// Switches of views fade, whatever the machine's desktop wants.
class FadingStyle : public QProxyStyle
{
public:
    FadingStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) { }
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? 200
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

struct World
{
    explicit World(const QByteArray &lyric)
        : item(std::make_shared<standin::Item>(lyric)), window(std::make_unique<QMainWindow>())
    {
        container = TQWLRCEditorViewCtl::initWithPlayer(player);
        container->setDelegate(host);
        host->onPlay = [this](const std::shared_ptr<WXEAudioFile> &asked) {
            player->music = asked;
            player->playing = true;
        };
        window->resize(900, 620);
        window->setCentralWidget(container->view());
        window->show();
        container->flushWithAudioItem(item);
        container->trytoUpdatePlayerStatus();
    }

    [[nodiscard]] std::shared_ptr<TQLRCEditorViewCtl> editor() const { return container->editorViewCtl(); }
    [[nodiscard]] std::shared_ptr<RBPreviewViewController> preview() const
    {
        return container->previewingCtl();
    }
    [[nodiscard]] bool isPreviewOnScreen() const { return preview()->view()->parentWidget() != nullptr; }
    [[nodiscard]] QWidget *fade() const
    {
        return container->view()->findChild<QWidget *>(QStringLiteral("crossFade"));
    }
    void openPreview() const { QTest::mouseClick(editor()->btnPreview(), Qt::LeftButton); }
    void closePreview() const { QTest::mouseClick(preview()->btnClose(), Qt::LeftButton); }

    std::shared_ptr<standin::Player> player = std::make_shared<standin::Player>();
    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>();
    std::shared_ptr<standin::Item> item;
    std::shared_ptr<TQWLRCEditorViewCtl> container;
    std::unique_ptr<QMainWindow> window;
};

const QByteArray kLyric = "[00:01.00]one\n[00:02.00]two\n[00:03.00]three\n";

} // namespace

class PreviewSwitch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new FadingStyle); }
    void init() { support::failOnUnexpectedWarnings(); }

    void withoutATimeItSaysWhyNot()
    {
        const World world("words\n[ti:title]\nmore words\n");
        QStringList texts;
        support::whenDialogOpens([&texts](QWidget &dialog) {
            texts = support::textsOf(dialog);
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("OK")), Qt::LeftButton);
        });
        world.openPreview();
        QVERIFY(texts.contains(QStringLiteral(
            "No tags have been entered yet. Please insert tags first and then preview the lyrics.")));
        QVERIFY(!world.isPreviewOnScreen());
        QVERIFY(world.editor()->view()->isVisible());
    }

    void whatIsNotSavedIsPreviewed()
    {
        const World world("first\nsecond\n");
        world.player->tick(4.5);
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        world.editor()->tableView()->setFocus();
        QTest::keyClick(world.editor()->tableView(), Qt::Key_Return);
        QTest::keyClick(world.editor()->tableView(), Qt::Key_P, Qt::ControlModifier);
        QVERIFY(world.isPreviewOnScreen());
        QCOMPARE(world.preview()->lrcText(), QByteArray("[00:04.50]first\nsecond\n"));
        QCOMPARE(world.item->lyric(), QByteArray("first\nsecond\n"));
        world.player->tick(4.5);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("first"));
    }

    void openingPlaysTheItem()
    {
        const World world(kLyric);
        world.player->playing = false;
        const auto asked = world.host->asked.size();
        world.openPreview();
        QCOMPARE(world.host->asked.size(), asked + 1);
        world.closePreview();
        world.openPreview();
        QCOMPARE(world.host->asked.size(), asked + 1); // it plays already
    }

    void aWholeSongIsFollowedLineByLine()
    {
        QByteArray lyric = "[ti:The Star]\n";
        std::vector<std::pair<int, QString>> expected;
        int millis = 0;
        for (int line = 0; line < 80; ++line) {
            millis += 130 + line * 37 % 900;
            const QString text = QStringLiteral("line %1").arg(line);
            expected.emplace_back(millis, text);
            lyric += QStringLiteral("[%1:%2.%3]%4\n")
                         .arg(millis / 60000, 2, 10, QLatin1Char('0'))
                         .arg(millis / 1000 % 60, 2, 10, QLatin1Char('0'))
                         .arg(millis % 1000, 3, 10, QLatin1Char('0'))
                         .arg(text)
                         .toUtf8();
        }
        const World world(lyric);
        world.openPreview();
        std::vector<std::pair<int, QString>> seen;
        constexpr int kTick = 10;
        QString before;
        for (int position = 0; position <= millis + kTick; position += kTick) {
            world.player->tick(position / 1000.0);
            const QString current = world.preview()->textView()->selectedText();
            if (current != before) {
                seen.emplace_back(position, current);
                before = current;
            }
        }
        QCOMPARE(seen.size(), expected.size());
        for (std::size_t line = 0; line < seen.size(); ++line) {
            QCOMPARE(seen[line].second, expected[line].second);
            QVERIFY(seen[line].first >= expected[line].first);
            QVERIFY(seen[line].first - expected[line].first < kTick);
        }
    }

    void keysWorkAgainAfterwards_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("closed by click") << false;
        QTest::newRow("closed by key") << true;
    }

    void keysWorkAgainAfterwards()
    {
        QFETCH(bool, byKey);
        const World world(kLyric);
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        world.editor()->tableView()->setFocus();
        world.openPreview();
        QTRY_VERIFY(!QApplication::focusWidget()); // the lines, out of sight, have the keyboard no more
        if (byKey) {
            QTest::keyClick(world.window.get(), Qt::Key_Escape);
        } else {
            world.closePreview();
        }
        QTRY_VERIFY(!world.isPreviewOnScreen());
        QCOMPARE(QApplication::focusWidget(), world.editor()->tableView());
        world.player->tick(9.0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(world.editor()->songText(),
            QByteArray("[00:01.00]one\n[00:02.00][00:09.00]two\n[00:03.00]three\n"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(world.editor()->songText(), kLyric);
    }

    void theHostsFieldKeepsTheKeyboard()
    {
        const World world(kLyric);
        auto *const field = new QLineEdit;
        world.window->setMenuWidget(field);
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        world.openPreview();
        QTRY_VERIFY(!QApplication::focusWidget());
        field->setFocus();
        world.closePreview();
        QVERIFY(field->hasFocus());
    }

    void whatNobodySeesIsNotChanged()
    {
        const World world(kLyric);
        // As a host's menus do.
        QMenu *const menu = world.window->menuBar()->addMenu(QStringLiteral("Edit"));
        for (const EditorCommand command : EditorKeys::allCommands()) {
            menu->addAction(world.container->action(command));
        }
        QVERIFY(QTest::qWaitForWindowActive(world.window.get()));
        world.editor()->tableView()->setFocus();
        world.openPreview();
        QTRY_VERIFY(!QApplication::focusWidget());
        QTest::keyClick(world.window.get(), Qt::Key_Delete);
        QTest::keyClick(world.window.get(), Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(world.window.get(), Qt::Key_Return);
        QCOMPARE(world.editor()->songText(), kLyric);
        QVERIFY(!world.container->action(EditorCommand::Untag)->isEnabled());
        world.closePreview();
        QVERIFY(world.container->action(EditorCommand::Untag)->isEnabled());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        QCOMPARE(world.editor()->songText(), QByteArray("one\n[00:02.00]two\n[00:03.00]three\n"));
    }

    void anOffsetIsSeenAtOnce()
    {
        const World world(kLyric);
        world.openPreview();
        support::whenDialogOpens([](QWidget &dialog) {
            auto *const field = dialog.findChild<QLineEdit *>();
            field->setText(QStringLiteral("10"));
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("Apply")), Qt::LeftButton);
        });
        QTest::mouseClick(world.preview()->btnOffset(), Qt::LeftButton);
        QVERIFY(world.isPreviewOnScreen());
        world.player->tick(12.0);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("two"));
        QCOMPARE(world.editor()->songText(), QByteArray("[00:11.00]one\n[00:12.00]two\n[00:13.00]three\n"));
    }

    void aCancelledOffsetLeavesTheHighlight()
    {
        const World world(kLyric);
        world.openPreview();
        world.player->tick(2.0);
        support::whenDialogOpens([](QWidget &dialog) {
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("Cancel")), Qt::LeftButton);
        });
        QTest::mouseClick(world.preview()->btnOffset(), Qt::LeftButton);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("two"));
    }

    void theFadeEndsByItself()
    {
        const World world(kLyric);
        world.openPreview();
        QVERIFY(world.fade());
        QTRY_VERIFY(!world.fade());
        QVERIFY(world.isPreviewOnScreen());
    }

    void resizingEndsTheFadeAndKeepsTheView()
    {
        const World world(kLyric);
        world.openPreview();
        QVERIFY(world.fade());
        world.window->resize(480, 500);
        QTRY_COMPARE(world.window->width(), 480);
        QVERIFY(!world.fade() || world.fade()->isHidden());
        const QWidget *const view = world.preview()->view();
        QCOMPARE(view->geometry(),
            QRect(0, 0, world.container->view()->width(), world.container->view()->height() - 80));
        QVERIFY(view->isVisible());
    }

    void backInTheMiddleOfTheFade()
    {
        const World world(kLyric);
        for (int times = 0; times < 3; ++times) {
            world.openPreview();
            QVERIFY(world.fade());
            world.closePreview();
            QVERIFY(!world.isPreviewOnScreen());
            QVERIFY(world.editor()->view()->isVisible());
        }
        QTRY_VERIFY(!world.fade());
    }

    void ticksInTheMiddleOfTheFadeAreFollowed()
    {
        const World world(kLyric);
        world.openPreview();
        QVERIFY(world.fade());
        world.player->tick(2.0);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("two"));
    }

    void everybodyMayGoInTheMiddleOfTheFade()
    {
        std::vector<int> order(5);
        std::iota(order.begin(), order.end(), 0);
        do {
            World world(kLyric);
            const std::weak_ptr<TQWLRCEditorViewCtl> gone = world.container;
            std::shared_ptr<RBPreviewViewController> preview = world.preview();
            world.openPreview();
            QVERIFY(world.fade());
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
                    preview.reset();
                    break;
                case 3:
                    world.container.reset();
                    break;
                default:
                    world.window.reset();
                    break;
                }
                if (world.player) {
                    world.player->tick(2.0);
                }
                if (preview) {
                    preview->notifyPlayProgress(3.0);
                    preview->closeClicked();
                }
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            QVERIFY(gone.expired());
        } while (std::next_permutation(order.begin(), order.end()));
    }
};

QTEST_MAIN(PreviewSwitch)
#include "tst_preview_switch.moc"
