// SPDX-License-Identifier: MIT
#include "shell/contracts/EditorKeys.h"
#include "support/QtWarnings.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

namespace {

using Keys = QList<QKeySequence>;

// Made before there is an application that knows the platform's keys.
const EditorKeys kBeforeTheApplication;

Keys keysNamed(const QStringList &names)
{
    Keys keys;
    for (const QString &name : names) {
        keys.append(QKeySequence(name, QKeySequence::PortableText));
    }
    return keys;
}

bool hasLetter(const QKeySequence &key)
{
    const Qt::Key pressed = key[0].key();
    return pressed > Qt::Key_Space && pressed <= Qt::Key_ydiaeresis;
}

} // namespace

class tst_EditorKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void defaults_data();
    void defaults();
    void noDefaultHasTwoCommands();
    void everyCommandIsListedOnce();
    void commandsInRhythmHaveNoLetters();
    void noDefaultIsOneThatDesktopsTake();
    void platformKeysAreThere();
    void commonKeysBeforeThereIsAnApplication();
    void aKeyIsTakenFromItsCommandAndToldOf();
    void ownKeysAreKeptAndMayBeReordered();
    void noKeysTakesAllAway();
    void whatIsNoKeyIsLeftOut_data();
    void whatIsNoKeyIsLeftOut();
    void aKeyNamedTwiceCountsOnce();
    void theKeypadIsTheSameKeyButForEnter();
    void aFreeKeyHasNoCommand();
    void equalityIsTheSameKeysInOrder();
};

void tst_EditorKeys::defaults_data()
{
    QTest::addColumn<EditorCommand>("command");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char *name, EditorCommand command, const QStringList &names) {
        QTest::newRow(name) << command << names;
    };
    const auto list = [](const char *names) { return QString::fromLatin1(names).split(QLatin1Char(' ')); };
    row("stamp", EditorCommand::Stamp, list("Return Enter"));
    row("stamp and stay", EditorCommand::StampAndStay, list("Shift+Return Shift+Enter"));
    row("step back", EditorCommand::StepBack, list("Ctrl+Up"));
    row("10 ms back", EditorCommand::NudgeBack10, list("Alt+Left"));
    row("10 ms forward", EditorCommand::NudgeForward10, list("Alt+Right"));
    row("100 ms back", EditorCommand::NudgeBack100, list("Ctrl+Left"));
    row("100 ms forward", EditorCommand::NudgeForward100, list("Ctrl+Right"));
    row("1 s back", EditorCommand::NudgeBack1000, list("Ctrl+Shift+Left"));
    row("1 s forward", EditorCommand::NudgeForward1000, list("Ctrl+Shift+Right"));
    row("play from line", EditorCommand::PlayFromLine, list("Shift+Space F5"));
    row("play or pause", EditorCommand::PlayOrPause, list("Space"));
    row("insert before", EditorCommand::InsertLineBefore, list("Ctrl+Shift+Ins"));
    row("insert after", EditorCommand::InsertLineAfter, list("Ins"));
    row("duplicate", EditorCommand::DuplicateLine, list("Ctrl+D"));
    row("delete lines", EditorCommand::DeleteLines, list("Ctrl+Del"));
    row("delete all lines", EditorCommand::DeleteAllLines, {});
    row("move up", EditorCommand::MoveUp, list("Alt+Up"));
    row("move down", EditorCommand::MoveDown, list("Alt+Down"));
    row("merge", EditorCommand::MergeWithNext, list("Ctrl+Shift+Return Ctrl+Shift+Enter"));
    row("split", EditorCommand::SplitAtCaret, list("Ctrl+Return Ctrl+Enter"));
    row("untag", EditorCommand::Untag, list("Del Backspace"));
    row("untag all", EditorCommand::UntagAll, {});
    row("title", EditorCommand::MakeTitle, {});
    row("offset of all", EditorCommand::OffsetAll, {});
    row("restore", EditorCommand::RestoreAll, {});
    row("paste text", EditorCommand::PasteTextAsLines, list("Ctrl+Shift+V"));
    row("source", EditorCommand::ShowSource, list("Ctrl+U"));
    row("open", EditorCommand::OpenLyricFile, list("Ctrl+Shift+O"));
    row("search", EditorCommand::SearchLyric, list("Ctrl+Shift+F"));
    row("preview", EditorCommand::Preview, list("Ctrl+P"));
    row("help", EditorCommand::Help, {});
    row("keys", EditorCommand::ShowKeys, list("F1"));
}

void tst_EditorKeys::defaults()
{
    QFETCH(EditorCommand, command);
    QFETCH(QStringList, names);
    QCOMPARE(EditorKeys().keys(command), keysNamed(names));
}

void tst_EditorKeys::noDefaultHasTwoCommands()
{
    const EditorKeys keys;
    QSet<QKeySequence> seen;
    for (const EditorCommand command : EditorKeys::allCommands()) {
        for (const QKeySequence &key : keys.keys(command)) {
            QVERIFY2(!seen.contains(key), qPrintable(key.toString()));
            QCOMPARE(keys.commandFor(key), std::optional(command));
            seen.insert(key);
        }
    }
    QVERIFY(seen.size() > 35);
}

void tst_EditorKeys::everyCommandIsListedOnce()
{
    const QList<EditorCommand> &all = EditorKeys::allCommands();
    QCOMPARE(all.first(), EditorCommand::Stamp);
    QCOMPARE(all.last(), EditorCommand::ShowKeys);
    QCOMPARE(all.size(), qsizetype(EditorCommand::ShowKeys) + 1);
    for (qsizetype at = 0; at < all.size(); ++at) {
        QCOMPARE(qsizetype(all.at(at)), at);
    }
}

void tst_EditorKeys::commandsInRhythmHaveNoLetters()
{
    const EditorKeys keys;
    for (auto command = EditorCommand::Stamp; command <= EditorCommand::InsertLineAfter;
         command = EditorCommand(int(command) + 1)) {
        QVERIFY(!keys.keys(command).isEmpty());
        for (const QKeySequence &key : keys.keys(command)) {
            QVERIFY2(!hasLetter(key), qPrintable(key.toString()));
        }
    }
    QVERIFY(hasLetter(keys.keys(EditorCommand::ShowSource).first())); // the check sees letters
}

void tst_EditorKeys::noDefaultIsOneThatDesktopsTake()
{
    const EditorKeys keys;
    const Qt::KeyboardModifiers altShift = Qt::AltModifier | Qt::ShiftModifier;
    const Qt::KeyboardModifiers ctrlAlt = Qt::ControlModifier | Qt::AltModifier;
    // Redo has Alt+Shift+Backspace on some platforms: that is the platform's own business.
    for (auto command = EditorCommand::Stamp; command < EditorCommand::Copy;
         command = EditorCommand(int(command) + 1)) {
        for (const QKeySequence &key : keys.keys(command)) {
            const Qt::KeyboardModifiers modifiers = key[0].keyboardModifiers();
            QVERIFY2((modifiers & altShift) != altShift, qPrintable(key.toString()));
            QVERIFY2((modifiers & ctrlAlt) != ctrlAlt, qPrintable(key.toString()));
            QVERIFY2(!(modifiers & Qt::MetaModifier), qPrintable(key.toString()));
        }
    }
    for (const QKeySequence &key : keysNamed({QStringLiteral("Alt+Ins"), QStringLiteral("Alt+Del"),
             QStringLiteral("Alt+Space"), QStringLiteral("Alt+F4"), QStringLiteral("Ctrl+Space")})) {
        QVERIFY2(!keys.commandFor(key), qPrintable(key.toString()));
    }
}

void tst_EditorKeys::platformKeysAreThere()
{
    const EditorKeys keys;
    QCOMPARE(keys.commandFor(QKeySequence(QKeySequence::Undo)), std::optional(EditorCommand::Undo));
    QCOMPARE(keys.commandFor(QKeySequence(QKeySequence::Redo)), std::optional(EditorCommand::Redo));
    QCOMPARE(keys.commandFor(QKeySequence(QKeySequence::Copy)), std::optional(EditorCommand::Copy));
    QCOMPARE(keys.commandFor(QKeySequence(QKeySequence::Paste)), std::optional(EditorCommand::Paste));
    QCOMPARE(keys.commandFor(QKeySequence(QKeySequence::SelectAll)), std::optional(EditorCommand::SelectAll));
    QCOMPARE(keys.keys(EditorCommand::Copy).first(), QKeySequence(Qt::CTRL | Qt::Key_C));
    // The ones with Insert are the platform's; ours are Insert and Ctrl+Shift+Insert.
    QCOMPARE(keys.commandFor(Qt::SHIFT | Qt::Key_Insert), std::optional(EditorCommand::Paste));
    QCOMPARE(keys.commandFor(Qt::CTRL | Qt::Key_Insert), std::optional(EditorCommand::Copy));
}

void tst_EditorKeys::commonKeysBeforeThereIsAnApplication()
{
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::Undo), Keys{Qt::CTRL | Qt::Key_Z});
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::Redo), (Keys{Qt::CTRL | Qt::SHIFT | Qt::Key_Z}));
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::Copy), Keys{Qt::CTRL | Qt::Key_C});
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::Paste), Keys{Qt::CTRL | Qt::Key_V});
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::SelectAll), Keys{Qt::CTRL | Qt::Key_A});
    QCOMPARE(kBeforeTheApplication.keys(EditorCommand::Stamp), keysNamed({"Return", "Enter"}));
}

void tst_EditorKeys::aKeyIsTakenFromItsCommandAndToldOf()
{
    EditorKeys keys;
    const EditorKeys::Change change
        = keys.setKeys(EditorCommand::OffsetAll, {Qt::Key_F9, Qt::Key_Backspace, Qt::CTRL | Qt::Key_Up});
    QCOMPARE(change.taken,
        (QList<EditorKeys::TakenKey>{{EditorCommand::Untag, QKeySequence(Qt::Key_Backspace)},
            {EditorCommand::StepBack, QKeySequence(Qt::CTRL | Qt::Key_Up)}}));
    QVERIFY(change.leftOut.isEmpty());
    QCOMPARE(
        keys.keys(EditorCommand::OffsetAll), (Keys{Qt::Key_F9, Qt::Key_Backspace, Qt::CTRL | Qt::Key_Up}));
    QCOMPARE(keys.keys(EditorCommand::Untag), Keys{Qt::Key_Delete});
    QVERIFY(keys.keys(EditorCommand::StepBack).isEmpty());
    QCOMPARE(keys.commandFor(Qt::Key_Backspace), std::optional(EditorCommand::OffsetAll));
}

void tst_EditorKeys::ownKeysAreKeptAndMayBeReordered()
{
    EditorKeys keys;
    const EditorKeys::Change change = keys.setKeys(EditorCommand::Untag, {Qt::Key_Backspace, Qt::Key_Delete});
    QCOMPARE(change, EditorKeys::Change());
    QCOMPARE(keys.keys(EditorCommand::Untag), (Keys{Qt::Key_Backspace, Qt::Key_Delete}));
}

void tst_EditorKeys::noKeysTakesAllAway()
{
    EditorKeys keys;
    QCOMPARE(keys.setKeys(EditorCommand::ShowKeys, {}), EditorKeys::Change());
    QVERIFY(keys.keys(EditorCommand::ShowKeys).isEmpty());
    QVERIFY(!keys.commandFor(Qt::Key_F1));
}

void tst_EditorKeys::whatIsNoKeyIsLeftOut_data()
{
    QTest::addColumn<QKeySequence>("key");
    QTest::newRow("empty") << QKeySequence();
    QTest::newRow("two presses") << QKeySequence(Qt::CTRL | Qt::Key_K, Qt::CTRL | Qt::Key_C);
    QTest::newRow("shift alone") << QKeySequence(Qt::Key_Shift);
    QTest::newRow("ctrl and alt alone") << QKeySequence(Qt::CTRL | Qt::Key_Alt);
    QTest::newRow("a name of no key") << QKeySequence(QStringLiteral("Ctrl+Nonsense"));
}

void tst_EditorKeys::whatIsNoKeyIsLeftOut()
{
    QFETCH(QKeySequence, key);
    EditorKeys keys;
    const EditorKeys::Change change = keys.setKeys(EditorCommand::UntagAll, {key, Qt::Key_F9});
    QCOMPARE(change.leftOut, Keys{key});
    QCOMPARE(keys.keys(EditorCommand::UntagAll), Keys{Qt::Key_F9});
    QVERIFY(!keys.commandFor(key));
}

void tst_EditorKeys::aKeyNamedTwiceCountsOnce()
{
    EditorKeys keys;
    QCOMPARE(keys.setKeys(EditorCommand::UntagAll, {Qt::Key_F9, Qt::Key_F9}), EditorKeys::Change());
    QCOMPARE(keys.keys(EditorCommand::UntagAll), Keys{Qt::Key_F9});
}

void tst_EditorKeys::theKeypadIsTheSameKeyButForEnter()
{
    EditorKeys keys;
    QCOMPARE(keys.commandFor(QKeyCombination(Qt::KeypadModifier, Qt::Key_Insert)),
        std::optional(EditorCommand::InsertLineAfter));
    QCOMPARE(keys.commandFor(QKeyCombination(Qt::KeypadModifier, Qt::Key_Enter)),
        std::optional(EditorCommand::Stamp));
    keys.setKeys(EditorCommand::Stamp, {QKeyCombination(Qt::KeypadModifier, Qt::Key_Enter)});
    QCOMPARE(keys.keys(EditorCommand::Stamp), Keys{Qt::Key_Enter});
    QVERIFY(!keys.commandFor(Qt::Key_Return));
}

void tst_EditorKeys::aFreeKeyHasNoCommand()
{
    const EditorKeys keys;
    QVERIFY(!keys.commandFor(Qt::Key_A));
    QVERIFY(!keys.commandFor(Qt::Key_Up)); // moving through the lines is the table's
    QVERIFY(!keys.commandFor(Qt::Key_Escape));
    QVERIFY(!keys.commandFor(QKeySequence()));
    QVERIFY(!keys.commandFor(QKeySequence(Qt::Key_Return, Qt::Key_Return)));
}

void tst_EditorKeys::equalityIsTheSameKeysInOrder()
{
    EditorKeys keys;
    QVERIFY(keys == EditorKeys());
    keys.setKeys(EditorCommand::Untag, {Qt::Key_Backspace, Qt::Key_Delete});
    QVERIFY(!(keys == EditorKeys()));
    keys.setKeys(EditorCommand::Untag, {Qt::Key_Delete, Qt::Key_Backspace});
    QVERIFY(keys == EditorKeys());
}

QTEST_MAIN(tst_EditorKeys)
#include "tst_editor_keys.moc"
