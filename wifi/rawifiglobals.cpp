// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiglobals.h"

#include "sharedstate.h"

QList<APData*> APDataArray;
QList<APData*> g_linkAPList;
int g_linkAPIndex = -1;

_PassParam g_PassParam = {QString(), nullptr, 0, nullptr};

bool g_isWifiWorkStatus = false;
bool g_monitorStatus = false;
bool bIsFirst = true;
int g_isFirst = 0;
int g_isAutoMode = 0;
int g_isAutoCloseWifi = 0;
int g_isUseCancel = 0;

QMutex m_mutex;
int lockStatus = 0;

QFont g_font;

std::mutex& sharedStateMutex()
{
    static std::mutex mutex;
    return mutex;
}

void releaseMutex(QMutex& mutex)
{
    // One releaser at a time, so that the mutex is held, by somebody, whenever it is unlocked.
    static std::mutex releasing;
    const std::lock_guard<std::mutex> lock(releasing);
    mutex.tryLock();
    mutex.unlock();
}
