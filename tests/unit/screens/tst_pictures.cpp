// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "fittedtext.h"
#include "pictures.h"
#include "qtcompat.h"

#include <QtTest>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

class TestPictures : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void signalPictureFollowsTheLevel_data();
    void signalPictureFollowsTheLevel();
    void everySignalPictureIsFound_data();
    void everySignalPictureIsFound();
    void lockedAndOpenPicturesDiffer();
    void devicePictureIsTakenFirst();
    void bundleStandsInForADevicePicture_data();
    void bundleStandsInForADevicePicture();
    void unknownPictureIsNull();
    void pictureIsDecodedOnce();

    void textIsAsLargeAsItsPlaceAllows_data();
    void textIsAsLargeAsItsPlaceAllows();
};

void TestPictures::signalPictureFollowsTheLevel_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("path");
    const int levels[] = {0, 1, 2, 3, 4, 5, 7, -1, INT_MAX, INT_MIN};
    const int pictures[] = {1, 1, 2, 3, 4, 5, 5, 5, 5, 5};
    for (int i = 0; i < 10; ++i) {
        const QString end = QString::number(pictures[i]) + QLatin1String(".png");
        QTest::newRow(qPrintable(QString::fromLatin1("open %1").arg(levels[i])))
            << false << levels[i] << QLatin1String(":/images/wifi") + end;
        QTest::newRow(qPrintable(QString::fromLatin1("locked %1").arg(levels[i])))
            << true << levels[i] << QLatin1String(":/images/wifie") + end;
    }
}

void TestPictures::signalPictureFollowsTheLevel()
{
    QFETCH(bool, locked);
    QFETCH(int, level);
    QFETCH(QString, path);
    QCOMPARE(signalPicture(locked, level), path);
}

void TestPictures::everySignalPictureIsFound_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("level");
    for (int level = 1; level <= 5; ++level) {
        QTest::newRow(qPrintable(QString::fromLatin1("open %1").arg(level))) << false << level;
        QTest::newRow(qPrintable(QString::fromLatin1("locked %1").arg(level))) << true << level;
    }
}

void TestPictures::everySignalPictureIsFound()
{
    QFETCH(bool, locked);
    QFETCH(int, level);
    QCOMPARE(picture(signalPicture(locked, level)).size(), QSize(30, 30));
}

void TestPictures::lockedAndOpenPicturesDiffer()
{
    for (int level = 1; level <= 5; ++level) {
        QVERIFY(picture(signalPicture(true, level)).toImage() != picture(signalPicture(false, level)).toImage());
    }
}

void TestPictures::devicePictureIsTakenFirst()
{
    QImage own(7, 9, QImage::Format_RGB32);
    own.fill(Qt::red);
    QVERIFY(own.save(QLatin1String("/apps/res/wifi.png")));
    QCOMPARE(picture(QLatin1String("/apps/res/wifi.png")).size(), QSize(7, 9));
}

void TestPictures::bundleStandsInForADevicePicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("planted");
    QTest::newRow("missing") << QString::fromLatin1("back.png") << QString();
    QTest::newRow("no picture") << QString::fromLatin1("selectwifi.png") << QString::fromLatin1("text");
    QTest::newRow("a directory") << QString::fromLatin1("item-unselected.png") << QString::fromLatin1("directory");
    QTest::newRow("a pipe that never ends") << QString::fromLatin1("wifiicon.png") << QString::fromLatin1("pipe");
}

void TestPictures::bundleStandsInForADevicePicture()
{
    QFETCH(QString, name);
    QFETCH(QString, planted);
    const QString path = QLatin1String("/apps/res/") + name;
    if (planted == QLatin1String("text")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no picture") > 0);
    } else if (planted == QLatin1String("directory")) {
        QVERIFY(QDir().mkdir(path));
    } else if (planted == QLatin1String("pipe")) {
        QCOMPARE(mkfifo(path.toLatin1().constData(), 0600), 0);
    }
    const QPixmap found = picture(path);
    QVERIFY(!found.isNull());
    QCOMPARE(found.toImage(), QPixmap(QLatin1String(":/images/") + name).toImage());
}

void TestPictures::unknownPictureIsNull()
{
    QVERIFY(picture(QLatin1String("/apps/res/nothing.png")).isNull());
    QVERIFY(picture(QLatin1String(":/images/wifie9.png")).isNull());
    QVERIFY(picture(QString()).isNull());
}

void TestPictures::pictureIsDecodedOnce()
{
    const QString path = QLatin1String(":/images/wifi3.png");
    QCOMPARE(picture(path).cacheKey(), picture(path).cacheKey());
}

void TestPictures::textIsAsLargeAsItsPlaceAllows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");
    QTest::addColumn<bool>("whole");
    QTest::newRow("short") << QString::fromLatin1("Home") << 18 << 18 << true;
    QTest::newRow("wide") << QString(14, QLatin1Char('W')) << 11 << 17 << true;
    QTest::newRow("too wide at any size") << QString(60, QLatin1Char('W')) << 11 << 11 << false;
    QTest::newRow("Chinese") << QString::fromUtf8("咖啡馆无线网络二楼大厅区") << 11 << 18 << true;
}

void TestPictures::textIsAsLargeAsItsPlaceAllows()
{
    QFETCH(QString, text);
    QFETCH(int, least);
    QFETCH(int, most);
    QFETCH(bool, whole);
    const int width = 221;
    const FittedText fitted = fitText(text, QFont(), width, 18, 11);
    QVERIFY(fitted.font.pixelSize() >= least && fitted.font.pixelSize() <= most);
    QVERIFY(raTextWidth(QFontMetrics(fitted.font), fitted.text) <= width);
    QCOMPARE(fitted.text == text, whole);
    if (fitted.font.pixelSize() < 18) {
        QFont larger = fitted.font;
        larger.setPixelSize(fitted.font.pixelSize() + 1);
        QVERIFY(raTextWidth(QFontMetrics(larger), text) > width);
    }
}

QTEST_MAIN(TestPictures)
#include "tst_pictures.moc"
