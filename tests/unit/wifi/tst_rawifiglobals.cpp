// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiglobals.h"

#include <QtTest>

namespace {
const QFont fontBeforeTheApplication; // made as early as the library's own
}

class TestGlobals : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void listsStartEmpty();
    void workBlockStartsEmpty();
    void flagsStartCleared();
    void firstScanIsToCome();
    void connectionMutexStartsUnlocked();
    void fontStartsAsTheDefault();
};

void TestGlobals::listsStartEmpty()
{
    QVERIFY(APDataArray.isEmpty());
    QVERIFY(g_linkAPList.isEmpty());
    QCOMPARE(g_linkAPIndex, -1);
}

void TestGlobals::workBlockStartsEmpty()
{
    QCOMPARE(g_PassParam.text, QString());
    QVERIFY(g_PassParam.pinfo == nullptr);
    QCOMPARE(g_PassParam.flags, 0);
    QVERIFY(g_PassParam.owner == nullptr);
}

void TestGlobals::flagsStartCleared()
{
    QCOMPARE(g_isWifiWorkStatus, false);
    QCOMPARE(g_monitorStatus, false);
    QCOMPARE(g_isFirst, 0);
    QCOMPARE(g_isAutoMode, 0);
    QCOMPARE(g_isAutoCloseWifi, 0);
    QCOMPARE(g_isUseCancel, 0);
}

void TestGlobals::firstScanIsToCome()
{
    QCOMPARE(bIsFirst, true);
}

void TestGlobals::connectionMutexStartsUnlocked()
{
    QCOMPARE(lockStatus, 0);
    QVERIFY(m_mutex.tryLock());
    m_mutex.unlock();
}

void TestGlobals::fontStartsAsTheDefault()
{
    QCOMPARE(g_font, fontBeforeTheApplication);
}

QTEST_MAIN(TestGlobals)
#include "tst_rawifiglobals.moc"
