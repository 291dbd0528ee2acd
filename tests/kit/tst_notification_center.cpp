// SPDX-License-Identifier: MIT
#include "kit/NotificationCenter.h"
#include "support/QtWarnings.h"

#include <QtTest/QTest>

class tst_NotificationCenter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        support::failOnUnexpectedWarnings();
        m_center = kit::NotificationCenter();
        m_heard.clear();
    }

    void onlyTheNameIsHeardInOrder();
    void receiverThatDiedHearsNothing();
    void receiverThatDiesDuringAPost();
    void receiverThatIsRemovedDuringAPost();
    void receiverThatComesDuringAPost();
    void removalTakesAllOfAReceiver();
    void nullReceiverAndEmptyHandlerAreIgnored();
    void postFromWithinAPost();
    void thereIsOneDefault();

private:
    kit::NotificationCenter::Handler hearAs(const QString &who)
    {
        return [this, who](const QVariant &object) { m_heard << who + QLatin1Char(':') + object.toString(); };
    }

    kit::NotificationCenter m_center;
    QStringList m_heard;
};

void tst_NotificationCenter::onlyTheNameIsHeardInOrder()
{
    QObject a, b;
    m_center.observe("one", &a, hearAs("a"));
    m_center.observe("two", &a, hearAs("a2"));
    m_center.observe("one", &b, hearAs("b"));
    m_center.post("one", "text");
    m_center.post("three", "text");
    QCOMPARE(m_heard, QStringList({"a:text", "b:text"}));
}

void tst_NotificationCenter::receiverThatDiedHearsNothing()
{
    {
        QObject receiver;
        m_center.observe("one", &receiver, hearAs("a"));
    }
    m_center.post("one", "x");
    QVERIFY(m_heard.isEmpty());
}

void tst_NotificationCenter::receiverThatDiesDuringAPost()
{
    QObject first;
    auto second = std::make_unique<QObject>();
    m_center.observe("one", &first, [&second](const QVariant &) { second.reset(); });
    m_center.observe("one", second.get(), hearAs("second"));
    m_center.observe("one", &first, hearAs("first"));
    m_center.post("one", "x");
    QCOMPARE(m_heard, QStringList("first:x"));
}

void tst_NotificationCenter::receiverThatIsRemovedDuringAPost()
{
    QObject first, second;
    m_center.observe("one", &first, [&](const QVariant &) {
        m_center.removeObserver(&first);
        m_center.removeObserver(&second);
    });
    m_center.observe("one", &second, hearAs("second"));
    m_center.post("one", "x");
    m_center.post("one", "y");
    QVERIFY(m_heard.isEmpty());
}

void tst_NotificationCenter::receiverThatComesDuringAPost()
{
    QObject first;
    bool added = false;
    m_center.observe("one", &first, [&](const QVariant &) {
        if (!std::exchange(added, true))
            m_center.observe("one", &first, hearAs("late"));
    });
    m_center.post("one", "x");
    QVERIFY(m_heard.isEmpty());
    m_center.post("one", "y");
    QCOMPARE(m_heard, QStringList("late:y"));
}

void tst_NotificationCenter::removalTakesAllOfAReceiver()
{
    QObject a, b;
    m_center.observe("one", &a, hearAs("a"));
    m_center.observe("two", &a, hearAs("a"));
    m_center.observe("one", &b, hearAs("b"));
    m_center.removeObserver(&a);
    m_center.post("one", "x");
    m_center.post("two", "x");
    QCOMPARE(m_heard, QStringList("b:x"));
}

void tst_NotificationCenter::nullReceiverAndEmptyHandlerAreIgnored()
{
    QObject a;
    m_center.observe("one", nullptr, hearAs("a"));
    m_center.observe("one", &a, {});
    m_center.post("one", "x");
    QVERIFY(m_heard.isEmpty());
}

void tst_NotificationCenter::postFromWithinAPost()
{
    QObject a;
    m_center.observe("outer", &a, [&](const QVariant &object) { m_center.post("inner", object); });
    m_center.observe("inner", &a, hearAs("inner"));
    m_center.observe("outer", &a, hearAs("outer"));
    m_center.post("outer", "x");
    QCOMPARE(m_heard, QStringList({"inner:x", "outer:x"}));
}

void tst_NotificationCenter::thereIsOneDefault()
{
    QCOMPARE(&kit::NotificationCenter::defaultCenter(), &kit::NotificationCenter::defaultCenter());
}

QTEST_MAIN(tst_NotificationCenter)
#include "tst_notification_center.moc"
