// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "loggedmessages.h"
#include "rabasewidget.h"
#include "rabasewindow.h"
#include "raclickablelabel.h"
#include "rasliderwidget.h"
#include "widgettest.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QtTest>

using namespace widgettest;

namespace {

class Content : public RaBaseWidget
{
public:
    void keyUp() override { keys << "up"; }
    void keyDown() override { keys << "down"; }
    QList<QByteArray> keys;
};

class Page : public RaBaseWindow
{
public:
    explicit Page(RaBaseWidget* content, const QString& subtitle = QString())
        : RaBaseWindow(nullptr, QString(), subtitle),
          m_given(content)
    {}
    RaBaseWidget* createContengWidget(int type) override
    {
        type_ = type;
        return m_given;
    }
    int type_ = -1;

private:
    RaBaseWidget* m_given;
};

QVBoxLayout* layoutOf(const RaBaseWindow& page)
{
    return qobject_cast<QVBoxLayout*>(page.layout());
}

QWidget* barOf(const RaBaseWindow& page)
{
    return layoutOf(page)->itemAt(0)->widget();
}

QLabel* labelOf(const RaBaseWindow& page, int index)
{
    return qobject_cast<QLabel*>(barOf(page)->layout()->itemAt(index)->widget());
}

} // namespace

class TestRaBaseWindow : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresOneSlot();
    void isFramelessAndWithoutParent();
    void isEmptyUntilBuilt();
    void keepsItsGroundInsideAHost();
    void titleBarHasItsParts();
    void emptyTextsLeaveTheLabelsEmpty_data();
    void emptyTextsLeaveTheLabelsEmpty();
    void bodyHasItsShare();
    void defaultContentIsASlider_data();
    void defaultContentIsASlider();
    void sliderKeepsItsHeightOnATallPage();
    void missingContentLeavesAFiller();
    void contentMayGoBeforeThePage();
    void upAndDownGoToTheContent_data();
    void upAndDownGoToTheContent();
    void backLabelClosesThePage();
    void showBackButtonShowsAndHides();
    void secondBuildReplacesTheFirst();
    void focusGoesFromBackToTheContent();
    void nothingLeaks();
};

void TestRaBaseWindow::declaresOneSlot()
{
    const QMetaObject& meta = RaBaseWindow::staticMetaObject;
    QCOMPARE(slotsOf(meta), QStringList() << QLatin1String("slotQuit()"));
    QCOMPARE(signalsOf(meta) + propertiesOf(meta), QStringList());
    const QMetaObject& base = RaBaseWidget::staticMetaObject;
    QCOMPARE(signalsOf(base) + slotsOf(base) + propertiesOf(base), QStringList());
}

void TestRaBaseWindow::isFramelessAndWithoutParent()
{
    QWidget host;
    const RaBaseWindow page(&host, QLatin1String("Title"), QString());
    QVERIFY(!page.parent());
    QVERIFY(page.isWindow());
    QVERIFY(page.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(page.styleSheet(), QString::fromLatin1("QWidget{background-color:#1e2129}"));
}

void TestRaBaseWindow::isEmptyUntilBuilt()
{
    RaBaseWindow page(nullptr, QLatin1String("Title"), QLatin1String("Subtitle"));
    QVERIFY(!page.layout());
    QVERIFY(page.findChildren<QWidget*>().isEmpty());
    page.showBackButton(false);
    pressKey(&page, Qt::Key_Up);
    page.resize(320, 170);
    QCOMPARE(pictureOf(&page).pixelColor(160, 100), QColor(QLatin1String("#1e2129")));
}

void TestRaBaseWindow::keepsItsGroundInsideAHost()
{
    QWidget host;
    host.resize(320, 170);
    RaBaseWindow* page = new RaBaseWindow(&host, QString(), QString());
    page->setParent(&host);
    page->setGeometry(host.rect());
    page->show();
    QCOMPARE(pictureOf(&host).pixelColor(160, 100), QColor(QLatin1String("#1e2129")));
}

void TestRaBaseWindow::titleBarHasItsParts()
{
    RaBaseWindow page(nullptr, QLatin1String("Stored"), QLatin1String("Subtitle"));
    page.createUI(QLatin1String("Title"), 0, QLatin1String("ignored"));
    QWidget* bar = barOf(page);
    QCOMPARE(bar->parentWidget(), &page);
    QHBoxLayout* row = qobject_cast<QHBoxLayout*>(bar->layout());
    QVERIFY(row);
    QCOMPARE(row->count(), 3);
    const Qt::Alignment alignments[] = {Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignCenter,
                                        Qt::AlignRight | Qt::AlignVCenter};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(row->stretch(i), 0);
        QCOMPARE(row->itemAt(i)->alignment(), alignments[i]);
    }
    QVERIFY(qobject_cast<RaClickableLabel*>(labelOf(page, 0)));
    QVERIFY(!labelOf(page, 0)->accessibleName().isEmpty());
    QCOMPARE(labelOf(page, 1)->text(), QString::fromLatin1("Title"));
    QCOMPARE(labelOf(page, 1)->styleSheet(),
             QString::fromLatin1("QLabel {font-size: 22px;color: #ffffff;background-color: #1e2129;}"));
    QCOMPARE(labelOf(page, 2)->text(), QString::fromLatin1("Subtitle"));
    QCOMPARE(labelOf(page, 2)->styleSheet(),
             QString::fromLatin1("QLabel {font-size: 18px;color: #ffffff;background-color: #1e2129;}"));

    page.resize(320, 170);
    const QImage picture = pictureOf(&page);
    QVERIFY(pixelsOf(picture, QRect(0, 0, 50, 50), Qt::white) > 20); // a back mark although its picture is missing
}

void TestRaBaseWindow::emptyTextsLeaveTheLabelsEmpty_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("subtitle");
    QTest::newRow("both empty") << QString() << QString();
    QTest::newRow("no title") << QString() << QString::fromLatin1("Subtitle");
    QTest::newRow("no subtitle") << QString::fromLatin1("Title") << QString();
}

void TestRaBaseWindow::emptyTextsLeaveTheLabelsEmpty()
{
    QFETCH(QString, title);
    QFETCH(QString, subtitle);
    Page page(new Content, subtitle);
    page.createUI(title, 0, QString());
    QCOMPARE(labelOf(page, 1)->text(), title);
    QCOMPARE(labelOf(page, 2)->text(), subtitle);
}

void TestRaBaseWindow::bodyHasItsShare()
{
    Content* content = new Content;
    Page page(content);
    page.createUI(QString(), 23, QString());
    QCOMPARE(page.type_, 23);
    QVBoxLayout* layout = layoutOf(page);
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->stretch(0), 5);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment(Qt::AlignTop));
    QCOMPARE(layout->stretch(1), 12);
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(content));
    QCOMPARE(content->parentWidget(), &page);
    page.resize(320, 170);
    pictureOf(&page);
    QCOMPARE(barOf(page)->geometry(), QRect(0, 0, 320, 50));
    QCOMPARE(content->geometry(), QRect(0, 50, 320, 120));
    page.resize(320, 340);
    pictureOf(&page);
    QCOMPARE(content->geometry(), QRect(0, 100, 320, 240));
}

void TestRaBaseWindow::defaultContentIsASlider_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("levels");
    QTest::newRow("volume") << 0 << 5;
    QTest::newRow("brightness") << 1 << 4;
    QTest::newRow("any other value") << 100 << 4;
}

void TestRaBaseWindow::defaultContentIsASlider()
{
    QFETCH(int, type);
    QFETCH(int, levels);
    RaBaseWindow page(nullptr, QString(), QString());
    const QScopedPointer<RaBaseWidget> content(page.createContengWidget(type));
    QVERIFY(!content->parent());
    const RaSliderWidget* slider = qobject_cast<RaSliderWidget*>(content.data());
    QVERIFY(slider);
    QCOMPARE(slider->getLevelCount(), levels);
}

void TestRaBaseWindow::sliderKeepsItsHeightOnATallPage()
{
    RaBaseWindow page(nullptr, QString(), QString());
    page.createUI(QString(), 0, QString());
    page.resize(320, 480);
    pictureOf(&page);
    const RaSliderWidget* slider = page.findChild<RaSliderWidget*>();
    QCOMPARE(slider->size(), QSize(320, 120));
    QVERIFY(slider->y() > 200);
    QVERIFY(slider->y() < 300);
}

void TestRaBaseWindow::missingContentLeavesAFiller()
{
    Page page(nullptr);
    const QList<QByteArray> messages = loggedMessages([&] { page.createUI(QString(), 0, QString()); });
    QCOMPARE(messages, QList<QByteArray>() << "content !!!! NULL");
    QCOMPARE(layoutOf(page)->count(), 2);
    QCOMPARE(layoutOf(page)->stretch(1), 12);
    QCOMPARE(layoutOf(page)->itemAt(1)->widget()->metaObject(), &QWidget::staticMetaObject);
    pressKey(&page, Qt::Key_Up);
    pressKey(&page, Qt::Key_Down);
}

void TestRaBaseWindow::contentMayGoBeforeThePage()
{
    Content* content = new Content;
    Page page(content);
    page.createUI(QString(), 0, QString());
    delete content;
    QCOMPARE(layoutOf(page)->count(), 1);
    pressKey(&page, Qt::Key_Up);
    pressKey(&page, Qt::Key_Down);
}

void TestRaBaseWindow::upAndDownGoToTheContent_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<QByteArray>>("keys");
    QTest::newRow("up") << int(Qt::Key_Up) << (QList<QByteArray>() << "up");
    QTest::newRow("down") << int(Qt::Key_Down) << (QList<QByteArray>() << "down");
    QTest::newRow("left") << int(Qt::Key_Left) << QList<QByteArray>();
    QTest::newRow("escape") << int(Qt::Key_Escape) << QList<QByteArray>();
}

void TestRaBaseWindow::upAndDownGoToTheContent()
{
    QFETCH(int, key);
    QFETCH(QList<QByteArray>, keys);
    Content* content = new Content;
    Page page(content);
    page.createUI(QString(), 0, QString());
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&page, &event);
    QCOMPARE(content->keys, keys);
    QCOMPARE(event.isAccepted(), !keys.isEmpty());
}

void TestRaBaseWindow::backLabelClosesThePage()
{
    RaBaseWindow page(nullptr, QString(), QString());
    page.createUI(QString(), 0, QString());
    page.show();
    QVERIFY(page.isVisible());
    release(labelOf(page, 0), QPoint(5, 5));
    QVERIFY(!page.isVisible());
}

void TestRaBaseWindow::showBackButtonShowsAndHides()
{
    RaBaseWindow page(nullptr, QString(), QString());
    page.createUI(QString(), 0, QString());
    page.show();
    QVERIFY(labelOf(page, 0)->isVisible());
    page.showBackButton(false);
    QVERIFY(!labelOf(page, 0)->isVisible());
    page.showBackButton(true);
    QVERIFY(labelOf(page, 0)->isVisible());
}

void TestRaBaseWindow::secondBuildReplacesTheFirst()
{
    RaBaseWindow page(nullptr, QString(), QString());
    page.createUI(QLatin1String("One"), 0, QString());
    page.createUI(QLatin1String("Two"), 1, QString());
    QCOMPARE(page.findChildren<RaSliderWidget*>().size(), 1);
    QCOMPARE(page.findChildren<RaClickableLabel*>().size(), 1);
    QCOMPARE(labelOf(page, 1)->text(), QString::fromLatin1("Two"));
    pressKey(&page, Qt::Key_Up);
    QCOMPARE(page.findChild<RaSliderWidget*>()->getLevel(), 1);
}

void TestRaBaseWindow::focusGoesFromBackToTheContent()
{
    RaBaseWindow page(nullptr, QString(), QString());
    page.createUI(QString(), 0, QString());
    page.show();
    QApplication::setActiveWindow(&page);
    labelOf(page, 0)->setFocus();
    QVERIFY(labelOf(page, 0)->hasFocus());
    pressKey(labelOf(page, 0), Qt::Key_Tab);
    QVERIFY(page.findChild<RaSliderWidget*>()->hasFocus());
    pressKey(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(page.findChild<RaSliderWidget*>()->getLevel(), 1);
}

void TestRaBaseWindow::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaBaseWindow page(nullptr, QLatin1String("Title"), QLatin1String("Subtitle"));
        page.createUI(QLatin1String("Title"), 0, QString());
        page.createUI(QLatin1String("Title"), 1, QString());
        page.resize(320, 170);
        pictureOf(&page);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaBaseWindow)
#include "tst_rabasewindow.moc"
