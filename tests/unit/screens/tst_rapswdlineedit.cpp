// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rapswdlineedit.h"
#include "widgettest.h"

#include <QtTest>

using namespace widgettest;

namespace {

const char GreyLook[] = "height:35px;border:0px solid #eaeaea;border-radius:14px; background-color:rgb(54,54,54);"
                        "caret-color:red ;font-size:22px;color:gray";
const char WhiteLook[] = "height:35px;border:0px solid #eaeaea;border-radius:14px; background-color:rgb(54,54,54);"
                         "caret-color:red ;font-size:25px;color:white";

QString placeholder()
{
    return QString::fromUtf8("请输入密码");
}

} // namespace

class TestRaPsWdLineEdit : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresOneSlot();
    void looksAreTheExactStyleSheets();
    void lookFollowsTheText();
    void placeholderIsRealText();
    void placeholderIsShownOnlyWhenEmpty();
    void placeholderEndsTheMask();
    void newPlaceholderReplacesTheShownOne();
    void newPlaceholderLeavesTypedTextAlone();
    void placeholderIsDrawnGreyAndInTheMiddle();
    void nothingLeaks();
};

void TestRaPsWdLineEdit::declaresOneSlot()
{
    const QMetaObject& meta = raPsWdLineEdit::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList());
    QCOMPARE(slotsOf(meta), QStringList(QLatin1String("slotLineEditChanged(QString)")));
    QCOMPARE(meta.superClass(), &QLineEdit::staticMetaObject);
}

void TestRaPsWdLineEdit::looksAreTheExactStyleSheets()
{
    raPsWdLineEdit edit;
    edit.setLineEditSheetStyle(true);
    QCOMPARE(edit.styleSheet(), QString::fromLatin1(GreyLook));
    edit.setLineEditSheetStyle(false);
    QCOMPARE(edit.styleSheet(), QString::fromLatin1(WhiteLook));
}

void TestRaPsWdLineEdit::lookFollowsTheText()
{
    raPsWdLineEdit edit;
    edit.setplaceholdertext(placeholder());
    QCOMPARE(edit.styleSheet(), QString::fromLatin1(GreyLook));
    edit.setText(QString::fromLatin1("a"));
    QCOMPARE(edit.styleSheet(), QString::fromLatin1(WhiteLook));
    edit.clear();
    edit.setPlaceholdertextStatus();
    QCOMPARE(edit.styleSheet(), QString::fromLatin1(GreyLook));
}

void TestRaPsWdLineEdit::placeholderIsRealText()
{
    raPsWdLineEdit edit;
    edit.setplaceholdertext(placeholder());
    QCOMPARE(edit.text(), placeholder());
    QCOMPARE(edit.cursorPosition(), 0);
    QCOMPARE(edit.echoMode(), QLineEdit::Normal);
    QVERIFY(edit.getIsPlaceholderText());
    edit.setText(QString::fromLatin1("a"));
    QVERIFY(!edit.getIsPlaceholderText());
}

void TestRaPsWdLineEdit::placeholderIsShownOnlyWhenEmpty()
{
    raPsWdLineEdit edit;
    edit.setplaceholdertext(placeholder());
    edit.setText(QString::fromLatin1("a"));
    edit.setPlaceholdertextStatus();
    QCOMPARE(edit.text(), QString::fromLatin1("a"));
    edit.clear();
    QVERIFY(!edit.getIsPlaceholderText());
    edit.setPlaceholdertextStatus();
    QVERIFY(edit.getIsPlaceholderText());
}

void TestRaPsWdLineEdit::placeholderEndsTheMask()
{
    raPsWdLineEdit edit;
    edit.setplaceholdertext(placeholder());
    edit.setText(QString::fromLatin1("a"));
    edit.setEchoMode(QLineEdit::Password);
    edit.setPlaceholdertextStatus();
    QCOMPARE(edit.echoMode(), QLineEdit::Password);
    edit.clear();
    edit.setPlaceholdertextStatus();
    QCOMPARE(edit.echoMode(), QLineEdit::Normal);
}

void TestRaPsWdLineEdit::newPlaceholderReplacesTheShownOne()
{
    raPsWdLineEdit edit;
    edit.setplaceholdertext(placeholder());
    edit.setplaceholdertext(QString::fromLatin1("password"));
    QCOMPARE(edit.text(), QString::fromLatin1("password"));
    QVERIFY(edit.getIsPlaceholderText());
}

void TestRaPsWdLineEdit::newPlaceholderLeavesTypedTextAlone()
{
    raPsWdLineEdit edit;
    edit.setText(QString::fromLatin1("typed"));
    edit.setplaceholdertext(placeholder());
    QCOMPARE(edit.text(), QString::fromLatin1("typed"));
}

void TestRaPsWdLineEdit::placeholderIsDrawnGreyAndInTheMiddle()
{
    raPsWdLineEdit edit;
    edit.resize(300, 42);
    edit.setplaceholdertext(placeholder());
    const QImage picture = pictureOf(&edit);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 12; x < picture.width() - 12; ++x) {
            if (qGray(picture.pixel(x, y)) > 90) {
                QVERIFY(qGray(picture.pixel(x, y)) <= qGray(QColor(Qt::gray).rgb()));
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(ink.height() > 10 && ink.left() < 24);
    QVERIFY2(qAbs(ink.center().y() - 20) <= 2, QByteArray::number(ink.center().y()).constData());
}

void TestRaPsWdLineEdit::nothingLeaks()
{
    const long growth = heapGrowth([] {
        raPsWdLineEdit edit;
        edit.setplaceholdertext(placeholder());
        edit.setText(QString::fromLatin1("a"));
    });
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
}

QTEST_MAIN(TestRaPsWdLineEdit)
#include "tst_rapswdlineedit.moc"
