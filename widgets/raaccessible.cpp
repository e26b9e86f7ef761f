// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raaccessible.h"

#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0) && !defined(QT_NO_ACCESSIBILITY)

#    include "raclickablelabel.h"
#    include "rasliderwidget.h"
#    include "raswitchbutton.h"
#    include "raswitchlistwidget.h"
#    include "ratitlewidget.h"

#    include <QAccessibleWidget>
#    include <QCoreApplication>
#    include <QKeyEvent>
#    include <QVariant>

namespace {

class Control : public QAccessibleWidget
{
public:
    Control(QWidget* widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        if (isSwitch()) {
            state.checkable = true;
            state.checked = widget()->property("checked").toBool();
        }
        return state;
    }

    QStringList actionNames() const override { return QStringList(mainAction()) + QAccessibleWidget::actionNames(); }

    void doAction(const QString& name) override
    {
        if (name == mainAction()) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
            QCoreApplication::sendEvent(widget(), &press);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    bool isSwitch() const { return role() == QAccessible::CheckBox; }
    QString mainAction() const { return isSwitch() ? toggleAction() : pressAction(); }
};

class Slider : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit Slider(RaSliderWidget* slider) : QAccessibleWidget(slider, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? QString::number(slider()->getLevel()) : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return slider()->getLevel(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return slider()->getLevelCount(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override
    {
        const int wanted = qBound(0, value.toInt(), slider()->getLevelCount());
        while (slider()->getLevel() < wanted) {
            slider()->keyUp();
        }
        while (slider()->getLevel() > wanted) {
            slider()->keyDown();
        }
    }

private:
    RaSliderWidget* slider() const { return static_cast<RaSliderWidget*>(widget()); }
};

QAccessibleInterface* create(const QString&, QObject* object)
{
    if (RaSliderWidget* slider = qobject_cast<RaSliderWidget*>(object)) {
        return new Slider(slider);
    }
    if (qobject_cast<RaSwitchButton*>(object) || qobject_cast<RaSwitchListWidget*>(object)) {
        return new Control(static_cast<QWidget*>(object), QAccessible::CheckBox);
    }
    if (qobject_cast<RaClickableLabel*>(object) || qobject_cast<RaTitleWidget*>(object)) {
        return new Control(static_cast<QWidget*>(object), QAccessible::PushButton);
    }
    return nullptr;
}

} // namespace

void raInstallAccessibility()
{
    QAccessible::installFactory(create); // the toolkit drops a repeat
}

void raAnnounceChecked(QWidget* widget)
{
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

void raAnnounceValue(QWidget* widget, int value)
{
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

#else

void raInstallAccessibility() {}

void raAnnounceChecked(QWidget*) {}

void raAnnounceValue(QWidget*, int) {}

#endif
