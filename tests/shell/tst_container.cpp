// SPDX-License-Identifier: MIT
#include "RecordingChildren.h"
#include "shell/TQWLRCEditorViewCtl.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"
#include "views/CellTextView.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>

using support::buttonTitled;
using support::textsOf;
using support::whenDialogOpens;

namespace {

/// A container with recording children, in the order in which a host sets one up.
struct Setup
{
    Setup()
    {
        TQWLRCEditorViewCtl::initialize();
        container = TQWLRCEditorViewCtl::initWithPlayer(player);
        const std::weak_ptr<EditorContainer> parent = container;
        editor = std::make_shared<recording::Editor>(log);
        editor->setDelegate(host);
        editor->setParentVC(parent);
        container->setEditorViewCtl(editor);
        strip = std::make_shared<recording::Strip>(log, player);
        strip->setParentVC(parent);
        container->setPlayerViewCtl(strip);
        preview = std::make_shared<recording::Preview>(log);
        preview->setParentVC(parent);
        container->setPreviewingCtl(preview);
        container->setDelegate(host);
    }

    /// Shows the view and forgets the calls so far.
    void show() const
    {
        container->view()->resize(900, 600);
        container->view()->show();
        log->clear();
    }
    static std::shared_ptr<standin::Item> item(const QByteArray &lyric)
    {
        return std::make_shared<standin::Item>(lyric, QStringLiteral("Song"));
    }
    void load(const std::shared_ptr<standin::Item> &item) const { container->flushWithAudioItem(item); }

    standin::CallLog log = standin::newLog();
    std::shared_ptr<standin::Player> player = std::make_shared<standin::Player>(log);
    std::shared_ptr<standin::Host> host = std::make_shared<standin::Host>(log);
    std::shared_ptr<TQWLRCEditorViewCtl> container;
    std::shared_ptr<recording::Editor> editor;
    std::shared_ptr<recording::Strip> strip;
    std::shared_ptr<recording::Preview> preview;
};

void answerPrompt(const QString &title, QStringList *texts = nullptr)
{
    whenDialogOpens([title, texts](QWidget &dialog) {
        if (texts) {
            *texts = textsOf(dialog);
        }
        QTest::mouseClick(buttonTitled(dialog, title), Qt::LeftButton);
    });
}

} // namespace

class ContainerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        support::failOnUnexpectedWarnings();
        // The settings are the process's: each test begins with the defaults.
        TQWLRCEditorViewCtl::initialize();
    }

    void settingsAreMadeWithTheirDefaultsBeforeTheFirstContainer()
    {
        gEditorConfig.reset();
        const auto container = TQWLRCEditorViewCtl::initWithPlayer(nullptr);
        QVERIFY(gEditorConfig);
        QCOMPARE(container->config(), gEditorConfig);
        QVERIFY(!container->config()->promptForMetaLrc());
        QVERIFY(container->config()->supportDragAudioInto());
        const TQLRCEditorConfig fresh;
        QVERIFY(!fresh.promptForMetaLrc());
        QVERIFY(!fresh.supportDragAudioInto());
        const auto earlier = gEditorConfig;
        const auto another = TQWLRCEditorViewCtl::initWithPlayer(nullptr);
        QCOMPARE(another->config(), earlier);
        TQWLRCEditorViewCtl::initialize();
        QVERIFY(gEditorConfig != earlier);
    }

    void theLineEditorTakesTheDelegateOnceWhenItIsMade()
    {
        const auto first = std::make_shared<standin::Host>();
        const auto second = std::make_shared<standin::Host>();
        const auto container = TQWLRCEditorViewCtl::initWithPlayer(nullptr);
        container->setDelegate(first);
        QVERIFY(container->view());
        container->setDelegate(second);
        QCOMPARE(container->editorViewCtl()->delegate(),
            std::static_pointer_cast<TQLRCEditorViewCtlDelegate>(first));
        QCOMPARE(container->playerViewCtl()->delegate(),
            std::static_pointer_cast<TQLRCEditorViewCtlDelegate>(second));
        QCOMPARE(
            container->editorViewCtl()->parentVC(), std::static_pointer_cast<EditorContainer>(container));
        QCOMPARE(
            container->playerViewCtl()->parentVC(), std::static_pointer_cast<EditorContainer>(container));
    }

    void childrenAreLaidOutWithTheStripAtTheBottom()
    {
        Setup setup;
        setup.show();
        QCOMPARE(setup.editor->view()->geometry(), QRect(0, 0, 900, 520));
        QCOMPARE(setup.strip->view()->geometry(), QRect(0, 520, 900, 80));
        QVERIFY(!setup.preview->viewIfLoaded() || !setup.preview->viewIfLoaded()->parentWidget());
        setup.container->view()->resize(700, 400);
        QCOMPARE(setup.editor->view()->geometry(), QRect(0, 0, 700, 320));
        QCOMPARE(setup.strip->view()->geometry(), QRect(0, 320, 700, 80));
        QCOMPARE(setup.container->childViewControllers().size(), 3U);
        QCOMPARE(setup.container->childViewControllers().at(0).get(), setup.editor.get());
        QCOMPARE(setup.container->childViewControllers().at(1).get(), setup.preview.get());
        QCOMPARE(setup.container->childViewControllers().at(2).get(), setup.strip.get());
    }

    void loadingAnItemCallsEverybodyInOrder()
    {
        Setup setup;
        setup.show();
        const auto item = Setup::item("a\n");
        setup.load(item);
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("editor.original a"), QStringLiteral("editor.item"),
                QStringLiteral("strip.item"), QStringLiteral("host.play")}));
        QCOMPARE(setup.host->asked.back(), std::static_pointer_cast<WXEAudioFile>(item));
        QVERIFY(!setup.player->isRegistered(setup.container));
    }

    void anItemWithoutLyricLoadsTheEmptyText()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("old\n"));
        setup.load(Setup::item({}));
        QCOMPARE(setup.editor->songLinesNum(), 0);
        QVERIFY(!setup.editor->isLrcChanged());
    }

    void loadingThePlayersOwnItemResumesIt()
    {
        Setup setup;
        setup.show();
        const auto item = Setup::item("a\n");
        setup.player->music = item;
        setup.load(item);
        QCOMPARE(setup.log->last(), QStringLiteral("player.play"));
        QVERIFY(setup.host->asked.empty());
        QVERIFY(setup.player->isRegistered(setup.container));
    }

    void observesExactlyWhileThePlayerHoldsItsItem()
    {
        Setup setup;
        setup.host->onPlay
            = [&setup](const std::shared_ptr<WXEAudioFile> &item) { setup.player->music = item; };
        setup.show();
        setup.load(Setup::item("a\n"));
        QVERIFY(setup.player->isRegistered(setup.container));
        setup.host->onPlay = {};
        setup.load(Setup::item("b\n"));
        QVERIFY(!setup.player->isRegistered(setup.container));
    }

    void anotherObjectForTheSameSongIsAnotherItem()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("a\n"));
        setup.player->music = Setup::item("a\n");
        setup.player->playing = true;
        QVERIFY(!setup.container->isPlaying());
        QVERIFY(!setup.container->isPlayingCurrent());
        setup.container->trytoUpdatePlayerStatus();
        QVERIFY(!setup.player->isRegistered(setup.container));
    }

    void tryToPlayAsksUnlessItPlays()
    {
        Setup setup;
        setup.show();
        const auto item = Setup::item("a\n");
        setup.load(item);
        setup.player->music = item;
        setup.player->playing = true;
        const auto asked = setup.host->asked.size();
        QVERIFY(!setup.container->tryToPlay());
        QCOMPARE(setup.host->asked.size(), asked);
        setup.player->playing = false;
        QVERIFY(setup.container->isPlayingCurrent());
        QVERIFY(setup.container->tryToPlay());
        QCOMPARE(setup.host->asked.size(), asked + 1);
    }

    void progressGoesToEditorThenStripAndToThePreviewOnScreenOnly()
    {
        Setup setup;
        setup.show();
        setup.player->registObserver(setup.container);
        setup.player->tick(1.5);
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("editor.progress 1.5"), QStringLiteral("strip.progress 1.5")}));
        setup.container->prPreviewClicked(nullptr);
        setup.log->clear();
        setup.player->tick(2.5);
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("editor.progress 2.5"), QStringLiteral("strip.progress 2.5"),
                QStringLiteral("preview.progress 2.5")}));
        setup.container->backFromPreview(nullptr);
        setup.log->clear();
        setup.player->tick(3.5);
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("editor.progress 3.5"), QStringLiteral("strip.progress 3.5")}));
    }

    void progressOf83SecondsIsTruncatedToMilliseconds()
    {
        Setup setup;
        setup.show();
        setup.container->updatePlayerProgress(83.4567);
        QCOMPARE(setup.editor->lblTabTime()->text(), QStringLiteral("[01:23.46]"));
    }

    void previewTakesTheEditorsPlaceAndGivesItBack()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("[00:01.00]a\n"));
        setup.log->clear();
        setup.container->prPreviewClicked(nullptr);
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("host.play"), QStringLiteral("preview.item [00:01.00]a")}));
        QVERIFY(!setup.editor->view()->parentWidget());
        QCOMPARE(setup.preview->view()->parentWidget(), setup.container->view());
        QCOMPARE(setup.preview->view()->geometry(), QRect(0, 0, 900, 520));
        setup.container->view()->resize(800, 500);
        QCOMPARE(setup.preview->view()->geometry(), QRect(0, 0, 800, 420));
        // A new item while previewing refreshes the preview, after strip and editor.
        setup.log->clear();
        setup.load(Setup::item("[00:02.00]b\n"));
        QCOMPARE(setup.log->mid(1, 3),
            QStringList({QStringLiteral("editor.item"), QStringLiteral("strip.item"),
                QStringLiteral("preview.item [00:02.00]b")}));
        setup.container->previewOffsetClicked(nullptr);
        QCOMPARE(setup.log->last(), QStringLiteral("editor.moveForward"));
        QObject sender;
        setup.container->backFromPreview(&sender);
        QCOMPARE(setup.log->last(), QStringLiteral("editor.reset"));
        QVERIFY(!setup.preview->view()->parentWidget());
        QCOMPARE(setup.editor->view()->parentWidget(), setup.container->view());
        QCOMPARE(setup.editor->view()->geometry(), QRect(0, 0, 800, 420));
    }

    void serialisingAnUnchangedTextTellsNobody()
    {
        Setup setup;
        setup.show();
        const auto item = Setup::item("[0:01.0]a\r\n");
        setup.load(item);
        const int changes = setup.host->changes;
        QVERIFY(!setup.container->serializeToAudioItem());
        QCOMPARE(setup.host->changes, changes);
        QCOMPARE(item->lyricWrites, 0);
    }

    void serialisingAChangedTextTellsTheHostOnce()
    {
        Setup setup;
        setup.show();
        const auto item = Setup::item("a\n");
        setup.load(item);
        setup.editor->insertTimeTag();
        const int changes = setup.host->changes;
        QVERIFY(setup.container->serializeToAudioItem());
        QCOMPARE(setup.host->changes, changes + 1);
        QCOMPARE(item->lyric(), QByteArray("[00:00.00]a\n\n"));
        QCOMPARE(item->dirtyRefreshes, 1);
    }

    void switchingItemsCommitsAnOpenCellEditorFirst()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("a\n"));
        const int changes = setup.host->changes;
        setup.editor->tableView()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(
            setup.editor->tableView()->findChild<views::CellTextView *>(), QStringLiteral("typed"));
        QByteArray atCommit;
        setup.host->onChanged = [&] {
            if (atCommit.isNull()) {
                atCommit = setup.editor->songText();
            }
        };
        setup.load(Setup::item("b\n"));
        QCOMPARE(atCommit, QByteArray("typed\n"));
        QVERIFY(setup.host->changes > changes);
        QCOMPARE(setup.editor->songText(), QByteArray("b\n"));
    }

    void promptUsesTheLyricWhenConfirmed()
    {
        Setup setup;
        setup.show();
        setup.container->config()->setPromptForMetaLrc(true);
        QStringList texts;
        answerPrompt(QStringLiteral("Confirm Use"), &texts);
        setup.load(Setup::item("meta\n"));
        QVERIFY(texts.contains(QStringLiteral(
            "Lyric metadata found in original file, do you want to use this Lryic to perform editing?")));
        QCOMPARE(*setup.log,
            QStringList({QStringLiteral("editor.text meta"), QStringLiteral("editor.item"),
                QStringLiteral("strip.item"), QStringLiteral("host.play")}));
        QCOMPARE(setup.editor->songText(), QByteArray("meta\n"));
        QVERIFY(setup.editor->isLrcChanged());
        QCOMPARE(setup.editor->tableView()->selectedRow(), 0);
        setup.editor->restoreAllClick();
        QCOMPARE(setup.editor->songText(), QByteArray());
    }

    void cancelledPromptKeepsTheDocumentsAndLoadsTheItem()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("before\n"));
        setup.container->config()->setPromptForMetaLrc(true);
        setup.log->clear();
        answerPrompt(QStringLiteral("Cancel"));
        const auto item = Setup::item("meta\n");
        setup.load(item);
        QCOMPARE(setup.editor->songText(), QByteArray("before\n"));
        QCOMPARE(*setup.log,
            QStringList(
                {QStringLiteral("editor.item"), QStringLiteral("strip.item"), QStringLiteral("host.play")}));
        QCOMPARE(setup.editor->audioFile(), std::static_pointer_cast<WXEAudioFile>(item));
    }

    void promptIsSilentForAnItemWithoutLyricWhichKeepsTheLines()
    {
        Setup setup;
        setup.show();
        setup.load(Setup::item("before\n"));
        setup.container->config()->setPromptForMetaLrc(true);
        const auto item = Setup::item({});
        setup.load(item);
        QCOMPARE(setup.editor->songText(), QByteArray("before\n"));
        QCOMPARE(setup.container->audioFile(), std::static_pointer_cast<WXEAudioFile>(item));
    }

    void anItemShownWhileAnotherIsLoadingIsNotMixedWithIt_data()
    {
        QTest::addColumn<bool>("whileAsking");
        QTest::newRow("when told of the change") << false;
        QTest::newRow("while the user is asked") << true;
    }

    void anItemShownWhileAnotherIsLoadingIsNotMixedWithIt()
    {
        QFETCH(bool, whileAsking);
        Setup setup;
        setup.show();
        auto first = Setup::item("first\n");
        const auto second = Setup::item("second\n");
        if (whileAsking) {
            setup.container->config()->setPromptForMetaLrc(true);
            whenDialogOpens([&](QWidget &dialog) {
                setup.container->config()->setPromptForMetaLrc(false);
                setup.load(second);
                QTest::mouseClick(buttonTitled(dialog, QStringLiteral("Cancel")), Qt::LeftButton);
            });
        } else {
            setup.host->onChanged = [&] {
                setup.host->onChanged = {};
                setup.load(second);
            };
        }
        setup.load(first);
        QCOMPARE(setup.editor->audioFile(), std::static_pointer_cast<WXEAudioFile>(second));
        QCOMPARE(setup.container->audioFile(), std::static_pointer_cast<WXEAudioFile>(second));
        QVERIFY(!setup.container->serializeToAudioItem());
        QCOMPARE(first->lyric(), QByteArray("first\n"));
        QCOMPARE(second->lyric(), QByteArray("second\n"));
    }

    void theCallersVariableMayChangeWhileItsItemIsLoaded()
    {
        Setup setup;
        setup.show();
        std::shared_ptr<WXEAudioFile> current = Setup::item("a\n");
        const std::shared_ptr<WXEAudioFile> given = current;
        setup.host->onChanged = [&current] { current.reset(); };
        setup.container->flushWithAudioItem(current);
        QCOMPARE(setup.editor->audioFile(), given);
        QCOMPARE(setup.strip->audioFile(), given);
    }

    void aTaciturnHostIsEnough()
    {
        const auto host = std::make_shared<standin::TaciturnHost>();
        const auto container = TQWLRCEditorViewCtl::initWithPlayer(nullptr);
        container->setDelegate(host);
        container->view()->show();
        const auto item = std::make_shared<standin::Item>("a\nb\n");
        container->flushWithAudioItem(item);
        container->editorViewCtl()->insertTimeTag();
        QVERIFY(container->serializeToAudioItem());
        QCOMPARE(host->asked, 2);
    }

    void nullPlayerItemAndHostAreNoErrors()
    {
        const auto container = TQWLRCEditorViewCtl::initWithPlayer(nullptr);
        container->view()->show();
        container->flushWithAudioItem(nullptr);
        QVERIFY(!container->isPlaying());
        QVERIFY(!container->isPlayingCurrent());
        QVERIFY(container->tryToPlay());
        container->pressPlayPause(nullptr);
        QVERIFY(!container->serializeToAudioItem());
        container->updatePlayerProgress(1.0);
    }

    void spaceInTheTableReachesTheHostThroughTheStrip()
    {
        Setup setup;
        setup.strip->setDelegate(setup.host);
        setup.show();
        const auto item = Setup::item("a\n");
        setup.load(item);
        const auto asked = setup.host->asked.size();
        QVERIFY(QTest::qWaitForWindowActive(setup.container->view()));
        setup.editor->tableView()->setFocus();
        QTest::keyClick(setup.editor->tableView(), Qt::Key_Space);
        QCOMPARE(setup.host->asked.size(), asked + 1);
        QCOMPARE(setup.host->asked.back(), std::static_pointer_cast<WXEAudioFile>(item));
    }

    void theWholeRoadOfAStamp()
    {
        Setup setup;
        setup.host->onPlay = [&setup](const std::shared_ptr<WXEAudioFile> &item) {
            setup.player->music = item;
            setup.player->playing = true;
        };
        setup.show();
        const auto item = Setup::item("one\ntwo\n");
        setup.load(item);
        QVERIFY(QTest::qWaitForWindowActive(setup.container->view()));
        setup.editor->tableView()->setFocus();
        for (const double position : {3.21, 7.654}) {
            setup.player->tick(position);
            QTest::keyClick(setup.editor->tableView(), Qt::Key_Return);
        }
        QVERIFY(setup.container->serializeToAudioItem());
        QCOMPARE(item->lyric(), QByteArray("[00:03.21]one\n[00:07.65]two\n\n"));
        setup.load(item);
        QCOMPARE(setup.editor->songText(), item->lyric());
        QVERIFY(!setup.editor->isLrcChanged());
    }
};

QTEST_MAIN(ContainerTest)
#include "tst_container.moc"
