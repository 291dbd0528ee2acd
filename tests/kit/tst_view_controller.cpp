// SPDX-License-Identifier: MIT
#include "kit/FormLoader.h"
#include "kit/ViewController.h"
#include "support/QtWarnings.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

constexpr auto kForm = R"(<ui version="4.0"><class>Screen</class><widget class="QWidget" name="Screen">
  <widget class="QLabel" name="lblName"/><widget class="QPushButton" name="btnGo"/></widget></ui>)";

} // namespace

class Screen : public kit::ViewController
{
    Q_OBJECT

public:
    [[nodiscard]] QString formName() const { return nibName(); }

    QStringList calls;
    QString form = QString::fromLatin1(kForm);
    QSize sizeAtLayout;
    bool wantsAbsent = false;
    std::function<void()> whileLayingOut;
    std::function<void(QObject *)> whenClicked;
    QPointer<QLabel> lblName;
    QPointer<QPushButton> btnGo;

protected:
    void loadView() override
    {
        calls << QStringLiteral("loadView");
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Screen.ui"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(form.toUtf8());
        file.close();
        setView(kit::FormLoader::load(path).release());
    }
    bool connectOutlets() override
    {
        calls << QStringLiteral("connectOutlets");
        QPointer<QLabel> absent;
        return outlet(lblName, "lblName") && outlet(btnGo, "btnGo")
            && (!wantsAbsent || outlet(absent, "btnGo"));
    }
    void viewDidLoad() override
    {
        calls << QStringLiteral("viewDidLoad");
        QVERIFY(view() != nullptr); // answers already
        connectAction(btnGo, [this](QObject *sender) {
            if (whenClicked)
                whenClicked(sender);
        });
    }
    void viewWillLayout() override
    {
        calls << QStringLiteral("viewWillLayout");
        sizeAtLayout = view()->size();
        if (whileLayingOut)
            whileLayingOut();
    }
};

class NamedAfterItsClass : public kit::ViewController
{
    Q_OBJECT
};

class tst_ViewController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void loadsOnceInOrder();
    void layoutComesBeforeTheFirstShowAndAtEachResize();
    void missingOutletIsAFailedLoad();
    void outletOfAnotherClassIsMissing();
    void brokenFormIsAFailedLoadAndNotTriedAgain();
    void formIsNamedAfterTheClass();
    void missingFormIsSaid();
    void viewDiesFirst();
    void controllerDiesFirst();
    void controllerMayLetItselfGoWhileLayingOut();
    void controllerMayLetItselfGoInAnAction();
    void childrenAreKeptOnceAndInOrder();
};

void tst_ViewController::loadsOnceInOrder()
{
    const auto screen = std::make_shared<Screen>();
    QVERIFY(!screen->isViewLoaded());
    QVERIFY(screen->viewIfLoaded() == nullptr);
    QVERIFY(screen->calls.isEmpty());
    QWidget *const view = screen->view();
    QVERIFY(view != nullptr);
    QCOMPARE(screen->view(), view);
    QCOMPARE(screen->viewIfLoaded(), view);
    QCOMPARE(screen->calls, QStringList({"loadView", "connectOutlets", "viewDidLoad"}));
}

void tst_ViewController::layoutComesBeforeTheFirstShowAndAtEachResize()
{
    const auto screen = std::make_shared<Screen>();
    QWidget *const view = screen->view();
    view->resize(300, 200);
    view->show();
    QCOMPARE(screen->calls.count("viewWillLayout"), 1);
    QCOMPARE(screen->sizeAtLayout, QSize(300, 200));
    view->resize(310, 210);
    QCOMPARE(screen->calls.count("viewWillLayout"), 2);
    QCOMPARE(screen->sizeAtLayout, QSize(310, 210));
    view->hide();
    view->show();
    QCOMPARE(screen->calls.count("viewWillLayout"), 2);
}

void tst_ViewController::missingOutletIsAFailedLoad()
{
    const auto screen = std::make_shared<Screen>();
    screen->form.remove("<widget class=\"QPushButton\" name=\"btnGo\"/>");
    QTest::ignoreMessage(QtWarningMsg, "\"Screen\" has no QPushButton btnGo");
    QTest::ignoreMessage(QtWarningMsg, "no view for Screen");
    QVERIFY(screen->view() == nullptr);
    QVERIFY(!screen->isViewLoaded());
    QVERIFY(!screen->calls.contains("viewDidLoad"));
}

void tst_ViewController::outletOfAnotherClassIsMissing()
{
    const auto screen = std::make_shared<Screen>();
    screen->wantsAbsent = true;
    QTest::ignoreMessage(QtWarningMsg, "\"Screen\" has no QLabel btnGo");
    QTest::ignoreMessage(QtWarningMsg, "no view for Screen");
    QVERIFY(screen->view() == nullptr);
}

void tst_ViewController::brokenFormIsAFailedLoadAndNotTriedAgain()
{
    const auto screen = std::make_shared<Screen>();
    screen->form = QStringLiteral("no form at all");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^bad form "));
    QTest::ignoreMessage(QtWarningMsg, "no view for Screen");
    // The toolkit's reader has its own say.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Designer: "));
    QVERIFY(screen->view() == nullptr);
    QVERIFY(screen->view() == nullptr);
    QCOMPARE(screen->calls, QStringList("loadView"));
}

void tst_ViewController::formIsNamedAfterTheClass()
{
    QCOMPARE(std::make_shared<Screen>()->formName(), "Screen");
}

void tst_ViewController::missingFormIsSaid()
{
    const auto screen = std::make_shared<NamedAfterItsClass>();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^no form .*forms/NamedAfterItsClass\\.ui"));
    QTest::ignoreMessage(QtWarningMsg, "no view for NamedAfterItsClass");
    QVERIFY(screen->view() == nullptr);
}

void tst_ViewController::viewDiesFirst()
{
    const auto screen = std::make_shared<Screen>();
    auto window = std::make_unique<QWidget>();
    screen->view()->setParent(window.get());
    window.reset();
    QVERIFY(screen->view() == nullptr);
    QVERIFY(!screen->isViewLoaded());
    QVERIFY(screen->lblName == nullptr);
    QCOMPARE(screen->calls.count("loadView"), 1);
}

void tst_ViewController::controllerDiesFirst()
{
    QWidget window;
    auto screen = std::make_shared<Screen>();
    const QPointer<QWidget> view = screen->view();
    view->setParent(&window);
    window.show();
    view->show();
    QVERIFY(view->isVisible());
    screen.reset();
    QVERIFY(view != nullptr);
    QVERIFY(view->isHidden());
    QTRY_VERIFY(view == nullptr);
}

void tst_ViewController::controllerMayLetItselfGoWhileLayingOut()
{
    auto screen = std::make_shared<Screen>();
    const QPointer<Screen> watched(screen.get());
    const QPointer<QWidget> view = screen->view();
    bool aliveAfterwards = false;
    screen->whileLayingOut = [&] {
        screen.reset();
        aliveAfterwards = watched != nullptr;
    };
    view->show();
    QVERIFY(aliveAfterwards);
    QVERIFY(watched == nullptr);
    QTRY_VERIFY(view == nullptr);
}

void tst_ViewController::controllerMayLetItselfGoInAnAction()
{
    auto screen = std::make_shared<Screen>();
    const QPointer<Screen> watched(screen.get());
    const QPointer<QWidget> view = screen->view();
    QPushButton *const button = screen->btnGo;
    QObject *sender = nullptr;
    bool aliveAfterwards = false;
    screen->whenClicked = [&](QObject *clicked) {
        sender = clicked;
        screen.reset();
        aliveAfterwards = watched != nullptr;
    };
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(sender, button);
    QVERIFY(aliveAfterwards);
    QVERIFY(watched == nullptr);
    QTRY_VERIFY(view == nullptr);
}

void tst_ViewController::childrenAreKeptOnceAndInOrder()
{
    const auto parent = std::make_shared<Screen>();
    const auto first = std::make_shared<Screen>();
    const auto second = std::make_shared<Screen>();
    parent->addChildViewController(first);
    parent->addChildViewController(nullptr);
    parent->addChildViewController(second);
    parent->addChildViewController(first);
    QCOMPARE(parent->childViewControllers().size(), 2U);
    QCOMPARE(parent->childViewControllers().at(0).get(), first.get());
    QCOMPARE(parent->childViewControllers().at(1).get(), second.get());
}

QTEST_MAIN(tst_ViewController)
#include "tst_view_controller.moc"
