// SPDX-License-Identifier: MIT
#include "EditorOnScreen.h"
#include "editor/CommandTitles.h"
#include "shell/contracts/TQLRCEditorConfig.h"
#include "support/ModalDialogs.h"
#include "support/QtWarnings.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

namespace {

/// What a desktop does with an address.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("help"), this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("help")); }

    Q_INVOKABLE void open(const QUrl &url) { opened.append(url); }

    QList<QUrl> opened;
};

const QUrl kPage(QStringLiteral("help://page/start.html"));
const QString kRefusal
    = QStringLiteral("No tags have been entered yet. Please insert tags first and then preview the lyrics.");

} // namespace

class PreviewAndHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        support::failOnUnexpectedWarnings();
        gEditorConfig = std::make_shared<TQLRCEditorConfig>();
        gEditorConfig->setHelpUrl(kPage);
    }
    void cleanup() { gEditorConfig.reset(); }

    void withoutATimeThereIsNothingToPreview_data()
    {
        QTest::addColumn<QByteArray>("lyric");
        QTest::newRow("words") << QByteArray("one\ntwo\n");
        QTest::newRow("tag lines") << QByteArray("[ti:title]\n[offset:100]\n");
        QTest::newRow("nothing") << QByteArray();
    }

    void withoutATimeThereIsNothingToPreview()
    {
        QFETCH(QByteArray, lyric);
        EditorOnScreen screen;
        screen.load(lyric);
        QStringList texts;
        support::whenDialogOpens([&texts](QWidget &dialog) {
            texts = support::textsOf(dialog);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        QTest::mouseClick(screen.editor->btnPreview(), Qt::LeftButton);
        QVERIFY(texts.contains(kRefusal));
        QVERIFY(screen.container->told.isEmpty());
        QCOMPARE(screen.editor->songText(), lyric);
    }

    void withATimeTheContainerIsAskedWithTheSameSender()
    {
        EditorOnScreen screen;
        screen.load("words\n[00:01.00]one\n");
        QTest::mouseClick(screen.editor->btnPreview(), Qt::LeftButton);
        QCOMPARE(screen.container->told, QStringList(QStringLiteral("prPreviewClicked")));
        QCOMPARE(screen.container->sender, screen.editor->btnPreview());
        QObject sender;
        screen.editor->previewClicked(&sender);
        QCOMPARE(screen.container->sender, &sender);
        screen.editor->setParentVC({});
        screen.editor->previewClicked();
        QCOMPARE(screen.container->told.size(), 2);
    }

    void whatIsBeingTypedIsCommittedFirst()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one\n");
        QVERIFY(QTest::qWaitForWindowActive(screen.view));
        screen.table()->editColumn_row_select(2, 0, true);
        QTest::keyClicks(screen.textField(), QStringLiteral("other"));
        QTest::keyClick(screen.textField(), Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(screen.container->told, QStringList(QStringLiteral("prPreviewClicked")));
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]other\n"));
    }

    void theHookOfTheContainerChangesNothing()
    {
        EditorOnScreen screen;
        screen.load("[00:01.00]one\n");
        const int changes = screen.host->changes;
        screen.editor->resetFristResponderForTextView(nullptr);
        QCOMPARE(screen.editor->songText(), QByteArray("[00:01.00]one\n"));
        QCOMPARE(screen.host->changes, changes);
        QVERIFY(screen.container->told.isEmpty());
    }

    void theButtonSaysWhatItIsFor()
    {
        const EditorOnScreen screen;
        const auto *const button = qobject_cast<QToolButton *>(screen.editor->btnPreview());
        QVERIFY(button->isVisible());
        QCOMPARE(button->icon().name(), QStringLiteral("preview"));
        QVERIFY(button->toolTip().endsWith(QStringLiteral("(Ctrl+P)")));
        EditorKeys keys;
        keys.setKeys(EditorCommand::Preview, {Qt::Key_F8});
        screen.editor->setKeys(keys);
        QVERIFY(button->toolTip().endsWith(QStringLiteral("(F8)")));
    }

    void helpOpensThePage()
    {
        const Browser browser;
        EditorOnScreen screen;
        QPushButton *const help = screen.table()->dropTipView()->btnHelp();
        QVERIFY(help->isVisible());
        QTest::mouseClick(help, Qt::LeftButton);
        QCOMPARE(browser.opened, QList<QUrl>{kPage});
        screen.editor->action(EditorCommand::Help)->trigger();
        QCOMPARE(browser.opened.size(), 2);
        QCOMPARE(screen.editor->songText(), QByteArray());
    }

    void withoutAPageThereIsNoHelp()
    {
        gEditorConfig->setHelpUrl({});
        const Browser browser;
        const EditorOnScreen screen;
        QVERIFY(!screen.table()->dropTipView()->btnHelp()->isVisible());
        QVERIFY(!screen.editor->action(EditorCommand::Help)->isEnabled());
        screen.editor->helpClick();
        gEditorConfig.reset();
        screen.editor->helpClick();
        QVERIFY(browser.opened.isEmpty());
    }

    // What the page says of keys is what they are.
    void theKeysOfTheHelpPageAreTheDefaults_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("English") << QStringLiteral("help.html") << QLocale::c();
        QTest::newRow("German") << QStringLiteral("help_de.html") << QLocale(QStringLiteral("de_DE"));
    }

    void theKeysOfTheHelpPageAreTheDefaults()
    {
        QFETCH(QString, name);
        QFETCH(QLocale, locale);
        const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        QLocale::setDefault(locale);
        QFile page(QStringLiteral(TQLRC_DOCS_DIR) + name);
        QVERIFY(page.open(QIODevice::ReadOnly));
        QMap<QString, QString> known;
        for (const EditorCommand command : EditorKeys::allCommands()) {
            const auto keys = EditorKeys().keys(command);
            if (!keys.isEmpty()) {
                known.insert(editor::commandTitle(command), editor::keyText(keys.first()));
            }
        }
        const QRegularExpression row(QStringLiteral("<tr><td>([^<]+)</td><td><kbd>([^<]+)</kbd></td></tr>"));
        auto rows = row.globalMatch(QString::fromUtf8(page.readAll()));
        int count = 0;
        for (; rows.hasNext(); ++count) {
            const auto match = rows.next();
            QCOMPARE(match.captured(2), known.value(match.captured(1)));
        }
        QCOMPARE(count, 9);
    }
};

QTEST_MAIN(PreviewAndHelp)
#include "tst_preview_and_help.moc"
