// SPDX-License-Identifier: MIT
#include "preview/RBPreviewBgView.h"
#include "preview/RBPreviewViewController.h"
#include "support/QtWarnings.h"
#include "support/StandIns.h"

#include <QtTest/QTest>

using namespace support;

class tst_Preview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_preview.reset(); }

    void showsItemAndText();
    void textHasNoTimeTags();
    void itemWithoutAnythingIsEmpty();
    void handedOverBeforeTheViewLoads();
    void closeGoesBackWithTheButton();
    void withoutAContainerCloseIsQuiet();
    void groundIsDarkWhateverTheDesktop();
    void clicksOnTheGroundEndThere();
    void growsWithItsParent();
    void saysWhenItGoes();
    void controlsHaveNamesAndTips();
    void everythingFitsIntoEachWindow_data();
    void everythingFitsIntoEachWindow();

private:
    std::shared_ptr<standin::Container> m_container;
    std::shared_ptr<standin::Item> m_item;
    std::shared_ptr<RBPreviewViewController> m_preview;
};

void tst_Preview::init()
{
    failOnUnexpectedWarnings();
    m_container = std::make_shared<standin::Container>();
    m_item = std::make_shared<standin::Item>();
    m_item->titleText = "The Star";
    m_item->artistText = "Traditional";
    m_item->albumText = "Rhymes";
    m_item->cover = QImage(8, 8, QImage::Format_RGB32);
    m_item->cover.fill(Qt::red);
    m_preview = RBPreviewViewController::init();
    m_preview->setParentVC(m_container);
}

void tst_Preview::showsItemAndText()
{
    QVERIFY(m_preview->view() != nullptr);
    QVERIFY(m_preview->lrcText().isNull());
    m_preview->flushWithAudio_lrcText(m_item, "[00:01.00]one\n[00:02.00]two");
    QCOMPARE(m_preview->audioitem(), m_item);
    QCOMPARE(m_preview->lrcText(), QByteArray("[00:01.00]one\n[00:02.00]two"));
    QCOMPARE(m_preview->lblTitle()->text(), "The Star");
    QCOMPARE(m_preview->lblArtist()->text(), "Traditional");
    QCOMPARE(m_preview->lblAlbum()->text(), "Rhymes");
    QCOMPARE(m_preview->imageview()->image(), m_item->cover);
    m_preview->notifyPlayProgress(1.5);
    QCOMPARE(m_preview->textView()->toPlainText(), "one\ntwo");
}

void tst_Preview::textHasNoTimeTags()
{
    QVERIFY(m_preview->view() != nullptr);
    m_preview->flushWithAudio_lrcText(m_item, "[00:01.00]first\n[00:03.00]last <b>not bold</b>");
    QCOMPARE(m_preview->textView()->toPlainText(), "first\nlast <b>not bold</b>");
    m_preview->flushWithAudio_lrcText(m_item, QByteArray());
    QCOMPARE(m_preview->textView()->toPlainText(), "");
}

void tst_Preview::itemWithoutAnythingIsEmpty()
{
    QVERIFY(m_preview->view() != nullptr);
    m_preview->flushWithAudio_lrcText(m_item, "[00:01.00]one");
    m_preview->flushWithAudio_lrcText(std::make_shared<standin::Item>(), "[00:01.00]one");
    QCOMPARE(m_preview->lblTitle()->text(), "");
    QVERIFY(m_preview->imageview()->image().isNull());
    m_preview->flushWithAudio_lrcText(nullptr, "[00:01.00]one");
    QCOMPARE(m_preview->lblArtist()->text(), "");
    QCOMPARE(m_preview->lblAlbum()->text(), "");
}

void tst_Preview::handedOverBeforeTheViewLoads()
{
    m_preview->flushWithAudio_lrcText(m_item, "[00:01.00]one");
    m_preview->notifyPlayProgress(1);
    QVERIFY(!m_preview->isViewLoaded());
    QVERIFY(m_preview->view() != nullptr);
    QCOMPARE(m_preview->lblTitle()->text(), "The Star");
    QCOMPARE(m_preview->textView()->toPlainText(), "one");
}

void tst_Preview::closeGoesBackWithTheButton()
{
    QVERIFY(m_preview->view() != nullptr);
    QTest::mouseClick(m_preview->btnClose(), Qt::LeftButton);
    QCOMPARE(m_container->told, QStringList("backFromPreview"));
    QCOMPARE(m_container->sender, m_preview->btnClose());
}

void tst_Preview::withoutAContainerCloseIsQuiet()
{
    QVERIFY(m_preview->view() != nullptr);
    m_container.reset();
    m_preview->closeClicked();
    QVERIFY(m_preview->parentVC() == nullptr);
}

void tst_Preview::groundIsDarkWhateverTheDesktop()
{
    auto *const ground = qobject_cast<RBPreviewBgView *>(m_preview->view());
    QVERIFY(ground != nullptr);
    QCOMPARE(ground->backgroundColor(), QColor::fromRgbF(0.15F, 0.15F, 0.15F));
    QVERIFY(m_preview->textView()->palette().color(QPalette::Text).lightness() > 200);
    QVERIFY(m_preview->lblTitle()->palette().color(QPalette::WindowText).lightness() > 200);
    QVERIFY(m_preview->lblArtist()->palette().color(QPalette::WindowText).lightness() > 100);
}

void tst_Preview::clicksOnTheGroundEndThere()
{
    class Parent : public QWidget
    {
    public:
        int presses = 0;

    protected:
        void mousePressEvent(QMouseEvent *) override { ++presses; }
    } parent;
    m_preview->view()->setParent(&parent);
    QTest::mousePress(m_preview->view(), Qt::LeftButton, {}, QPoint(5, 5));
    QCOMPARE(parent.presses, 0);
    m_preview->view()->setParent(nullptr);
}

void tst_Preview::growsWithItsParent()
{
    QWidget parent;
    parent.resize(1000, 700);
    m_preview->view()->setParent(&parent);
    m_preview->view()->setGeometry(0, 0, 1000, 620);
    parent.show();
    parent.resize(1100, 800);
    QCOMPARE(m_preview->view()->geometry(), QRect(0, 0, 1100, 720));
    m_preview->view()->setParent(nullptr);
}

void tst_Preview::saysWhenItGoes()
{
    QTest::ignoreMessage(QtInfoMsg, "dealloced...");
    m_preview.reset();
}

void tst_Preview::controlsHaveNamesAndTips()
{
    QVERIFY(m_preview->view() != nullptr);
    QCOMPARE(m_preview->btnClose()->accessibleName(), "Close");
    QVERIFY(!m_preview->btnClose()->toolTip().isEmpty());
    QVERIFY(m_preview->btnClose()->focusPolicy() & Qt::TabFocus);
    QCOMPARE(m_preview->btnClose()->icon().name(), "close");
    QCOMPARE(m_preview->textView()->accessibleName(), "Lyrics");
}

void tst_Preview::everythingFitsIntoEachWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide") << QSize(1040, 620);
    QTest::newRow("beside each other, just so") << QSize(720, 400);
    QTest::newRow("below each other") << QSize(719, 400);
    QTest::newRow("narrow") << QSize(480, 420);
}

void tst_Preview::everythingFitsIntoEachWindow()
{
    QFETCH(QSize, size);
    m_item->titleText = QString("An endless title ").repeated(50);
    QWidget parent;
    parent.resize(1200, 700);
    m_preview->view()->setGeometry(0, 0, 1200, 700);
    m_preview->flushWithAudio_lrcText(m_item, "[00:01.00]one");
    // It was in a window before, and alone in between.
    for (int times = 0; times < 2; ++times) {
        m_preview->view()->setParent(&parent);
        m_preview->view()->show();
        parent.show();
        m_preview->view()->setGeometry(QRect(QPoint(), size));
        QCoreApplication::processEvents();
        QCOMPARE(m_preview->view()->size(), size);
        QWidget *const text = m_preview->textView();
        QVERIFY(text->height() > 100);
        const QList<QWidget *> parts
            = {text, m_preview->imageview(), m_preview->lblTitle(), m_preview->lblAlbum(),
                m_preview->tagSwitch(), m_preview->segAlign(), m_preview->btnOffset(), m_preview->btnClose()};
        QList<QRect> places;
        for (QWidget *part : parts) {
            const QRect place(part->mapTo(m_preview->view(), QPoint()), part->size());
            QVERIFY2(m_preview->view()->rect().contains(place), qPrintable(part->objectName()));
            for (const QRect &other : std::as_const(places))
                QVERIFY2(!other.intersects(place), qPrintable(part->objectName()));
            places.append(place);
        }
        QVERIFY(places.last().center().x() > size.width() - 50); // close, at the upper right
        QVERIFY(places.last().center().y() < 50);
        QVERIFY(places.at(4).center().y() > size.height() - 60); // the controls, at the lower left
        QVERIFY(places.at(4).left() < 60);
        m_preview->view()->hide();
        m_preview->view()->setParent(nullptr);
    }
}

QTEST_MAIN(tst_Preview)
#include "tst_preview.moc"
