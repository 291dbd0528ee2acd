// SPDX-License-Identifier: MIT
//
// From the lines to the finished lyric and back, as a user does it.
#include "shell/World.h"
#include "support/EveryOrder.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyleFactory>

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

[[nodiscard]] bool isPreviewOnScreen(const World &world)
{
    return world.preview()->view()->parentWidget() != nullptr;
}

[[nodiscard]] QWidget *fadeOf(const World &world)
{
    return world.container->view()->findChild<QWidget *>(QStringLiteral("crossFade"));
}

void openPreview(const World &world)
{
    QTest::mouseClick(world.editor()->btnPreview(), Qt::LeftButton);
}

void closePreview(const World &world)
{
    QTest::mouseClick(world.preview()->btnClose(), Qt::LeftButton);
}

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
        openPreview(world);
        QVERIFY(texts.contains(QStringLiteral(
            "No tags have been entered yet. Please insert tags first and then preview the lyrics.")));
        QVERIFY(!isPreviewOnScreen(world));
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
        QVERIFY(isPreviewOnScreen(world));
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
        openPreview(world);
        QCOMPARE(world.host->asked.size(), asked + 1);
        closePreview(world);
        openPreview(world);
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
        openPreview(world);
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
        openPreview(world);
        QVERIFY(!QApplication::focusWidget()); // neither the lines, out of sight, nor the next button
        if (byKey) {
            QTest::keyClick(world.window.get(), Qt::Key_Escape);
        } else {
            closePreview(world);
        }
        QTRY_VERIFY(!isPreviewOnScreen(world));
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
        openPreview(world);
        QTRY_VERIFY(!QApplication::focusWidget());
        field->setFocus();
        closePreview(world);
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
        openPreview(world);
        QTRY_VERIFY(!QApplication::focusWidget());
        QTest::keyClick(world.window.get(), Qt::Key_Delete);
        QTest::keyClick(world.window.get(), Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(world.window.get(), Qt::Key_Return);
        QCOMPARE(world.editor()->songText(), kLyric);
        QVERIFY(!world.container->action(EditorCommand::Untag)->isEnabled());
        closePreview(world);
        QVERIFY(world.container->action(EditorCommand::Untag)->isEnabled());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        QCOMPARE(world.editor()->songText(), QByteArray("one\n[00:02.00]two\n[00:03.00]three\n"));
    }

    void anOffsetIsSeenAtOnce()
    {
        const World world(kLyric);
        openPreview(world);
        support::whenDialogOpens([](QWidget &dialog) {
            auto *const field = dialog.findChild<QLineEdit *>();
            field->setText(QStringLiteral("10"));
            QTest::mouseClick(support::buttonTitled(dialog, QStringLiteral("Apply")), Qt::LeftButton);
        });
        QTest::mouseClick(world.preview()->btnOffset(), Qt::LeftButton);
        QVERIFY(isPreviewOnScreen(world));
        world.player->tick(12.0);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("two"));
        QCOMPARE(world.editor()->songText(), QByteArray("[00:11.00]one\n[00:12.00]two\n[00:13.00]three\n"));
    }

    void aCancelledOffsetLeavesTheHighlight()
    {
        const World world(kLyric);
        openPreview(world);
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
        openPreview(world);
        QVERIFY(fadeOf(world));
        QTRY_VERIFY(!fadeOf(world));
        QVERIFY(isPreviewOnScreen(world));
    }

    void resizingEndsTheFadeAndKeepsTheView()
    {
        const World world(kLyric);
        openPreview(world);
        QVERIFY(fadeOf(world));
        world.window->resize(480, 500);
        QTRY_COMPARE(world.window->width(), 480);
        QVERIFY(!fadeOf(world) || fadeOf(world)->isHidden());
        const QWidget *const view = world.preview()->view();
        QCOMPARE(view->geometry(),
            QRect(0, 0, world.container->view()->width(), world.container->view()->height() - 80));
        QVERIFY(view->isVisible());
    }

    void backInTheMiddleOfTheFade()
    {
        const World world(kLyric);
        for (int times = 0; times < 3; ++times) {
            openPreview(world);
            QVERIFY(fadeOf(world));
            closePreview(world);
            QVERIFY(!isPreviewOnScreen(world));
            QVERIFY(world.editor()->view()->isVisible());
        }
        QTRY_VERIFY(!fadeOf(world));
    }

    void ticksInTheMiddleOfTheFadeAreFollowed()
    {
        const World world(kLyric);
        openPreview(world);
        QVERIFY(fadeOf(world));
        world.player->tick(2.0);
        QCOMPARE(world.preview()->textView()->selectedText(), QStringLiteral("two"));
    }

    void everybodyMayGoInTheMiddleOfTheFade()
    {
        constexpr int kPreview = World::OfATest;
        support::inEveryOrder(
            {World::ItsHost, World::ItsPlayer, World::ItsContainer, World::ItsWindow, kPreview},
            [](const std::vector<int> &order) {
                World world(kLyric);
                const std::weak_ptr<TQWLRCEditorViewCtl> gone = world.container;
                std::shared_ptr<RBPreviewViewController> preview = world.preview();
                openPreview(world);
                QVERIFY(fadeOf(world));
                for (const int who : order) {
                    if (who == kPreview) {
                        preview.reset();
                    } else {
                        world.letGo(who);
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
            });
    }

    void aHugeLyricIsThereWithTheFade()
    {
        QByteArray lyric;
        for (int line = 0; line < 100'000; ++line) {
            lyric += "[00:01.00]line\n";
        }
        const World world(lyric);
        openPreview(world);
        // Before anything else has happened, and though it is only what can be seen.
        QVERIFY(fadeOf(world));
        const auto *const text = world.preview()->textView();
        const auto rows = static_cast<std::size_t>(text->height() / text->fontMetrics().height());
        QVERIFY(text->laidOutLines() >= rows / 3);
        QVERIFY(text->laidOutLines() <= 4 * rows + 100);
        world.player->tick(1.0);
        QCOMPARE(text->selectedRange().location, 99'999 * 5);
        QVERIFY(text->laidOutLines() <= 4 * rows + 100);
    }
};

QTEST_MAIN(PreviewSwitch)
#include "tst_preview_switch.moc"
