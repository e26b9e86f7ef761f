// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_UI_RAVIRTUALKEYBOARD_H
#define RAWIFI_UI_RAVIRTUALKEYBOARD_H

#include "ravirtualkeyboard_btn.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QList>
#include <QVBoxLayout>
#include <initializer_list>

/** The keyboard's fixed form: seven rows of keys. Everything it makes belongs to the widget it is set up on.
 */
class Ui_RaVirtualKeyboard
{
public:
    QWidget* horizontalLayoutWidget = nullptr;
    QHBoxLayout* horizontalLayout = nullptr;
    QWidget* Widget_Key = nullptr;
    QVBoxLayout* verticalLayout = nullptr;
    QList<RaVirtualKeyboard_Btn*> keys; // all 33: row by row, left to right

    void setupUi(QWidget* RaVirtualKeyboard)
    {
        if (RaVirtualKeyboard->objectName().isEmpty()) {
            RaVirtualKeyboard->setObjectName(QLatin1String("RaVirtualKeyboard"));
        }
        RaVirtualKeyboard->resize(320, 262);

        horizontalLayoutWidget = named(new QWidget(RaVirtualKeyboard), "horizontalLayoutWidget");
        horizontalLayoutWidget->setGeometry(QRect(0, 0, 320, 250));
        horizontalLayout = named(new QHBoxLayout(horizontalLayoutWidget), "horizontalLayout");
        horizontalLayout->setSpacing(0);
        horizontalLayout->setContentsMargins(0, 0, 0, 0);

        Widget_Key = named(new QWidget(horizontalLayoutWidget), "Widget_Key");
        verticalLayout = named(new QVBoxLayout(Widget_Key), "verticalLayout");
        verticalLayout->setSpacing(2);
        verticalLayout->setContentsMargins(1, 1, 1, 1);

        // The row layouts' names differ in case, and "shirt" is how the shift key's name is spelt.
        addRow("widget_key1", "Widget_Key_1", 4, {"btn1_Lshirt", "btn1_02", "btn1_03", "btn1_04", "btn1_backspace"});
        addRow("widget_key2", "widget_key_2", 2, {"btn2_01", "btn2_02", "btn2_03", "btn2_04", "btn2_05"});
        addRow("widget_key3", "widget_key_3", 2, {"btn3_01", "btn3_02", "btn3_03", "btn3_04", "btn3_05"});
        addRow("widget_key4", "widget_key_4", 2, {"btn4_01", "btn4_02", "btn4_03", "btn4_04", "btn4_05"});
        addRow("widget_key5", "widget_key_5", 2, {"btn5_01", "btn5_02", "btn5_03", "btn5_04", "btn5_05"});
        addRow("widget_key6", "widget_key_6", 2, {"btn6_01", "btn6_02", "btn6_03", "btn6_04", "btn6_05"});
        addRow("widget_key7", "widget_key_7", 2, {"btn7_01", "btn7_02", "btn7_03"});

        horizontalLayout->addWidget(Widget_Key);
        retranslateUi(RaVirtualKeyboard);
    }

    void retranslateUi(QWidget* RaVirtualKeyboard)
    {
        RaVirtualKeyboard->setWindowTitle(QApplication::translate("RaVirtualKeyboard", "Form"));
        const QString text = QApplication::translate("RaVirtualKeyboard", "PushButton");
        for (RaVirtualKeyboard_Btn* key : keys) {
            key->setText(text);
        }
    }

private:
    template<typename Object>
    static Object* named(Object* object, const char* name)
    {
        object->setObjectName(QLatin1String(name));
        return object;
    }

    void addRow(const char* widgetName, const char* layoutName, int topMargin,
                std::initializer_list<const char*> keyNames)
    {
        QWidget* row = named(new QWidget(Widget_Key), widgetName);
        QHBoxLayout* layout = named(new QHBoxLayout(row), layoutName);
        layout->setSpacing(4);
        layout->setContentsMargins(2, topMargin, 2, 0);
        for (const char* name : keyNames) {
            RaVirtualKeyboard_Btn* key = named(new RaVirtualKeyboard_Btn(row), name);
            layout->addWidget(key);
            keys << key;
        }
        verticalLayout->addWidget(row);
    }
};

namespace Ui {
class RaVirtualKeyboard : public Ui_RaVirtualKeyboard
{
};
} // namespace Ui

#endif
