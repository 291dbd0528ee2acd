// SPDX-License-Identifier: MIT
#include "editor/CommandTitles.h"
#include "editor/KeyListDialog.h"
#include "kit/Theme.h"
#include "support/QtWarnings.h"

#include <QtCore/QLocale>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QTreeWidget>

#include <memory>

using editor::KeyListDialog;

class tst_KeyListDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void showsEveryCommandWithItsKeys();
    void typingFindsCommandsKeysAndGroups_data();
    void typingFindsCommandsKeysAndGroups();
    void whatIsNotThereIsSaid();
    void escapeClosesAndTheDialogGoes();
    void aWindowHasOneList();
    void withoutAParentItStandsAlone();
    void arrowLeadsFromTheSearchIntoTheList();
    void isToBeReadOnly();
    void namesForScreenReaders();
    void longWordsAreNotCut_data();
    void longWordsAreNotCut();
    void readableInLightAndDark();

private:
    void open(const EditorKeys &keys = EditorKeys())
    {
        KeyListDialog::run(keys, m_window.get());
        QVERIFY(QTest::qWaitForWindowActive(dialog()));
    }
    [[nodiscard]] KeyListDialog *dialog() const { return m_window->findChild<KeyListDialog *>(); }
    [[nodiscard]] QLineEdit *search() const { return dialog()->findChild<QLineEdit *>(); }
    [[nodiscard]] QTreeWidget *tree() const { return dialog()->findChild<QTreeWidget *>(); }
    // "title: keys" of every row that is shown.
    [[nodiscard]] QStringList rows() const
    {
        QStringList rows;
        for (QTreeWidgetItemIterator item(tree(), QTreeWidgetItemIterator::NotHidden); *item; ++item) {
            if ((*item)->parent() != nullptr && !(*item)->parent()->isHidden()) {
                rows.append((*item)->text(0) + ": " + (*item)->text(1));
            }
        }
        return rows;
    }

    std::unique_ptr<QWidget> m_window;
};

void tst_KeyListDialog::init()
{
    support::failOnUnexpectedWarnings();
    QLocale::setDefault(QLocale(QLocale::English));
    m_window = std::make_unique<QWidget>();
    m_window->resize(700, 500);
    m_window->show();
}

void tst_KeyListDialog::cleanup()
{
    m_window.reset();
    QLocale::setDefault(QLocale::c());
}

void tst_KeyListDialog::showsEveryCommandWithItsKeys()
{
    EditorKeys keys;
    keys.setKeys(EditorCommand::UntagAll, {Qt::Key_F9});
    open(keys);
    QCOMPARE(rows().size(), EditorKeys::allCommands().size());
    QVERIFY(rows().contains("Stamp: Enter")); // and the one of the keypad, which goes without saying
    QVERIFY(rows().contains("Remove all times and tags: F9"));
    QVERIFY(rows().contains("Make this line the title: –"));
    QCOMPARE(tree()->topLevelItemCount(), 6);
    QCOMPARE(tree()->topLevelItem(0)->text(0), "Times");
}

void tst_KeyListDialog::typingFindsCommandsKeysAndGroups_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("a word of the title") << "dupl" << QStringList{"Duplicate line: Ctrl+D"};
    QTest::newRow("in capitals") << "DUPL" << QStringList{"Duplicate line: Ctrl+D"};
    QTest::newRow("a key") << "ctrl+del" << QStringList{"Delete lines: Ctrl+Del"};
    QTest::newRow("a key by the toolkit's name") << "alt+left" << QStringList{"10 ms earlier: Alt+←"};
    QTest::newRow("two words in any order")
        << "line next" << QStringList{"Join with the next line: Ctrl+Shift+Enter"};
    QTest::newRow("a group") << "playing"
                             << QStringList{"Up one line and play from it: Ctrl+↑",
                                    "Play from this line: Shift+Space,  F5", "Play or pause: Space"};
}

void tst_KeyListDialog::typingFindsCommandsKeysAndGroups()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, found);
    open();
    QVERIFY(search()->hasFocus());
    QTest::keyClicks(search(), typed);
    QCOMPARE(rows(), found);
    search()->clear();
    QCOMPARE(rows().size(), EditorKeys::allCommands().size());
}

void tst_KeyListDialog::whatIsNotThereIsSaid()
{
    open();
    QTest::keyClicks(search(), "xyzzy");
    QVERIFY(rows().isEmpty());
    QVERIFY(!tree()->isVisible());
    const auto labels = dialog()->findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->isVisible() && label->text() == "No command is called that.";
    }));
    search()->clear();
    QVERIFY(tree()->isVisible());
}

void tst_KeyListDialog::escapeClosesAndTheDialogGoes()
{
    open();
    QVERIFY(!dialog()->isModal());
    QTest::keyClicks(search(), "stamp");
    const QPointer<KeyListDialog> opened = dialog();
    QTest::keyClick(search(), Qt::Key_Escape);
    QVERIFY(opened.isNull() || !opened->isVisible());
    QTRY_VERIFY(opened.isNull());
}

void tst_KeyListDialog::aWindowHasOneList()
{
    QWidget inside(m_window.get());
    open();
    KeyListDialog *const first = dialog();
    EditorKeys keys;
    keys.setKeys(EditorCommand::DuplicateLine, {Qt::Key_F7});
    KeyListDialog::run(keys, &inside);
    QCOMPARE(m_window->findChildren<KeyListDialog *>(), QList<KeyListDialog *>{first});
    QVERIFY(rows().contains("Duplicate line: F7"));
}

void tst_KeyListDialog::withoutAParentItStandsAlone()
{
    KeyListDialog::run(EditorKeys(), nullptr);
    QPointer<KeyListDialog> alone;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *found = qobject_cast<KeyListDialog *>(widget)) {
            alone = found;
        }
    }
    QVERIFY(alone && alone->isVisible());
    alone->close();
    QTRY_VERIFY(alone.isNull());
}

void tst_KeyListDialog::arrowLeadsFromTheSearchIntoTheList()
{
    open();
    QTest::keyClicks(search(), "duplicate");
    QTest::keyClick(search(), Qt::Key_Down);
    QVERIFY(tree()->hasFocus());
    QCOMPARE(tree()->currentItem()->text(0), "Duplicate line");
    QTest::keyClick(tree(), Qt::Key_Escape);
    QTRY_VERIFY(dialog() == nullptr);
}

void tst_KeyListDialog::isToBeReadOnly()
{
    open();
    for (QTreeWidgetItemIterator item(tree()); *item; ++item) {
        QVERIFY(!((*item)->flags() & Qt::ItemIsEditable));
        QVERIFY((*item)->parent() != nullptr || !((*item)->flags() & Qt::ItemIsSelectable));
    }
    // Return in the search presses nothing.
    QTest::keyClick(search(), Qt::Key_Return);
    QVERIFY(dialog()->isVisible());
}

void tst_KeyListDialog::namesForScreenReaders()
{
    open();
    const auto nameOf = [](QWidget *widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    QCOMPARE(nameOf(dialog()), "Keys of the editor");
    QCOMPARE(nameOf(search()), "Search commands and keys");
    QCOMPARE(nameOf(tree()), "Commands and their keys");
    QTest::keyClicks(search(), "the title");
    const QTreeWidgetItem *item = *QTreeWidgetItemIterator(
        tree(), QTreeWidgetItemIterator::NotHidden | QTreeWidgetItemIterator::NoChildren);
    QCOMPARE(item->data(1, Qt::AccessibleTextRole).toString(), "no key");
}

void tst_KeyListDialog::longWordsAreNotCut_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("English") << QLocale(QLocale::English);
    QTest::newRow("German") << QLocale(QLocale::German);
}

void tst_KeyListDialog::longWordsAreNotCut()
{
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    open();
    for (QTreeWidgetItemIterator item(tree()); *item; ++item) {
        for (const int column : {0, 1}) {
            const int wanted = tree()->fontMetrics().horizontalAdvance((*item)->text(column));
            const int indent = column == 0 ? tree()->indentation() : 0;
            QVERIFY2(wanted + indent <= tree()->columnWidth(column), qPrintable((*item)->text(column)));
        }
    }
    const bool isAllInSight = tree()->header()->length() <= tree()->viewport()->width();
    QVERIFY(isAllInSight || tree()->horizontalScrollBar()->maximum() > 0);
}

void tst_KeyListDialog::readableInLightAndDark()
{
    open();
    for (const auto &[ground, ink] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, ink);
        dialog()->setPalette(palette);
        for (QTreeWidgetItemIterator item(tree()); *item; ++item) {
            const int column = (*item)->parent() != nullptr ? 1 : 0;
            const QColor color = (*item)->foreground(column).color();
            QVERIFY(kit::contrastRatio(tree()->palette().color(QPalette::Base), color) >= 4.5);
        }
    }
}

QTEST_MAIN(tst_KeyListDialog)
#include "tst_key_list_dialog.moc"
