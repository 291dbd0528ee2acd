// SPDX-License-Identifier: MIT
#include "kit/Theme.h"
#include "support/QtWarnings.h"

#include <QtGui/QFontInfo>
#include <QtTest/QTest>

namespace {

QPalette paletteOf(const QColor &window, const QColor &base, const QColor &text)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

} // namespace

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }

    void contrastOfKnownPairs();
    void lightAndDarkAreToldApart();
    void everyRoleCanBeRead_data();
    void everyRoleCanBeRead();
    void readableColourStaysWhenItAlreadyIs();
    void textSizesGrowInOrder();
};

void tst_Theme::contrastOfKnownPairs()
{
    QCOMPARE(kit::contrastRatio(Qt::black, Qt::white), 21.0);
    QCOMPARE(kit::contrastRatio(Qt::white, Qt::black), 21.0);
    QCOMPARE(kit::contrastRatio(Qt::red, Qt::red), 1.0);
    QVERIFY(qAbs(kit::contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
}

void tst_Theme::lightAndDarkAreToldApart()
{
    QVERIFY(!kit::Theme(paletteOf("#efefef", Qt::white, Qt::black)).isDark);
    QVERIFY(kit::Theme(paletteOf("#1b1d21", "#24272c", "#e8eaee")).isDark);
}

void tst_Theme::everyRoleCanBeRead_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << paletteOf("#f6f7f9", "#ffffff", "#1d2129");
    QTest::newRow("dark") << paletteOf("#1b1d21", "#24272c", "#e8eaee");
    QTest::newRow("preview") << paletteOf("#262626", "#262626", "#e8e8e8");
    QTest::newRow("black") << paletteOf("#000000", "#000000", "#ffffff");
    QTest::newRow("paper") << paletteOf("#f4ecd8", "#fbf5e6", "#5b4636");
    QTest::newRow("faint") << paletteOf("#ffffff", "#ffffff", "#aaaaaa");
}

void tst_Theme::everyRoleCanBeRead()
{
    QFETCH(QPalette, palette);
    const kit::Theme theme(palette);
    const auto has = [&theme](const QColor &color, double ratio) {
        return kit::contrastRatio(theme.panel, color) >= ratio;
    };
    QVERIFY(has(theme.text, 4.5));
    QVERIFY(has(theme.quietText, 4.5));
    QVERIFY(has(theme.accentText, 4.5));
    QVERIFY(has(theme.warning, 4.5));
    QVERIFY(has(theme.accent, 3.0));
    QVERIFY(has(theme.waveform, 3.0));
    QVERIFY(has(theme.focus, 3.0));
    QVERIFY(kit::contrastRatio(theme.accent, theme.accentInk) >= 4.5);
    QVERIFY(kit::contrastRatio(theme.selection, theme.text) >= 4.0);
}

void tst_Theme::readableColourStaysWhenItAlreadyIs()
{
    QCOMPARE(kit::readableOn(Qt::white, QColor("#15803d"), 4.5).name(), "#15803d");
    QVERIFY(kit::contrastRatio(Qt::white, kit::readableOn(Qt::white, "#1ea956", 4.5)) >= 4.5);
    QCOMPARE(kit::readableOn(QColor("#777777"), Qt::white, 21.0), QColor(Qt::black));
}

void tst_Theme::textSizesGrowInOrder()
{
    using kit::TextSize;
    double last = 0;
    for (const auto size :
        {TextSize::Caption, TextSize::Small, TextSize::Body, TextSize::Large, TextSize::Figure}) {
        const double points = kit::textFont(QFont(), size).pointSizeF();
        QVERIFY(points > last);
        last = points;
    }
    QCOMPARE(kit::textFont(QFont(), TextSize::Body, QFont::Bold).weight(), QFont::Bold);
}

QTEST_MAIN(tst_Theme)
#include "tst_theme.moc"
