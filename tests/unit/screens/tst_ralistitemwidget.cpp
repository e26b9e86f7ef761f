// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "ralistitemwidget.h"
#include "widgettest.h"

#include <QSignalSpy>
#include <QtTest>

using namespace widgettest;

class TestRaListItemWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresOneSignal();
    void signalPictureFollowsTheLevel_data();
    void signalPictureFollowsTheLevel();
    void tapReportsTheIndex();
    void releaseOutsideReportsNothing();
    void nameAndLockAreDrawn();
};

void TestRaListItemWidget::declaresOneSignal()
{
    const QMetaObject& meta = RaListItemWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList(QLatin1String("itemClick(int)")));
    QCOMPARE(slotsOf(meta), QStringList());
}

void TestRaListItemWidget::signalPictureFollowsTheLevel_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("path");
    QTest::newRow("locked 3") << true << 3 << QString::fromLatin1(":/images/wifie3.png");
    QTest::newRow("open 0") << false << 0 << QString::fromLatin1(":/images/wifi1.png");
    QTest::newRow("-1") << false << -1 << QString::fromLatin1(":/images/wifi5.png");
    QTest::newRow("7") << true << 7 << QString::fromLatin1(":/images/wifie5.png");
}

void TestRaListItemWidget::signalPictureFollowsTheLevel()
{
    QFETCH(bool, locked);
    QFETCH(int, level);
    QFETCH(QString, path);
    QCOMPARE(RaListItemWidget().getImageData(locked, level), path);
}

void TestRaListItemWidget::tapReportsTheIndex()
{
    RaListItemWidget row;
    APData data = network(1, "net");
    row.addItemData(&data, 5);
    row.addItemData(nullptr, 6);
    QSignalSpy clicked(&row, SIGNAL(itemClick(int)));
    tap(&row);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toInt(), 5);
}

void TestRaListItemWidget::releaseOutsideReportsNothing()
{
    RaListItemWidget row;
    QSignalSpy clicked(&row, SIGNAL(itemClick(int)));
    press(&row, QPoint(10, 10));
    release(&row, QPoint(10, 60));
    QCOMPARE(clicked.count(), 0);
}

void TestRaListItemWidget::nameAndLockAreDrawn()
{
    RaListItemWidget row;
    APData open = network(1, "net", false);
    APData locked = network(1, "net", true);
    APData other = network(1, "other", false);
    row.addItemData(&open, 0);
    const QImage picture = pictureOf(&row);
    row.addItemData(&locked, 0);
    QVERIFY(pictureOf(&row) != picture);
    row.addItemData(&other, 0);
    QVERIFY(pictureOf(&row) != picture);
    row.addItemData(&open, 0);
    QCOMPARE(pictureOf(&row), picture);
}

QTEST_MAIN(TestRaListItemWidget)
#include "tst_ralistitemwidget.moc"
