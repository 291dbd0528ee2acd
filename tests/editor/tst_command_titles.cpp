// SPDX-License-Identifier: MIT
#include "editor/CommandTitles.h"
#include "support/QtWarnings.h"

#include <QtCore/QLocale>
#include <QtCore/QSet>
#include <QtTest/QTest>

using editor::commandTitle;
using editor::keyText;
using editor::toolTipWithKey;

class tst_CommandTitles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void everyCommandHasATitleOfItsOwn_data();
    void everyCommandHasATitleOfItsOwn();
    void everyGroupHasCommandsAndATitle();
    void titlesSayWhatIsMeant();
    void keysAsTheyArePrinted_data();
    void keysAsTheyArePrinted();
    void noKeyHasNoText();
    void toolTipNamesTheFirstKey();
    void toolTipOfACommandWithoutKeysIsTheText();
};

void tst_CommandTitles::init()
{
    support::failOnUnexpectedWarnings();
    QLocale::setDefault(QLocale(QLocale::English));
}

void tst_CommandTitles::everyCommandHasATitleOfItsOwn_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("English") << QLocale(QLocale::English);
    QTest::newRow("German") << QLocale(QLocale::German);
}

void tst_CommandTitles::everyCommandHasATitleOfItsOwn()
{
    QFETCH(QLocale, locale);
    QLocale::setDefault(locale);
    QSet<QString> titles;
    for (const EditorCommand command : EditorKeys::allCommands()) {
        const QString title = commandTitle(command);
        QVERIFY(!title.isEmpty());
        QVERIFY2(!titles.contains(title), qPrintable(title));
        titles.insert(title);
    }
}

void tst_CommandTitles::everyGroupHasCommandsAndATitle()
{
    QSet<QString> groups;
    for (const EditorCommand command : EditorKeys::allCommands()) {
        groups.insert(editor::groupTitle(editor::commandGroup(command)));
    }
    QCOMPARE(groups, (QSet<QString>{"Times", "Playing", "Lines", "Tags", "Editing", "Lyric"}));
}

void tst_CommandTitles::titlesSayWhatIsMeant()
{
    QCOMPARE(commandTitle(EditorCommand::Stamp), "Stamp");
    QCOMPARE(commandTitle(EditorCommand::NudgeBack10), "10 ms earlier");
    QCOMPARE(commandTitle(EditorCommand::NudgeForward1000), "1 s later");
    QCOMPARE(commandTitle(EditorCommand::ShowKeys), "Show all keys");
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(commandTitle(EditorCommand::NudgeBack10), "10 ms früher");
    QCOMPARE(commandTitle(EditorCommand::OffsetAll), "Alle Zeiten verschieben …");
}

void tst_CommandTitles::keysAsTheyArePrinted_data()
{
    QTest::addColumn<QKeySequence>("key");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("german");
    const auto row = [](const QKeySequence &key, const QString &english, const QString &german) {
        QTest::newRow(qPrintable(english)) << key << english << german;
    };
    row(Qt::Key_Return, "Enter", "Eingabe");
    row(Qt::Key_Enter, "Num Enter", "Num-Eingabe");
    row(Qt::CTRL | Qt::Key_Delete, "Ctrl+Del", "Strg+Entf");
    row(Qt::CTRL | Qt::SHIFT | Qt::Key_Left, "Ctrl+Shift+←", "Strg+Umschalt+←");
    row(Qt::ALT | Qt::Key_Up, "Alt+↑", "Alt+↑");
    row(Qt::SHIFT | Qt::Key_Space, "Shift+Space", "Umschalt+Leertaste");
    row(Qt::CTRL | Qt::Key_D, "Ctrl+D", "Strg+D");
    row(Qt::META | Qt::Key_F5, "Meta+F5", "Meta+F5");
}

void tst_CommandTitles::keysAsTheyArePrinted()
{
    QFETCH(QKeySequence, key);
    QFETCH(QString, english);
    QFETCH(QString, german);
    QCOMPARE(keyText(key), english);
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(keyText(key), german);
}

void tst_CommandTitles::noKeyHasNoText()
{
    QVERIFY(keyText(QKeySequence()).isEmpty());
}

void tst_CommandTitles::toolTipNamesTheFirstKey()
{
    EditorKeys keys;
    QCOMPARE(toolTipWithKey("Stamp it", keys, EditorCommand::Stamp), "Stamp it (Enter)");
    keys.setKeys(EditorCommand::Stamp, {Qt::Key_F8, Qt::Key_Return});
    QCOMPARE(toolTipWithKey("Stamp it", keys, EditorCommand::Stamp), "Stamp it (F8)");
    QCOMPARE(toolTipWithKey("100%2", keys, EditorCommand::Stamp), "100%2 (F8)");
}

void tst_CommandTitles::toolTipOfACommandWithoutKeysIsTheText()
{
    QCOMPARE(toolTipWithKey("Untag all", EditorKeys(), EditorCommand::UntagAll), "Untag all");
}

QTEST_MAIN(tst_CommandTitles)
#include "tst_command_titles.moc"
