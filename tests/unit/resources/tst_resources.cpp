// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPushButton>
#include <QResource>
#include <QVBoxLayout>
#include <QtTest>

#include <utility>

namespace {

struct Picture
{
    const char* name;
    int bytes;
    QSize pixels;
};

// In the order in which the bundle stores them.
const Picture pictures[] = {
    {"decrease_brightness.png", 3477, QSize(36, 36)},
    {"increase_brightness.png", 3498, QSize(36, 36)},
    {"wifizw.png", 3182, QSize(30, 30)},
    {"shift-little.png", 786, QSize(28, 28)},
    {"left-RGB60.png", 4927, QSize(60, 60)},
    {"item-selected.png", 1369, QSize(320, 60)},
    {"item-unselected.png", 1080, QSize(320, 60)},
    {"sky_like.jpg", 94971, QSize(320, 480)},
    {"bluetooth.png", 418, QSize(30, 30)},
    {"back.png", 2905, QSize(40, 40)},
    {"selectwifi.png", 2981, QSize(30, 30)},
    {"backspace-little.png", 789, QSize(28, 28)},
    {"wifie01.png", 2862, QSize(30, 30)},
    {"wifie02.png", 2862, QSize(30, 30)},
    {"back-little.png", 3008, QSize(30, 30)},
    {"wifiicon.png", 3099, QSize(30, 30)},
    {"increase_vol.png", 3346, QSize(36, 36)},
    {"decrease_vol.png", 3307, QSize(36, 36)},
    {"wifi1.png", 2828, QSize(30, 30)},
    {"wifi2.png", 2831, QSize(30, 30)},
    {"wifi3.png", 2837, QSize(30, 30)},
    {"wifi4.png", 2841, QSize(30, 30)},
    {"wifi5.png", 2846, QSize(30, 30)},
    {"wifie4.png", 2876, QSize(30, 30)},
    {"wifie5.png", 2883, QSize(30, 30)},
    {"wifie3.png", 2867, QSize(30, 30)},
    {"wifi.png", 3099, QSize(30, 30)},
};

const char folder[] = ":/images";
const char sheetPath[] = ":/ravirtualkeyboard.qss";
const int sheetBytes = 905;
const QRgb rowColour = qRgb(54, 54, 54);

QString pathOf(const char* name)
{
    return QLatin1String(folder) + QLatin1Char('/') + QLatin1String(name);
}

QImage load(const char* name)
{
    return QImage(pathOf(name)).convertToFormat(QImage::Format_ARGB32);
}

bool isStoredAsItIs(const QResource& resource)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    return resource.compressionAlgorithm() == QResource::NoCompression;
#else
    return !resource.isCompressed();
#endif
}

// How much ink a mark shows: the opacity of all its pixels.
int inkOf(const QImage& image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ink += qAlpha(image.pixel(x, y));
    return ink;
}

bool isOpaque(const QImage& image)
{
    return inkOf(image) == 255 * image.width() * image.height();
}

QString sheetText()
{
    QFile file{QLatin1String(sheetPath)};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pictureHasItsSizeAndDecodes_data();
    void pictureHasItsSizeAndDecodes();
    void bundleHoldsThesePicturesInThisOrderAndNoOther();
    void missingPictureStaysMissing_data();
    void missingPictureStaysMissing();
    void markIsTransparentAround_data();
    void markIsTransparentAround();
    void rowBackgroundFillsTheRow_data();
    void rowBackgroundFillsTheRow();
    void everyLevelShowsMoreThanTheOneBelow_data();
    void everyLevelShowsMoreThanTheOneBelow();
    void skyFillsTheScreen();
    void styleSheetHasItsSize();
    void styleSheetKeepsItsDeclarationsInOrder();
    void styleSheetStylesTheKeys();
    void bundleCanBeRemovedAndRegisteredAgain();
};

void TestResources::pictureHasItsSizeAndDecodes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QSize>("pixels");
    for (const Picture& picture : pictures)
        QTest::newRow(picture.name) << pathOf(picture.name) << picture.bytes << picture.pixels;
}

void TestResources::pictureHasItsSizeAndDecodes()
{
    QFETCH(QString, path);
    QFETCH(int, bytes);
    QFETCH(QSize, pixels);

    const QResource resource(path);
    QVERIFY(resource.isValid());
    QVERIFY(isStoredAsItIs(resource));
    QCOMPARE(int(resource.size()), bytes);
    QCOMPARE(int(QFile(path).size()), bytes);
    QCOMPARE(QImage(path).size(), pixels);
}

void TestResources::bundleHoldsThesePicturesInThisOrderAndNoOther()
{
    QStringList expected;
    for (const Picture& picture : pictures)
        expected << QLatin1String(picture.name);

    const QDir images{QLatin1String(folder)};
    QCOMPARE(images.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Unsorted), expected);
}

void TestResources::missingPictureStaysMissing_data()
{
    QTest::addColumn<QString>("path");
    const char* const paths[] = {
        ":/images/space_key.png",
        ":/images/wifie1.png",
        ":/images/wifie2.png",
        ":/images/search-icon.png",
        ":/image/btncheckoff1.png",
        ":/image/btncheckon1.png",
        ":pngs/images/back.png",
        ":pngs/images/increase_vol.png",
        ":pngs/images/decrease_vol.png",
        ":pngs/images/increase_brightness.png",
        ":pngs/images/decrease_brightness.png",
    };
    for (const char* path : paths)
        QTest::newRow(path) << QString::fromLatin1(path);
}

void TestResources::missingPictureStaysMissing()
{
    QFETCH(QString, path);
    QVERIFY(!QFile::exists(path));
    QVERIFY(QImage(path).isNull());
}

void TestResources::markIsTransparentAround_data()
{
    QTest::addColumn<QString>("path");
    for (const Picture& picture : pictures)
        if (picture.pixels.width() < 320)
            QTest::newRow(picture.name) << pathOf(picture.name);
}

void TestResources::markIsTransparentAround()
{
    QFETCH(QString, path);
    const QImage mark(path);
    QVERIFY(!mark.isNull());
    const int right = mark.width() - 1;
    const int bottom = mark.height() - 1;
    QCOMPARE(qAlpha(mark.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(mark.pixel(right, 0)), 0);
    QCOMPARE(qAlpha(mark.pixel(0, bottom)), 0);
    QCOMPARE(qAlpha(mark.pixel(right, bottom)), 0);
    QVERIFY(inkOf(mark) > 0);
}

void TestResources::rowBackgroundFillsTheRow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("plain");
    QTest::newRow("unselected") << QString::fromLatin1("item-unselected.png") << true;
    QTest::newRow("selected") << QString::fromLatin1("item-selected.png") << false;
}

void TestResources::rowBackgroundFillsTheRow()
{
    QFETCH(QString, name);
    QFETCH(bool, plain);
    const QImage row = load(name.toLatin1().constData());
    QVERIFY(isOpaque(row));
    QCOMPARE(row.pixel(160, 30) == rowColour, plain);

    // The next row covers the last three lines, so nothing may be drawn there.
    for (int y = 57; y < 60; ++y)
        for (int x = 0; x < row.width(); ++x)
            QCOMPARE(row.pixel(x, y), row.pixel(160, 30));
}

void TestResources::everyLevelShowsMoreThanTheOneBelow_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("open") << (QStringList()
                              << QLatin1String("wifi1.png") << QLatin1String("wifi2.png") << QLatin1String("wifi3.png")
                              << QLatin1String("wifi4.png") << QLatin1String("wifi5.png"));
    QTest::newRow("locked") << (QStringList() << QLatin1String("wifie01.png") << QLatin1String("wifie02.png")
                                              << QLatin1String("wifie3.png") << QLatin1String("wifie4.png")
                                              << QLatin1String("wifie5.png"));
}

void TestResources::everyLevelShowsMoreThanTheOneBelow()
{
    QFETCH(QStringList, names);
    int below = 0;
    for (const QString& name : std::as_const(names)) {
        const int ink = inkOf(load(name.toLatin1().constData()));
        QVERIFY2(ink > below, qPrintable(name));
        below = ink;
    }
}

void TestResources::skyFillsTheScreen()
{
    QVERIFY(isOpaque(load("sky_like.jpg")));
}

void TestResources::styleSheetHasItsSize()
{
    const QResource resource{QLatin1String(sheetPath)};
    QVERIFY(resource.isValid());
    QVERIFY(isStoredAsItIs(resource));
    QCOMPARE(int(resource.size()), sheetBytes);
    QVERIFY(!sheetText().contains(QChar(QChar::ReplacementCharacter)));
}

void TestResources::styleSheetKeepsItsDeclarationsInOrder()
{
    const QString text = sheetText();
    const QString expected[] = {
        QStringLiteral("QWidget#RaVirtualKeyboard {"),
        QStringLiteral("border:0px solid rgb(255,0,0);"),
        QStringLiteral("/*background:rgba(120,120,120,100%);*/"),
        QStringLiteral("background:rgba(0,0,0,0%);"),
        QStringLiteral("QPushButton {"),
        QStringLiteral("border-style:outset;"),
        QStringLiteral("font: 18pt \"\u5fae\u8f6f\u96c5\u9ed1\";"),
        QStringLiteral("border:1px solid rgba(0,0,0,0%);"),
        QStringLiteral("border-radius:10px;"),
        QStringLiteral("color:rgba(210,210,210,100%);"),
        QStringLiteral("background-color:rgba(0,0,0,30%);"),
        QStringLiteral("QPushButton:pressed {"),
        QStringLiteral("x1:0, y1:0, x2:0, y2:1, stop:0 #dadbde, stop:1 #f6f7fa"),
        QStringLiteral("QPushButton[text=\"\"] {"),
        QStringLiteral("border:0px;"),
        QStringLiteral("color:rgba(0,0,0,0%);"),
        QStringLiteral("background-color:rgba(0,0,0,0%);"),
        QStringLiteral("QPushButton[text=\"\"]:pressed {"),
        QStringLiteral("QPushButton#btn0_02 {"),
        QStringLiteral("background-color:rgba(255,255,255,100%);"),
    };
    int from = 0;
    for (const QString& part : expected) {
        const int at = int(text.indexOf(part, from));
        QVERIFY2(at >= from, qPrintable(part));
        from = at + int(part.size());
    }
}

void TestResources::styleSheetStylesTheKeys()
{
    QWidget page;
    page.setStyleSheet(QLatin1String("QWidget#page { background-color:#ff0000; }") + sheetText());
    page.setObjectName(QLatin1String("page"));
    page.setAttribute(Qt::WA_StyledBackground);
    QVBoxLayout layout(&page);
    QPushButton empty, plain, white, pressed;
    empty.setText(QLatin1String(" "));
    empty.setText(QLatin1String("")); // a text that never was set is no empty text to a style sheet
    plain.setText(QLatin1String(" "));
    white.setText(QLatin1String(" "));
    white.setObjectName(QLatin1String("btn0_02"));
    pressed.setText(QLatin1String(" "));
    pressed.setDown(true);
    for (QPushButton* key : {&empty, &plain, &white, &pressed}) {
        key->setFixedSize(60, 40);
        layout.addWidget(key);
    }
    page.adjustSize();

    const QImage shown = page.grab().toImage();
    const auto colourOf = [&shown](const QPushButton& key) { return shown.pixelColor(key.geometry().center()); };
    QCOMPARE(colourOf(empty), QColor(255, 0, 0));
    QVERIFY(qAbs(colourOf(plain).red() - 178) <= 2); // 30 % black over red
    QCOMPARE(colourOf(plain).green(), 0);
    QCOMPARE(colourOf(white), QColor(255, 255, 255));
    QVERIFY(colourOf(pressed).green() > 0xda && colourOf(pressed).green() < 0xf7);
}

void TestResources::bundleCanBeRemovedAndRegisteredAgain()
{
    Q_CLEANUP_RESOURCE(rawificontrolresource);
    QVERIFY(!QFile::exists(QLatin1String(sheetPath)));
    Q_INIT_RESOURCE(rawificontrolresource);
    QVERIFY(QFile::exists(QLatin1String(sheetPath)));
}

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
