// SPDX-License-Identifier: MIT
#include "kit/Alert.h"
#include "kit/FormLoader.h"
#include "kit/TQAlert.h"
#include "support/QtWarnings.h"

#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace {

QDialog *openAlert()
{
    return qobject_cast<QDialog *>(QApplication::activeModalWidget());
}

QPushButton *buttonTitled(const QString &title)
{
    const auto buttons = openAlert()->findChildren<QPushButton *>();
    for (QPushButton *const button : buttons) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

// Does `what` once the alert is open and has the keyboard.
void whenOpen(std::function<void()> what)
{
    QTimer::singleShot(0, qApp, [what = std::move(what)] {
        if (openAlert() != nullptr && openAlert()->isActiveWindow())
            what();
        else
            whenOpen(what);
    });
}

int answerTo(const QStringList &buttons, std::function<void()> what)
{
    kit::Alert alert;
    alert.setMessageText("Question?");
    for (const QString &title : buttons)
        alert.addButtonWithTitle(title);
    whenOpen(std::move(what));
    return alert.runModal();
}

void press(Qt::Key key)
{
    QWidget *const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : openAlert(), key);
}

} // namespace

class tst_Alert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }
    void cleanup() { kit::FormLoader::setTranslator({}); }

    void buttonsAnswerInTheirOrder_data();
    void buttonsAnswerInTheirOrder();
    void addingAnswersWhatTheButtonWill();
    void returnIsTheFirstButtonFromAnywhere();
    void escapeIsCancel();
    void escapeIsTheTranslatedCancel();
    void escapeWithoutCancelIsTheLast();
    void closingTheWindowIsEscape();
    void withoutAButtonThereIsOk();
    void textsArePlain();
    void buttonsArePlainToo();
    void readersAreToldTheTexts();
    void accessoryIsHandedBack();
    void accessorySurvivesTheWindowBeneath();
    void accessoryThatDiesIsHarmless();
    void firstResponderHasTheKeyboard();
    void opensAboveTheActiveWindow();
    void messageWithOk();
};

void tst_Alert::buttonsAnswerInTheirOrder_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("answer");
    QTest::newRow("Apply") << "Apply" << 1000;
    QTest::newRow("Cancel") << "Cancel" << 1001;
    QTest::newRow("Later") << "Later" << 1002;
}

void tst_Alert::buttonsAnswerInTheirOrder()
{
    QFETCH(QString, title);
    QFETCH(int, answer);
    QCOMPARE(answerTo({"Apply", "Cancel", "Later"}, [&] { buttonTitled(title)->click(); }), answer);
}

void tst_Alert::addingAnswersWhatTheButtonWill()
{
    kit::Alert alert;
    QCOMPARE(alert.addButtonWithTitle("Apply"), 1000);
    QCOMPARE(alert.addButtonWithTitle("Cancel"), 1001);
}

void tst_Alert::returnIsTheFirstButtonFromAnywhere()
{
    QCOMPARE(answerTo({"Apply", "Cancel"}, [] { press(Qt::Key_Return); }), 1000);
    QCOMPARE(answerTo({"Apply", "Cancel"},
                 [] {
                     buttonTitled("Cancel")->setFocus();
                     press(Qt::Key_Return);
                 }),
        1000);
    QCOMPARE(answerTo({"Apply", "Cancel"},
                 [] {
                     buttonTitled("Cancel")->setFocus();
                     press(Qt::Key_Space);
                 }),
        1001);
}

void tst_Alert::escapeIsCancel()
{
    QCOMPARE(answerTo({"Apply", "Cancel", "Later"}, [] { press(Qt::Key_Escape); }), 1001);
}

void tst_Alert::escapeIsTheTranslatedCancel()
{
    kit::FormLoader::setTranslator(
        [](const QString &key) { return key == "Cancel" ? QStringLiteral("Abbrechen") : key; });
    QCOMPARE(answerTo({"Anwenden", "Abbrechen", "Später"}, [] { press(Qt::Key_Escape); }), 1001);
}

void tst_Alert::escapeWithoutCancelIsTheLast()
{
    QCOMPARE(answerTo({"Yes", "No"}, [] { press(Qt::Key_Escape); }), 1001);
    QCOMPARE(answerTo({"Fine"}, [] { press(Qt::Key_Escape); }), 1000);
}

void tst_Alert::closingTheWindowIsEscape()
{
    QCOMPARE(answerTo({"Apply", "Cancel", "Later"}, [] { openAlert()->close(); }), 1001);
}

void tst_Alert::withoutAButtonThereIsOk()
{
    QCOMPARE(answerTo({}, [] { buttonTitled("OK")->click(); }), 1000);
}

void tst_Alert::textsArePlain()
{
    kit::Alert alert;
    alert.setMessageText("<b>bold</b>");
    alert.setInformativeText("<i>more</i>");
    QStringList shown;
    whenOpen([&shown] {
        const auto labels = openAlert()->findChildren<QLabel *>();
        for (const QLabel *const label : labels) {
            if (label->textFormat() == Qt::PlainText)
                shown << label->text();
        }
        press(Qt::Key_Escape);
    });
    alert.runModal();
    QCOMPARE(shown, QStringList({"<b>bold</b>", "<i>more</i>"}));
}

void tst_Alert::buttonsArePlainToo()
{
    QCOMPARE(answerTo({"Save & close", "Cancel"}, [] { buttonTitled("Save && close")->click(); }), 1000);
}

void tst_Alert::readersAreToldTheTexts()
{
    QString name;
    QAccessible::Role role = QAccessible::NoRole;
    answerTo({"Apply"}, [&] {
        QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(openAlert());
        name = reader->text(QAccessible::Name);
        role = reader->role();
        press(Qt::Key_Escape);
    });
    QCOMPARE(name, "Question?");
    QCOMPARE(role, QAccessible::Dialog);
}

void tst_Alert::accessoryIsHandedBack()
{
    QLineEdit field;
    for (int round = 0; round < 2; ++round) {
        kit::Alert alert;
        alert.setMessageText("How much?");
        alert.setAccessoryView(&field);
        alert.addButtonWithTitle("Apply");
        bool wasVisible = false;
        whenOpen([&] {
            wasVisible = field.isVisible() && openAlert()->isAncestorOf(&field);
            field.setText("1.5");
            press(Qt::Key_Return);
        });
        QCOMPARE(alert.runModal(), 1000);
        QVERIFY(wasVisible);
        QVERIFY(field.parentWidget() == nullptr);
        QVERIFY(field.isHidden());
        QCOMPARE(field.text(), "1.5");
    }
}

void tst_Alert::accessorySurvivesTheWindowBeneath()
{
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QLineEdit field;
    kit::Alert alert;
    alert.setAccessoryView(&field);
    alert.addButtonWithTitle("Apply");
    alert.addButtonWithTitle("Cancel");
    whenOpen([&window] { window.reset(); });
    QCOMPARE(alert.runModal(), 1001);
    QVERIFY(field.parentWidget() == nullptr);
}

void tst_Alert::accessoryThatDiesIsHarmless()
{
    auto field = std::make_unique<QLineEdit>();
    kit::Alert alert;
    alert.setAccessoryView(field.get());
    alert.setInitialFirstResponder(field.get());
    whenOpen([&field] {
        field.reset();
        press(Qt::Key_Escape);
    });
    QCOMPARE(alert.runModal(), 1000);
}

void tst_Alert::firstResponderHasTheKeyboard()
{
    QLineEdit field("2");
    kit::Alert alert;
    alert.setAccessoryView(&field);
    alert.setInitialFirstResponder(&field);
    alert.addButtonWithTitle("Apply");
    whenOpen([] {
        QTest::keyClicks(QApplication::focusWidget(), "-3"); // replaces what is selected
        press(Qt::Key_Return);
    });
    QCOMPARE(alert.runModal(), 1000);
    QCOMPARE(field.text(), "-3");
}

void tst_Alert::opensAboveTheActiveWindow()
{
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget *parent = nullptr;
    answerTo({"Apply"}, [&parent] {
        parent = openAlert()->parentWidget();
        press(Qt::Key_Escape);
    });
    QCOMPARE(parent, &window);
}

void tst_Alert::messageWithOk()
{
    QStringList texts;
    int buttons = 0;
    whenOpen([&] {
        const auto labels = openAlert()->findChildren<QLabel *>();
        for (const QLabel *const label : labels)
            texts << label->text();
        buttons = static_cast<int>(openAlert()->findChildren<QPushButton *>().size());
        buttonTitled("OK")->click();
    });
    TQAlert::OK_info("Please input the right time format[mm:ss.SS]!", QString());
    QCOMPARE(texts, QStringList("Please input the right time format[mm:ss.SS]!"));
    QCOMPARE(buttons, 1);
}

QTEST_MAIN(tst_Alert)
#include "tst_alert.moc"
