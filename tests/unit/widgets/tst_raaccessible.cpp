// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raclickablelabel.h"
#include "rasliderwidget.h"
#include "raswitchbutton.h"
#include "raswitchlistwidget.h"
#include "ratitlewidget.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>

namespace {

QList<QAccessible::Event> announced;

QAccessibleInterface* seenOf(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

} // namespace

/** Stands before the toolkit's own, which passes nothing on while no assistive tool runs. */
void QAccessible::updateAccessibility(QAccessibleEvent* event)
{
    announced << event->type();
}

class TestRaAccessible : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void controlsHaveRoleAndName_data();
    void controlsHaveRoleAndName();
    void switchTellsAndChangesItsState_data();
    void switchTellsAndChangesItsState();
    void pressWorksLikeATap();
    void sliderHasAValue();
    void ordinaryWidgetsAreLeftAlone();
};

void TestRaAccessible::controlsHaveRoleAndName_data()
{
    QTest::addColumn<QWidget*>("widget");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("name");
    RaSwitchButton* button = new RaSwitchButton;
    button->setAccessibleName(QLatin1String("Sound"));
    RaSwitchListWidget* row = new RaSwitchListWidget;
    row->setItemText(QLatin1String("Discovering..."), QLatin1String("WIFI"));
    RaClickableLabel* label = new RaClickableLabel;
    label->setAccessibleName(QLatin1String("Help"));
    QTest::newRow("switch button") << static_cast<QWidget*>(button) << int(QAccessible::CheckBox)
                                   << QString::fromLatin1("Sound");
    QTest::newRow("switch row") << static_cast<QWidget*>(row) << int(QAccessible::CheckBox)
                                << QString::fromLatin1("WIFI");
    QTest::newRow("label") << static_cast<QWidget*>(label) << int(QAccessible::PushButton)
                           << QString::fromLatin1("Help");
    QTest::newRow("title strip") << static_cast<QWidget*>(new RaTitleWidget(nullptr)) << int(QAccessible::PushButton)
                                 << QString::fromLatin1("Back");
    QTest::newRow("volume") << static_cast<QWidget*>(new RaSliderWidget(RaSliderWidget::VOLUME))
                            << int(QAccessible::Slider) << QString::fromLatin1("Volume");
    QTest::newRow("brightness") << static_cast<QWidget*>(new RaSliderWidget(RaSliderWidget::BRIGHTNESS))
                                << int(QAccessible::Slider) << QString::fromLatin1("Brightness");
}

void TestRaAccessible::controlsHaveRoleAndName()
{
    QFETCH(QWidget*, widget);
    QFETCH(int, role);
    QFETCH(QString, name);
    const QScopedPointer<QWidget> owner(widget);
    const QAccessibleInterface* seen = seenOf(widget);
    QVERIFY(seen);
    QCOMPARE(int(seen->role()), role);
    QCOMPARE(seen->text(QAccessible::Name), name);
}

void TestRaAccessible::switchTellsAndChangesItsState_data()
{
    QTest::addColumn<QWidget*>("widget");
    QTest::newRow("button") << static_cast<QWidget*>(new RaSwitchButton);
    QTest::newRow("row") << static_cast<QWidget*>(new RaSwitchListWidget);
}

void TestRaAccessible::switchTellsAndChangesItsState()
{
    QFETCH(QWidget*, widget);
    const QScopedPointer<QWidget> owner(widget);
    QAccessibleInterface* seen = seenOf(widget);
    QVERIFY(seen->state().checkable);
    QVERIFY(!seen->state().checked);
    QVERIFY(seen->actionInterface()->actionNames().contains(QAccessibleActionInterface::toggleAction()));

    announced.clear();
    seen->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(seen->state().checked);
    widget->setProperty("checked", false);
    QVERIFY(!seen->state().checked);
    QCOMPARE(announced.count(QAccessible::StateChanged), 2);
}

void TestRaAccessible::pressWorksLikeATap()
{
    RaTitleWidget strip(nullptr);
    QSignalSpy back(&strip, SIGNAL(backPressed()));
    QVERIFY(!seenOf(&strip)->state().checkable);
    seenOf(&strip)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(back.count(), 1);

    RaClickableLabel label;
    QSignalSpy clicks(&label, SIGNAL(clicked()));
    seenOf(&label)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
}

void TestRaAccessible::sliderHasAValue()
{
    RaSliderWidget slider(RaSliderWidget::VOLUME);
    QAccessibleValueInterface* value = seenOf(&slider)->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->minimumValue().toInt(), 0);
    QCOMPARE(value->maximumValue().toInt(), 5);
    QCOMPARE(value->minimumStepSize().toInt(), 1);
    announced.clear();
    value->setCurrentValue(3);
    QVERIFY(announced.contains(QAccessible::ValueChanged));
    QCOMPARE(slider.getLevel(), 3);
    QCOMPARE(value->currentValue().toInt(), 3);
    QCOMPARE(seenOf(&slider)->text(QAccessible::Value), QString::fromLatin1("3"));
    value->setCurrentValue(-4);
    QCOMPARE(slider.getLevel(), 0);
    value->setCurrentValue(99);
    QCOMPARE(slider.getLevel(), 5);
}

void TestRaAccessible::ordinaryWidgetsAreLeftAlone()
{
    const RaClickableLabel installsTheFactory;
    QLabel label;
    QCOMPARE(int(seenOf(&label)->role()), int(QAccessible::StaticText));
}

QTEST_MAIN(TestRaAccessible)
#include "tst_raaccessible.moc"
