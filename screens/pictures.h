// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_PICTURES_H
#define RAWIFI_PICTURES_H

#include <QPixmap>
#include <QString>

/**
 * The picture at \a path, decoded once per process; where it is missing, the bundle's stand-in for it, and null
 * where there is none. GUI thread only.
 */
QPixmap picture(const QString& path);

/**
 * Path of the signal picture for a level: picture 1 for 0 and 1, the level's own for 2 to 4, picture 5 for any
 * other number, negative ones included.
 */
QString signalPicture(bool locked, int level);

#endif
