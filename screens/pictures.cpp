// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "pictures.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QStringList>

namespace {

typedef QHash<QString, QPixmap> Table;

Table& table()
{
    static Table pictures;
    return pictures;
}

void forgetPictures()
{
    table().clear();
}

// The device's pictures have namesakes in the bundle, where two locked signal pictures are named with a 0 more.
QStringList candidates(const QString& path)
{
    QStringList paths(path);
    const QString devicePictures = QLatin1String("/apps/res/");
    const QString lockedSignal = QLatin1String(":/images/wifie");
    if (path.startsWith(devicePictures)) {
        paths += QLatin1String(":/images/") + path.mid(devicePictures.size());
    } else if (path.startsWith(lockedSignal)) {
        paths += lockedSignal + QLatin1Char('0') + path.mid(lockedSignal.size());
    }
    return paths;
}

QPixmap load(const QString& path)
{
    QPixmap loaded;
    for (const QString& candidate : candidates(path)) {
        if (QFileInfo(candidate).isFile() && loaded.load(candidate)) { // a pipe of that name would never end
            break;
        }
    }
    return loaded;
}

} // namespace

QPixmap picture(const QString& path)
{
    Table& pictures = table();
    Table::const_iterator known = pictures.constFind(path);
    if (known == pictures.constEnd()) {
        if (pictures.isEmpty()) {
            qAddPostRoutine(forgetPictures); // a pixmap must not outlive the application object
        }
        known = pictures.insert(path, load(path));
    }
    return known.value();
}

QString signalPicture(bool locked, int level)
{
    const unsigned number = qBound(1U, static_cast<unsigned>(level), 5U); // what is negative has every bar
    return QLatin1String(locked ? ":/images/wifie" : ":/images/wifi") + QString::number(number) + QLatin1String(".png");
}
