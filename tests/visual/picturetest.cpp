// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "picturetest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QMouseEvent>
#include <QStyleFactory>
#include <QTest>
#include <algorithm>

namespace {

const int toleratedDifference = 24; // of 255, in one colour of a pixel
const int toleratedPixels = 20;     // that differ by more

/** The reference that all toolkits share. */
QString sharedReference(const QString& name)
{
    return QString::fromUtf8(RAWIFI_PICTURES "/references/") + name + QLatin1String(".png");
}

/**
 * The reference of this toolkit alone, for the few pictures in which it rounds the height of a line of text
 * differently, so that the line stands one pixel higher or lower.
 */
QString ownReference(const QString& name)
{
    return QString::fromUtf8(RAWIFI_PICTURES "/references/qt%1/").arg(QT_VERSION_MAJOR) + name + QLatin1String(".png");
}

int differenceOf(QRgb one, QRgb other)
{
    return std::max(
        {qAbs(qRed(one) - qRed(other)), qAbs(qGreen(one) - qGreen(other)), qAbs(qBlue(one) - qBlue(other))});
}

/** White where the pictures differ by more than is tolerated, darker where by less. */
QImage differenceImage(const QImage& expected, const QImage& got, int* differing)
{
    QImage difference(expected.size(), QImage::Format_RGB32);
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const int value = differenceOf(expected.pixel(x, y), got.pixel(x, y));
            const bool isTooMuch = value > toleratedDifference;
            *differing += isTooMuch ? 1 : 0;
            difference.setPixel(x, y, isTooMuch ? qRgb(255, 255, 255) : qRgb(value * 4, value * 4, value * 4));
        }
    }
    return difference;
}

/** Writes the pictures that there are, and says where. */
QString writeFailed(const QString& name, const QImage& expected, const QImage& got, const QImage& difference)
{
    const QString base = QString::fromUtf8(RAWIFI_FAILED_PICTURES "/") + name;
    QDir().mkpath(QFileInfo(base).path());
    expected.save(base + QLatin1String("-expected.png"));
    difference.save(base + QLatin1String("-difference.png"));
    const bool written = got.save(base + QLatin1String("-got.png"));
    return QString::fromLatin1(written ? "see %1-{expected,got,difference}.png" : "could not write %1-got.png")
        .arg(base);
}

/** What is wrong with \a got, nothing if all is well; \a difference is where it shows. */
QString compare(const QImage& expected, const QImage& got, QImage* difference)
{
    if (expected.isNull()) {
        return QLatin1String("has no reference");
    }
    int differing = 0;
    *difference = differenceImage(expected.copy(got.rect()), got, &differing);
    if (expected.size() != got.size()) {
        return QString::fromLatin1("is %1x%2 instead of %3x%4")
            .arg(got.width())
            .arg(got.height())
            .arg(expected.width())
            .arg(expected.height());
    }
    return differing <= toleratedPixels ? QString() : QString::fromLatin1("differs in %1 pixels").arg(differing);
}

QImage load(const QString& path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

QString check(const QString& name, const QImage& got)
{
    const QString own = ownReference(name);
    const QImage expected = load(QFile::exists(own) ? own : sharedReference(name));
    QImage difference;
    const QString wrong = compare(expected, got, &difference);
    if (wrong.isEmpty()) {
        return QString();
    }
    return name + QLatin1Char(' ') + wrong + QLatin1String("; ") + writeFailed(name, expected, got, difference);
}

/** The first toolkit to draw a picture sets the shared reference; another one its own, if it needs one. */
QString regenerate(const QString& name, const QImage& got)
{
    QImage difference;
    QString target = sharedReference(name);
    if (QFile::exists(target)) {
        if (compare(load(target), got, &difference).isEmpty()) {
            return QString();
        }
        target = ownReference(name);
        QDir().mkpath(QFileInfo(target).path());
    }
    return got.save(target) ? QString() : QLatin1String("could not write ") + target;
}

void drawAlike()
{
    qputenv("FONTCONFIG_FILE", RAWIFI_PICTURES "/fonts.conf");
    qputenv("QT_FONT_DPI", "96");
    qunsetenv("QT_SCALE_FACTOR");
    qunsetenv("QT_SCREEN_SCALE_FACTORS");
}

void drawAlike(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QLatin1String("Fusion")));
    QFont font(QLatin1String("DejaVu Sans"));
    font.setPixelSize(16);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0); // the caret stands still
}

} // namespace

namespace picturetest {

int run(int argc, char** argv, const Scenes& scenes)
{
    drawAlike();
    QApplication application(argc, argv);
    drawAlike(application);
    PictureTest test(scenes);
    return QTest::qExec(&test, argc, argv);
}

PictureTest::PictureTest(const Scenes& scenes) : m_scenes(scenes) {}

void PictureTest::looksLikeItsReference_data()
{
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < m_scenes.size(); ++i) {
        QTest::newRow(m_scenes[i].first) << static_cast<int>(i);
    }
}

void PictureTest::looksLikeItsReference()
{
    QFETCH(int, index);
    const Scene& scene = m_scenes[static_cast<std::size_t>(index)];
    const QString name = QString::fromLatin1(scene.first);
    const QImage got = scene.second().convertToFormat(QImage::Format_RGB32);
    const QString complaint = qEnvironmentVariableIsSet("RAWIFI_REGENERATE") ? regenerate(name, got) : check(name, got);
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
}

Sheet::Sheet(int height)
{
    resize(320, height);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0x1e, 0x21, 0x29));
    setPalette(colours);
    show();
}

QImage Sheet::picture()
{
    return grab().toImage();
}

void tap(QWidget* widget, const QPoint& position, bool held)
{
    const QPoint global = widget->mapToGlobal(position);
    QMouseEvent press(QEvent::MouseButtonPress, position, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    if (!held) {
        QMouseEvent release(QEvent::MouseButtonRelease, position, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &release);
    }
}

} // namespace picturetest
