// SPDX-License-Identifier: MIT
#include "editor/LineDiff.h"
#include "editor/SourceMerge.h"
#include "editor/SourceText.h"
#include "lyrics/Generator.h"
#include "lyrics/RBEditSong.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>

#include <algorithm>
#include <array>

namespace {

using editor::LineChange;
using editor::SourceText;
using generate::Random;

constexpr int kRounds = 4000;

/// What a user types, pastes or leaves in the place of something.
constexpr std::array<std::u16string_view, 15> kTyped = {u"", u"a", u"\n", u"\n\n", u"x\ny", u"走廊", u"😀",
    u"\r\n", u"a\r\nb\r\n", u"\r", u"[00:01.00]", u"\xFFFD", u"\xFEFF", u"\x2029",
    u"a\x2028"
    "b"};
constexpr std::array<std::string_view, 10> kBytes
    = {"", "a", "\n", "\r", "\r\n", "\xEF\xBB\xBF", "\xFF", "\xE6\x9D", "\x90", "x\r\n\ny\r"};

QByteArray bytesOf(std::string_view text)
{
    return QByteArray(text.data(), static_cast<qsizetype>(text.size()));
}

QStringView viewOf(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QByteArray anyBytes(Random &random)
{
    if (random.oneIn(2)) {
        return bytesOf(generate::anyText(random, 6, false));
    }
    std::string text;
    for (std::size_t piece = random.below(9); piece > 0; --piece) {
        text += random.oneOf(kBytes);
    }
    return bytesOf(text);
}

bool hasMark(const QByteArray &bytes)
{
    return bytes.startsWith("\xEF\xBB\xBF");
}

/// The lines with their line ends; the last has none. A byte-order mark before them is left out.
QByteArrayList linesOf(const QByteArray &bytes, bool isMarked)
{
    QByteArrayList lines = {QByteArray()};
    for (qsizetype i = isMarked ? 3 : 0; i < bytes.size(); ++i) {
        lines.last().append(bytes[i]);
        const bool isFirstOfPair = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
        if ((bytes[i] == '\n' || bytes[i] == '\r') && !isFirstOfPair) {
            lines.append(QByteArray());
        }
    }
    return lines;
}

bool isEqualButForCrBefore(const QByteArray &now, const QByteArray &before)
{
    return now == before || (before == "\n" && now == "\r\n");
}

/// Whether all but the lines from `first` to before `last` of `before` are in `now`, byte for byte.
bool areKept(const QByteArrayList &before, const QByteArrayList &now, qsizetype first, qsizetype last)
{
    const qsizetype behind = before.size() - last;
    if (now.size() < first + behind) {
        return false;
    }
    const auto head = before.first(first) == now.first(first);
    const auto tail = behind == 0
        || (isEqualButForCrBefore(now[now.size() - behind], before[last])
            && before.last(behind - 1) == now.last(behind - 1));
    return head && tail;
}

QByteArray edited(const QByteArray &bytes, qsizetype position, qsizetype removed, const QString &added)
{
    SourceText text(bytes);
    text.edit(position, removed, added);
    return text.stored();
}

class TestSourceText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void isShownLineByLine_data();
    void isShownLineByLine();
    void uneditedGivesTheBytesBack();
    void showsTheLinesOfTheModel();
    void editsLeaveOtherLinesAlone();
    void editedTextsLeaveCommonLinesAlone();
    void anEditIsWhatReadingAgainGives();
    void newBytesTellWhichLinesDiffer();
    void oneEdit_data();
    void oneEdit();
    void lineEndOutlivesTheLinesThatHadIt();
    void saysWhenItShowsSomethingElse();
    void longLinesAndManyLines();
    void hunksMakeOneListOfTheOther();
    void hunksAreFew();
    void editsAreMergedWhereTheLinesAreTheSame();
};

void TestSourceText::isShownLineByLine_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("shown");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("mark") << QByteArray("\xEF\xBB\xBF") << QString();
    QTest::newRow("mark and line") << QByteArray("\xEF\xBB\xBF"
                                                 "a")
                                   << QStringLiteral("a");
    QTest::newRow("two marks") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") << QStringLiteral(u"\xFEFF");
    QTest::newRow("line ends") << QByteArray("a\r\nb\rc\nd") << QStringLiteral("a\nb\nc\nd");
    QTest::newRow("last line end") << QByteArray("a\n") << QStringLiteral("a\n");
    QTest::newRow("blank lines") << QByteArray("\r\r\n\n\r") << QStringLiteral("\n\n\n\n");
    QTest::newRow("no line ends") << QByteArray("a\x0B"
                                                "b\x0C"
                                                "c\xC2\x85"
                                                "d\xE2\x80\xA8"
                                                "e")
                                  << QStringLiteral(u"a\xFFFD"
                                                    "b\xFFFD"
                                                    "c\xFFFD"
                                                    "d e");
    QTest::newRow("no text") << QByteArray("\xFF\xFE\0x\x01", 5)
                             << QStringLiteral(u"\xFFFD\xFFFD\xFFFDx\xFFFD");
    QTest::newRow("no-break space") << QByteArray("\xC2\xA0\xE3\x80\x80") << QStringLiteral(u"\x00A0\x3000");
}

void TestSourceText::isShownLineByLine()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, shown);
    const SourceText text(bytes);
    QCOMPARE(text.shown(), shown);
    QCOMPARE(text.shownSize(), shown.size());
    QCOMPARE(text.lineCount(), shown.count(QLatin1Char('\n')) + 1);
    QCOMPARE(text.stored(), bytes);
}

void TestSourceText::uneditedGivesTheBytesBack()
{
    Random random(81);
    for (int round = 0; round < kRounds; ++round) {
        const QByteArray bytes = anyBytes(random);
        SourceText text(bytes);
        QCOMPARE(text.shownSize(), text.shown().size());
        const SourceText::Outcome outcome = text.setShown(text.shown());
        QVERIFY(!outcome.isChanged);
        QVERIFY(outcome.isShownAsTyped);
        QCOMPARE(text.stored(), bytes);
    }
}

void TestSourceText::showsTheLinesOfTheModel()
{
    Random random(82);
    for (int round = 0; round < kRounds; ++round) {
        const QByteArray bytes = anyBytes(random);
        RBEditSong song;
        song.buildWithLrcText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
        const SourceText text(bytes);
        // The line that a last line end begins is shown, and is none of the document's.
        const bool isOpen = linesOf(bytes, hasMark(bytes)).last().isEmpty();
        QCOMPARE(
            text.lineCount() - (isOpen ? 1 : 0), static_cast<qsizetype>(song.physicalLineStarts().size()));
    }
}

void TestSourceText::editsLeaveOtherLinesAlone()
{
    Random random(83);
    int changed = 0;
    for (int round = 0; round < kRounds; ++round) {
        SourceText text(anyBytes(random));
        for (int step = 0; step < 4; ++step) {
            const QByteArray before = text.stored();
            const QString shown = text.shown();
            const auto position = static_cast<qsizetype>(random.below(std::size_t(shown.size()) + 1));
            const auto most = std::min<qsizetype>(shown.size() - position, random.oneIn(3) ? 30 : 2);
            const auto removed = static_cast<qsizetype>(random.below(std::size_t(most) + 1));
            const QStringView added = viewOf(kTyped[random.below(kTyped.size())]);
            const qsizetype first = text.lineAt(position);
            const qsizetype last = text.lineAt(position + removed) + 1;
            const SourceText::Outcome outcome = text.edit(position, removed, added);
            QVERIFY2(areKept(linesOf(before, hasMark(before)), linesOf(text.stored(), hasMark(before)), first,
                         last),
                qPrintable(QStringLiteral("%1 %2 %3 %4 %5")
                               .arg(round)
                               .arg(position)
                               .arg(removed)
                               .arg(QString::fromLatin1(before.toHex(' ')),
                                   QString::fromLatin1(text.stored().toHex(' ')))));
            QCOMPARE(hasMark(before) && !hasMark(text.stored()), false);
            QCOMPARE(outcome.isChanged, text.stored() != before);
            const QString expected
                = shown.first(position) + added.toString() + shown.sliced(position + removed);
            QCOMPARE(outcome.isShownAsTyped, text.shown() == expected);
            changed += outcome.isChanged;
        }
    }
    QVERIFY(changed > kRounds);
}

void TestSourceText::editedTextsLeaveCommonLinesAlone()
{
    Random random(84);
    for (int round = 0; round < kRounds; ++round) {
        const QByteArray before = anyBytes(random);
        SourceText text(before);
        QStringList lines = text.shown().split(QLatin1Char('\n'));
        const QStringList was = lines;
        const auto at = static_cast<qsizetype>(random.below(std::size_t(lines.size())));
        const auto kind = random.below(3);
        if (kind == 0) {
            lines.insert(at, QStringLiteral("new"));
        } else if (kind == 1 && lines.size() > 1) {
            lines.removeAt(at);
        } else {
            lines[at] += QStringLiteral("z");
        }
        text.setShown(lines.join(QLatin1Char('\n')));
        const auto common = [&](auto from, auto end, auto other, auto otherEnd) {
            return std::mismatch(from, end, other, otherEnd).first - from;
        };
        const qsizetype head = common(was.begin(), was.end(), lines.begin(), lines.end());
        const qsizetype tail = std::min(common(was.rbegin(), was.rend(), lines.rbegin(), lines.rend()),
            std::min(was.size(), lines.size()) - head);
        // The last line has no line end: one that comes to stand there loses it, another gets one.
        const qsizetype first = std::min(head, std::min(was.size(), lines.size()) - 1);
        QVERIFY2(areKept(linesOf(before, hasMark(before)), linesOf(text.stored(), hasMark(before)), first,
                     was.size() - tail),
            qPrintable(QString::fromLatin1(before.toHex(' ') + " -> " + text.stored().toHex(' '))));
    }
}

void TestSourceText::anEditIsWhatReadingAgainGives()
{
    Random random(85);
    for (int round = 0; round < kRounds; ++round) {
        SourceText text(anyBytes(random));
        for (int step = 0; step < 5; ++step) {
            const auto position = static_cast<qsizetype>(random.below(std::size_t(text.shownSize()) + 1));
            text.edit(position, static_cast<qsizetype>(random.below(4)),
                viewOf(kTyped[random.below(kTyped.size())]));
            const SourceText again(text.stored());
            QCOMPARE(text.shown(), again.shown());
            QCOMPARE(text.shownSize(), again.shownSize());
            QCOMPARE(text.lineCount(), again.lineCount());
            QCOMPARE(text.lineAt(position), again.lineAt(position));
            if (again.lineCount() > 1) {
                QCOMPARE(text.lineEnd(), again.lineEnd());
            }
        }
    }
}

void TestSourceText::newBytesTellWhichLinesDiffer()
{
    Random random(86);
    for (int round = 0; round < kRounds; ++round) {
        const QByteArray before = anyBytes(random);
        QByteArray now = random.oneIn(3) ? anyBytes(random) : before;
        const auto at = static_cast<qsizetype>(random.below(std::size_t(now.size()) + 1));
        now.replace(at, static_cast<qsizetype>(random.below(3)), bytesOf(random.oneOf(kBytes)));
        SourceText text(before);
        const QStringList was = text.shownLines(0, text.lineCount());
        const LineChange change = text.setStored(now);
        const SourceText again(now);
        QCOMPARE(text.shown(), again.shown());
        QCOMPARE(text.shownSize(), again.shownSize());
        QCOMPARE(text.lineEnd(), again.lineEnd());
        QStringList replaced = was.first(change.first);
        replaced += text.shownLines(change.first, change.now);
        replaced += was.sliced(change.first + change.before);
        QCOMPARE(replaced.join(QLatin1Char('\n')), again.shown());
    }
}

void TestSourceText::oneEdit_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char *name, const QByteArray &before, int position, int removed,
                         QStringView added, const QByteArray &after) {
        QTest::newRow(name) << before << position << removed << added.toString() << after;
    };
    constexpr char16_t kHalf = 0xDE01;
    row("a letter", "a\r\nb\nc\r\n", 3, 0, u"x", "a\r\nbx\nc\r\n");
    row("a new line at the end of one", "a\nb\r\nc\r\n", 1, 0, u"\n", "a\n\r\nb\r\nc\r\n");
    row("a new line within one", "ab\nc\r\nd\r\n", 1, 0, u"\n", "a\r\nb\nc\r\nd\r\n");
    row("a line typed below one", "a\nb\r\nc\r\n", 1, 0, u"\nx", "a\nx\r\nb\r\nc\r\n");
    row("behind a last line without line end", "a\r\nb", 3, 0, u"\n", "a\r\nb\r\n");
    row("the first line end", "a", 1, 0, u"\n", "a\n");
    row("paste of CRLF", "a\n", 2, 0, u"b\r\nc\r\n", "a\nb\nc\n");
    row("paste of LF among CR", "a\rb\r", 2, 0, u"x\ny\n", "a\rx\ry\rb\r");
    row("breaks of text views", "a\r\n", 1, 0, u"x\x2029y\x2028z", "ax\r\ny\r\nz\r\n");
    row("a line taken out from its beginning", "a\nb\r\nc\r\n", 2, 2, u"", "a\nc\r\n");
    row("a line taken out from the end of the one before", "a\nb\r\nc\r\n", 1, 2, u"", "a\nc\r\n");
    row("lines joined", "a\nb\r\nc\r\n", 1, 1, u"", "ab\r\nc\r\n");
    row("a mark left alone",
        "\xFF"
        "a\xFE",
        1, 1, u"b",
        "\xFF"
        "b\xFE");
    row("the first of two marks", "\xFE\xFF", 0, 1, u"", "\xFF");
    row("the second of two marks", "\xFE\xFF", 1, 1, u"", "\xFE");
    row("more than changed",
        "\xFF"
        "a\xFE\n",
        0, 3,
        u"\xFFFD"
        "b\xFFFD",
        "\xFF"
        "b\xFE\n");
    row("half a pair", "\xF0\x9F\x98\x80", 1, 1, QStringView(&kHalf, 1), "\xF0\x9F\x98\x81");
    row("behind the byte-order mark",
        "\xEF\xBB\xBF"
        "a",
        0, 0, u"x",
        "\xEF\xBB\xBF"
        "xa");
    row("all of it",
        "\xEF\xBB\xBF"
        "a\r\nb",
        0, 3, u"", "\xEF\xBB\xBF");
    row("a line break behind CR", "a\rb\n\n", 2, 0, u"\n", "a\r\r\nb\n\n");
    row("what parted CR and LF", "a\rx\nb", 2, 1, u"", "a\r\r\nb");
    row("CR typed before LF", "a\r\r\rb\n\n", 5, 0, u"\nx\n", "a\r\r\rb\nx\r\r\n\n");
    row("out of range", "a", 7, 9, u"b", "ab");
}

void TestSourceText::oneEdit()
{
    QFETCH(QByteArray, before);
    QFETCH(int, position);
    QFETCH(int, removed);
    QFETCH(QString, added);
    QTEST(edited(before, position, removed, added), "after");
}

void TestSourceText::lineEndOutlivesTheLinesThatHadIt()
{
    SourceText text("a\r\nb\r\n");
    text.edit(0, text.shownSize(), {});
    QCOMPARE(text.stored(), QByteArray());
    text.setStored(QByteArray());
    text.edit(0, 0, u"x\ny");
    QCOMPARE(text.stored(), QByteArray("x\r\ny"));
    text.setStored("other");
    QCOMPARE(text.lineEnd(), QByteArray("\n"));
}

void TestSourceText::saysWhenItShowsSomethingElse()
{
    SourceText text("a\xE6\x9D"
                    "x\x90");
    QVERIFY(text.edit(0, 1, u"b").isShownAsTyped);
    // The bytes of two marks are one character when nothing parts them.
    const SourceText::Outcome joined = text.edit(2, 1, {});
    QVERIFY(joined.isChanged);
    QVERIFY(!joined.isShownAsTyped);
    QCOMPARE(text.shown(), QStringLiteral(u"b\x6750"));
    QVERIFY(!text.edit(0, 0, u"\x01").isShownAsTyped);
    QCOMPARE(text.stored(),
        QByteArray("\x01"
                   "b\xE6\x9D\x90"));
}

void TestSourceText::longLinesAndManyLines()
{
    const QByteArray line = QByteArray("\xE8\xB5\xB0\xFF").repeated(50'000);
    SourceText text(line + "\r\n" + line);
    text.edit(100'000, 0, u"x");
    QCOMPARE(text.stored(), line + "x\r\n" + line);
    const QByteArray lines = QByteArray("[00:01.00]a\r\n").repeated(20'000);
    SourceText many(lines);
    QCOMPARE(many.lineCount(), 20'001);
    many.edit(12 * 10'000 + 11, 0, u"b\nc");
    QCOMPARE(many.lineAt(12 * 10'000 + 14), 10'001);
    QCOMPARE(many.stored().size(), lines.size() + 4);
    many.setStored(lines);
    QCOMPARE(many.shown(), SourceText(lines).shown());
}

void TestSourceText::hunksMakeOneListOfTheOther()
{
    Random random(87);
    const auto anyLines = [&random] {
        QStringList lines;
        for (std::size_t line = random.below(9); line > 0; --line) {
            lines.append(QString(QLatin1Char("abc"[random.below(3)])));
        }
        return lines;
    };
    for (int round = 0; round < kRounds; ++round) {
        const QStringList before = anyLines();
        const QStringList after = anyLines();
        const auto hunks = editor::lineHunks(before, after);
        QStringList made;
        qsizetype at = 0;
        for (const editor::LineHunk &hunk : hunks) {
            QVERIFY(hunk.before >= at && hunk.removed + hunk.added > 0);
            made += before.sliced(at, hunk.before - at);
            QCOMPARE(made.size(), hunk.after);
            made += after.sliced(hunk.after, hunk.added);
            at = hunk.before + hunk.removed;
        }
        made += before.sliced(at);
        QCOMPARE(made, after);
        QCOMPARE(hunks.empty(), before == after);
    }
}

void TestSourceText::hunksAreFew()
{
    QStringList before;
    for (int line = 0; line < 2000; ++line) {
        before.append(QString::number(line));
    }
    QStringList after = before;
    after.removeAt(1500);
    after[700] += QLatin1Char('x');
    after.insert(3, QStringLiteral("new"));
    const std::vector<editor::LineHunk> few = {{3, 0, 3, 1}, {700, 1, 701, 1}, {1500, 1, 1501, 0}};
    QVERIFY(editor::lineHunks(before, after) == few);
    QStringList others = before;
    std::for_each(others.begin() + 1, others.end() - 1, [](QString &line) { line += QLatin1Char('x'); });
    const std::vector<editor::LineHunk> one = {{1, 1998, 1, 1998}};
    QVERIFY(editor::lineHunks(before, others) == one);
}

void TestSourceText::editsAreMergedWhereTheLinesAreTheSame()
{
    const SourceText base("a\r\nb\r\nc\r\n");
    const auto merged = [&base](const QByteArray &now, qsizetype position, const QString &added) {
        return editor::withEdit(base, now, {position, 0, added}).value_or("displaced");
    };
    QCOMPARE(merged("new\r\na\r\nb\r\nc\r\n", 3, QStringLiteral("x")), QByteArray("new\r\na\r\nbx\r\nc\r\n"));
    QCOMPARE(merged("a\r\nb\r\nC\r\n", 3, QStringLiteral("\n")), QByteArray("a\r\nb\r\n\r\nC\r\n"));
    QCOMPARE(merged("A\r\nb\r\nC\r\n", 3, QStringLiteral("x")), QByteArray("displaced"));
    QCOMPARE(merged("a\r\nB\r\nc\r\n", 3, QStringLiteral("x")), QByteArray("displaced"));
    // Every text that ends in a line end has an empty line behind it.
    QCOMPARE(merged("other\nsong\n", 6, QStringLiteral("x")), QByteArray("displaced"));
}

} // namespace

QTEST_GUILESS_MAIN(TestSourceText)
#include "tst_source_text.moc"
