// SPDX-License-Identifier: MIT
//
// Fetching a lyric through the host's service, by button, key and menu.
#include "EditorOnScreen.h"
#include "support/LyricService.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMenu>

class Search : public QObject
{
    Q_OBJECT

private:
    static QAbstractButton *button(const EditorOnScreen &screen)
    {
        return screen.view->findChild<QAbstractButton *>(QStringLiteral("btnSearch"));
    }
    static QAction *menuItem(const EditorOnScreen &screen)
    {
        for (QAction *item : screen.editor->tableRightMenu()->actions()) {
            if (item->objectName() == QLatin1String("searchLyricClick")) {
                return item;
            }
        }
        return nullptr;
    }

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void theButtonAsksForTheItemByTitleAndArtist()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.item->titleText = QStringLiteral("The Star");
        screen.item->artistText = QStringLiteral("Jane Taylor");
        screen.load("old\n");
        QTest::mouseClick(button(screen), Qt::LeftButton);
        QCOMPARE(host.service().requests.size(), std::size_t(1));
        QCOMPARE(host.service().requests.front().title, QStringLiteral("The Star"));
        QCOMPARE(host.service().requests.front().artist, QStringLiteral("Jane Taylor"));
        // It does not wait.
        QCOMPARE(screen.editor->songText(), QByteArray("old\n"));
    }

    void anUnknownArtistIsEmptyAndNotNull()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.item->titleText = QStringLiteral("The Star");
        screen.load("old\n");
        screen.editor->searchLyricClick();
        QVERIFY(!host.service().requests.front().artist.isNull());
        QVERIFY(host.service().requests.front().artist.isEmpty());
        screen.item->titleText = QString();
        screen.editor->searchLyricClick();
        QVERIFY(!host.service().requests.back().title.isNull());
        QVERIFY(host.service().requests.back().title.isEmpty());
    }

    void withoutAnItemBothAreNull()
    {
        const standin::RegisteredBridge host;
        const EditorOnScreen screen;
        screen.editor->searchLyricClick();
        QVERIFY(host.service().requests.front().title.isNull());
        QVERIFY(host.service().requests.front().artist.isNull());
    }

    void whatIsFoundReplacesTheDocumentAsOneStepOfUndo()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("[00:01.00]old\r\n\r\n");
        screen.editor->searchLyricClick();
        host.service().answer("[00:02.00]new\n[00:03.00]two\n");
        QCOMPARE(screen.editor->songText(), QByteArray("[00:02.00]new\n[00:03.00]two\n"));
        QVERIFY(screen.editor->isLrcChanged());
        QCOMPARE(screen.editor->action(EditorCommand::Undo)->text(), QStringLiteral("Undo search"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]old\r\n\r\n"));
        QVERIFY(!screen.editor->isLrcChanged());
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
    }

    void nothingFoundChangesNothingAndTellsNobody()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("old\n");
        screen.editor->searchLyricClick();
        screen.editor->searchLyricClick();
        const int before = screen.host->changes;
        host.service().answer({});
        host.service().answer("");
        QCOMPARE(screen.host->changes, before);
        QVERIFY(!screen.editor->isLrcChanged());
        QVERIFY(!screen.editor->action(EditorCommand::Undo)->isEnabled());
    }

    void whatWasBeingTypedWhenItCameIsAStepOfItsOwn()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("old\n");
        screen.editor->searchLyricClick();
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        host.service().answer("new\n");
        QCOMPARE(screen.editor->songText(), QByteArray("new\n"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("typed\n"));
        screen.editor->undo();
        QCOMPARE(screen.editor->songText(), QByteArray("old\n"));
    }

    void theKeySearchesWhileACellIsBeingTyped()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("old\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->setFocus();
        QTest::keyClick(screen.table(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(host.service().requests.size(), std::size_t(1));
        screen.table()->editColumn_row_select(1, 0, true);
        QTest::keyClicks(screen.field(), QStringLiteral("typed"));
        QTest::keyClick(screen.field(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(host.service().requests.size(), std::size_t(2));
        QCOMPARE(screen.editor->songText(), QByteArray("typed\n"));
    }

    void theMenuSearchesAlsoWithoutALine()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("");
        QVERIFY(menuItem(screen));
        QVERIFY(screen.editor->validateMenuItem(menuItem(screen)));
        menuItem(screen)->trigger();
        QCOMPARE(host.service().requests.size(), std::size_t(1));
        host.service().answer("new\n");
        QCOMPARE(screen.editor->songText(), QByteArray("new\n"));
        QCOMPARE(screen.table()->selectedRow(), 0);
    }

    void withoutAServiceNothingHappensAndNothingIsOffered()
    {
        EditorOnScreen screen;
        screen.load("old\n");
        screen.editor->searchLyricClick();
        QVERIFY(!button(screen)->isEnabled());
        QVERIFY(!screen.editor->action(EditorCommand::SearchLyric)->isEnabled());
        QVERIFY(!screen.editor->validateMenuItem(menuItem(screen)));
        // A bridge alone is no service.
        const standin::RegisteredBridge host;
        host.bridge->service = nullptr;
        screen.load("old\n");
        screen.editor->searchLyricClick();
        QVERIFY(!button(screen)->isEnabled());
        QVERIFY(!screen.editor->isLrcChanged());
    }

    void aServiceThatIsRegisteredLaterIsOfferedWithTheNextItem()
    {
        EditorOnScreen screen;
        screen.load("old\n");
        const standin::RegisteredBridge host;
        screen.load("old\n");
        QVERIFY(button(screen)->isEnabled());
        QVERIFY(screen.editor->action(EditorCommand::SearchLyric)->isEnabled());
    }

    void theButtonSaysWhatItDoes()
    {
        const standin::RegisteredBridge host;
        EditorOnScreen screen;
        screen.load("old\n");
        QCOMPARE(button(screen)->accessibleName(), QStringLiteral("Search"));
        QCOMPARE(
            button(screen)->toolTip(), QStringLiteral("Search for the lyric of this song (Ctrl+Shift+F)"));
        QVERIFY(!button(screen)->icon().isNull());
        auto *source = screen.view->findChild<QWidget *>(QStringLiteral("btnSource"));
        QCOMPARE(source->nextInFocusChain(), button(screen));
    }

    void theEditorLivesUntilItIsAnswered()
    {
        const standin::RegisteredBridge host;
        std::weak_ptr<TQLRCEditorViewCtl> editor;
        {
            EditorOnScreen screen;
            screen.load("old\n");
            screen.editor->searchLyricClick();
            editor = screen.editor;
            delete screen.view;
        }
        QVERIFY(!editor.expired());
        host.service().answer("new\n");
        QVERIFY(editor.expired());
    }

    void aBridgeThatIsGoneIsNotAsked()
    {
        EditorOnScreen screen;
        screen.load("old\n");
        {
            auto bridge = std::make_shared<standin::Bridge>();
            TQInterfaceConfig::setBridge(std::weak_ptr<TQInterfaceBridge>(bridge));
            QCOMPARE(TQInterfaceConfig::getBridge(), std::static_pointer_cast<TQInterfaceBridge>(bridge));
        }
        QVERIFY(!TQInterfaceConfig::getBridge());
        screen.editor->searchLyricClick();
        QVERIFY(!screen.editor->isLrcChanged());
    }
};

QTEST_MAIN(Search)
#include "tst_search.moc"
