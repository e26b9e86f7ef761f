// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "screenfonts.h"

#include "rawifiglobals.h"

#include <QApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QStringList>

namespace {

const char deviceFontFile[] = "/apps/res/SourceHanSansCN-Medium.ttf";

QStringList loadedFamilies()
{
    const QString path = QLatin1String(deviceFontFile);
    if (!QFileInfo(path).isFile()) {
        return QStringList();
    }
    return QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(path));
}

} // namespace

QFont screenFont()
{
    // The global one is older than the application object, and until it is set no font of any family.
    return g_font.family().isEmpty() ? QApplication::font() : g_font;
}

QFont screenFont(int pixels)
{
    QFont font = screenFont();
    font.setPixelSize(pixels);
    return font;
}

QFont passwordPageFont()
{
    static const QStringList families = loadedFamilies(); // once: each load would keep the whole file in memory
    QFont font = screenFont();
    if (!families.isEmpty()) {
        font.setFamily(families.first());
    }
    return font;
}
