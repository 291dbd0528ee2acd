// SPDX-License-Identifier: MIT
#include "resources/TQLrcUtils.h"
#include "support/QtWarnings.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtTest/QTest>

namespace {

const QStringList kNames{"tag_title_gray", "tag_time_gray", "tag_artist_gray", "tag_editby_grah",
    "tag_deleteline_gray", "tag_clearall_gray", "credit-offset", "tag_restore_all", "tag_album_insert",
    "play", "pause", "text_align_left", "text_align_center", "text_align_right", "preview", "close",
    "view_source", "toolbar_more", "undo", "redo", "lyric_search", "keyboard", "line_insert", "line_delete",
    "line_duplicate", "open_file"};

bool hasOpaquePixels(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > 200)
                return true;
        }
    }
    return false;
}

// The colour of the most opaque pixel.
QColor inkOf(const QImage &image)
{
    QColor ink(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() > ink.alpha())
                ink = image.pixelColor(x, y);
        }
    }
    return ink;
}

} // namespace

class tst_Images : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void everyNameHasAPicture_data();
    void everyNameHasAPicture();
    void picturesAreAllDifferent();
    void unknownNamesAreNull();
    void nothingIsKept();
    void picturesAreOfOneHand();
    void imageIsAtTheRatioOfTheApplication();
    void iconIsDrawnAnewAtEachSize();
    void iconFollowsThePalette();
    void iconInItsOwnColour();
    void disabledIconIsFainter();
    void applicationIconIsThere();
};

void tst_Images::everyNameHasAPicture_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : kNames)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_Images::everyNameHasAPicture()
{
    QFETCH(QString, name);
    const QImage image = TQLrcUtils::imageNamed(name);
    QVERIFY(!image.isNull());
    QVERIFY(hasOpaquePixels(image));
    const QIcon icon = TQLrcUtils::iconNamed(name);
    QVERIFY(!icon.isNull());
    QCOMPARE(icon.name(), name);
}

void tst_Images::picturesAreAllDifferent()
{
    for (qsizetype i = 0; i < kNames.size(); ++i) {
        for (qsizetype j = i + 1; j < kNames.size(); ++j) {
            QVERIFY2(TQLrcUtils::imageNamed(kNames.at(i)) != TQLrcUtils::imageNamed(kNames.at(j)),
                qPrintable(kNames.at(i) + " " + kNames.at(j)));
        }
    }
}

void tst_Images::unknownNamesAreNull()
{
    for (const QString &name : {QString(), QString(""), QString("tag_editby_gray"), QString("play.svg"),
             QString("../lyricdesk"), QString("../images.bundle/play"), QString("no such picture")}) {
        QVERIFY2(TQLrcUtils::imageNamed(name).isNull(), qPrintable(name));
        QVERIFY2(TQLrcUtils::iconNamed(name).isNull(), qPrintable(name));
    }
}

void tst_Images::nothingIsKept()
{
    QCOMPARE(TQLrcUtils::imageNamed("play"), TQLrcUtils::imageNamed("play"));
    QVERIFY(TQLrcUtils::imageNamed("play").constBits() != TQLrcUtils::imageNamed("pause").constBits());
}

void tst_Images::picturesAreOfOneHand()
{
    QDirIterator files(":/tqlrceditor/images.bundle");
    int count = 0;
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        for (const char *rule : {"viewBox=\"0 0 24 24\"", "stroke-width=\"1.7\"", "stroke-linecap=\"round\""})
            QVERIFY2(text.contains(rule), qPrintable(file.fileName() + " lacks " + rule));
        ++count;
    }
    QVERIFY(count >= kNames.size());
}

void tst_Images::imageIsAtTheRatioOfTheApplication()
{
    const QImage image = TQLrcUtils::imageNamed("play");
    const qreal ratio = qGuiApp->devicePixelRatio();
    QCOMPARE(image.devicePixelRatio(), ratio);
    QCOMPARE(image.size(), QSize(qRound(24 * ratio), qRound(24 * ratio)));
    QCOMPARE(image.deviceIndependentSize(), QSizeF(24, 24));
}

void tst_Images::iconIsDrawnAnewAtEachSize()
{
    const QIcon icon = TQLrcUtils::iconNamed("tag_album_insert");
    const QImage once = icon.pixmap(QSize(24, 24), 1.0).toImage();
    const QPixmap twice = icon.pixmap(QSize(24, 24), 2.0);
    QCOMPARE(once.size(), QSize(24, 24));
    QCOMPARE(twice.size(), QSize(48, 48));
    QCOMPARE(twice.devicePixelRatio(), 2.0);
    QImage enlarged = once.scaled(48, 48, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    enlarged.setDevicePixelRatio(2.0);
    QVERIFY(twice.toImage().convertToFormat(enlarged.format()) != enlarged);
    // A stroke of 1.7 is 3.4 device pixels wide: its middle is drawn full, which no enlarging gives back.
    QVERIFY(inkOf(twice.toImage()).alpha() == 255);
    QCOMPARE(icon.pixmap(QSize(17, 17), 1.0).size(), QSize(17, 17));

    QImage canvas(48, 48, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    canvas.setDevicePixelRatio(2.0);
    QPainter painter(&canvas);
    icon.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    QCOMPARE(canvas, twice.toImage().convertToFormat(canvas.format()));
}

void tst_Images::iconFollowsThePalette()
{
    const QPalette before = QGuiApplication::palette();
    const QIcon icon = TQLrcUtils::iconNamed("tag_album_insert");
    QPalette palette = before;
    palette.setColor(QPalette::ButtonText, QColor(10, 200, 30));
    QGuiApplication::setPalette(palette);
    const QColor drawn = inkOf(icon.pixmap(QSize(48, 48), 1.0).toImage());
    const QColor looked = inkOf(TQLrcUtils::imageNamed("tag_album_insert"));
    QGuiApplication::setPalette(before);
    QCOMPARE(drawn, QColor(10, 200, 30));
    QVERIFY(looked.green() > 150 && looked.red() < 50);
}

void tst_Images::iconInItsOwnColour()
{
    const QIcon icon = TQLrcUtils::iconNamed("tag_album_insert", QColor(200, 10, 30));
    QCOMPARE(inkOf(icon.pixmap(QSize(48, 48), 1.0).toImage()), QColor(200, 10, 30));
}

void tst_Images::disabledIconIsFainter()
{
    const QIcon icon = TQLrcUtils::iconNamed("tag_album_insert");
    const int usual = inkOf(icon.pixmap(QSize(48, 48), 1.0, QIcon::Normal).toImage()).alpha();
    const int disabled = inkOf(icon.pixmap(QSize(48, 48), 1.0, QIcon::Disabled).toImage()).alpha();
    QVERIFY(disabled < usual / 2 && disabled > 0);
}

void tst_Images::applicationIconIsThere()
{
    QVERIFY(!TQLrcUtils::imageNamed("play").isNull()); // resources are loaded on first use
    QVERIFY(QFile::exists(":/tqlrceditor/lyricdesk.svg"));
    QVERIFY(TQLrcUtils::imageNamed("lyricdesk").isNull()); // it is not one of the bundle's
}

QTEST_MAIN(tst_Images)
#include "tst_images.moc"
