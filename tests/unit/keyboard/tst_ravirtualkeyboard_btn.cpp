// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ravirtualkeyboard_btn.h"

#include "keyboarddriver.h"
#include "loggedmessages.h"

#include <QAccessible>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleOptionFocusRect>
#include <QStyleOptionFrame>
#include <QtTest>

namespace {

const char kGrey[] = "QPushButton{background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"
                     "border:1px solid rgba(0,0,0,0%);border-radius:10px;}";
const char kPink[] = "QPushButton{background-color: rgba(248, 129, 133,100%);font-size:28px;color:white;"
                     "border:1px solid rgba(0,0,0,0%);border-radius:10px;}";

// A key of the size that the keyboard gives it.
struct Key : RaVirtualKeyboard_Btn
{
    Key() : RaVirtualKeyboard_Btn(nullptr), reported(this, SIGNAL(clicked(QString)))
    {
        resize(59, 31);
        updateStyle(false);
    }

    QString shown() const { return text(); }
    QString lastReport() const { return reported.last().at(0).toString(); }

    QSignalSpy reported;
};

void sendKey(QWidget* widget, QEvent::Type type, int key, bool autoRepeat = false)
{
    QKeyEvent event(type, key, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(widget, &event);
}

} // namespace

// Deletes the key that it hears from.
class Deleter : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void recClick() { delete sender(); }
};

class TestRaVirtualKeyboardBtn : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void freshKey();
    void declaresItsSignalsAndSlotsInOrder();

    void keyTextAndShownTextByType_data();
    void keyTextAndShownTextByType();
    void changeOfTypeBlanksTheShownTextOfPictureKeysOnly_data();
    void changeOfTypeBlanksTheShownTextOfPictureKeysOnly();
    void styleSheetOfEachState_data();
    void styleSheetOfEachState();

    void releaseReportsOnlyInsideTheKey_data();
    void releaseReportsOnlyInsideTheKey();
    void reportsItsKeyTextWhateverItsType_data();
    void reportsItsKeyTextWhateverItsType();
    void secondClickWithinTheGuardIsIgnored();
    void guardEndsWithItsTimer();
    void holdTimerRunsFromPressToRelease();
    void longPressMarkDoesNotStopTheClick();
    void acceptedClickIsLogged();
    void ignoredClickIsNotLogged();
    void qtsOwnClickedFollowsTheRelease();
    void receiverMayChangeTheText();
    void receiverMayDeleteTheKey();

    void onlyTheTogglingTypeToggles_data();
    void onlyTheTogglingTypeToggles();
    void togglesBackWithTheNextClick();
    void releaseOutsideDoesNotToggle();
    void guardedClickDoesNotToggle();
    void storedStateCountsForTheNextToggle();

    void keypadKeysClick_data();
    void keypadKeysClick();
    void assistiveToolClicks_data();
    void assistiveToolClicks();

    void textIsDrawnInsideTheKey_data();
    void textIsDrawnInsideTheKey();
    void wordsAreSmallerThanCharacters();
    void ampersandIsDrawnAsItStands();
    void pressIsVisibleAtOnceAndEndsWithTheRelease();
    void keyboardFocusIsVisibleAndOtherFocusIsNot();
    void allKeysWantTheSameSize();

    void focusFrameIsNeverDrawn();
    void otherPrimitivesAreDrawn();
    void textCursorHasNoWidth();
    void otherMetricsAreTheStyles();
    void allKeysShareOneStyle();

    void changeOfTextAppliesTheStyleSheetAnew();
    void labelShowsItsText();
    void labelAppliesItsStyleSheetAnew();
    void labelIsCleared();
    void labelHasNoWindowFlags();
};

void TestRaVirtualKeyboardBtn::freshKey()
{
    QWidget parent;
    RaVirtualKeyboard_Btn key(&parent);
    QCOMPARE(key.parentWidget(), &parent);
    QCOMPARE(key.getText(), QString());
    QCOMPARE(key.text(), QString());
    QVERIFY(key.styleSheet().isEmpty());
    QVERIFY(key.style()->inherits("RaVirtualKeyboard_ProxyStyle"));
    QCOMPARE(key.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));
    const QList<QTimer*> timers = key.findChildren<QTimer*>();
    QCOMPARE(int(timers.size()), 2);
    QVERIFY(!timers.at(0)->isActive());
    QVERIFY(!timers.at(1)->isActive());

    key.setText(QLatin1String("x"));
    QCOMPARE(key.text(), QString::fromLatin1("x")); // of the type that shows its text
}

void TestRaVirtualKeyboardBtn::declaresItsSignalsAndSlotsInOrder()
{
    QCOMPARE(declaredMethods(RaVirtualKeyboard_Btn::staticMetaObject, QMetaMethod::Signal),
             QStringList() << QLatin1String("clicked(QString)"));
    QCOMPARE(declaredMethods(RaVirtualKeyboard_Btn::staticMetaObject, QMetaMethod::Slot),
             QStringList() << QLatin1String("updatePressStatus()") << QLatin1String("pressOnSlot()"));
    QCOMPARE(declaredMethods(RairtualKeyboard_Lb::staticMetaObject, QMetaMethod::Signal), QStringList());
    QCOMPARE(declaredMethods(RairtualKeyboard_Lb::staticMetaObject, QMetaMethod::Slot),
             QStringList() << QLatin1String("clear()"));
    QCOMPARE(RaVirtualKeyboard_ProxyStyle::staticMetaObject.methodCount(), QProxyStyle::staticMetaObject.methodCount());
    QCOMPARE(QByteArray(RaVirtualKeyboard_ProxyStyle::staticMetaObject.className()),
             QByteArray("RaVirtualKeyboard_ProxyStyle"));
}

void TestRaVirtualKeyboardBtn::keyTextAndShownTextByType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("shown");
    QTest::newRow("IMAGEBTN") << 0 << QString();
    QTest::newRow("TEXTBTN") << 1 << QString::fromLatin1("q");
    QTest::newRow("SWITCHBTN") << 2 << QString();
    QTest::newRow("SWITCHIMAGEBTN") << 3 << QString();
    QTest::newRow("any other number") << 9 << QString::fromLatin1("q");
}

void TestRaVirtualKeyboardBtn::keyTextAndShownTextByType()
{
    QFETCH(int, type);
    QFETCH(QString, shown);
    Key key;
    key.setText(QLatin1String("before"));
    key.setType(static_cast<KEYBOARDTYPE>(type));
    key.setText(QLatin1String("q"));
    QCOMPARE(key.shown(), shown);
    QCOMPARE(key.getText(), QString::fromLatin1("q"));
}

void TestRaVirtualKeyboardBtn::changeOfTypeBlanksTheShownTextOfPictureKeysOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("shown");
    QTest::newRow("IMAGEBTN") << 0 << QString();
    QTest::newRow("TEXTBTN") << 1 << QString::fromLatin1("q");
    QTest::newRow("SWITCHBTN keeps it") << 2 << QString::fromLatin1("q");
    QTest::newRow("SWITCHIMAGEBTN") << 3 << QString();
}

void TestRaVirtualKeyboardBtn::changeOfTypeBlanksTheShownTextOfPictureKeysOnly()
{
    QFETCH(int, type);
    QFETCH(QString, shown);
    Key key;
    key.setText(QLatin1String("q"));
    key.setType(static_cast<KEYBOARDTYPE>(type));
    QCOMPARE(key.shown(), shown);
    QCOMPARE(key.getText(), QString::fromLatin1("q"));
}

void TestRaVirtualKeyboardBtn::styleSheetOfEachState_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("unchecked") << false << QString::fromLatin1(kGrey);
    QTest::newRow("checked") << true << QString::fromLatin1(kPink);
}

void TestRaVirtualKeyboardBtn::styleSheetOfEachState()
{
    QFETCH(bool, checked);
    QFETCH(QString, sheet);
    Key key;
    const QList<QByteArray> messages = loggedMessages([&] { key.updateStyle(checked); });
    QCOMPARE(key.styleSheet(), sheet);
    QCOMPARE(int(messages.size()), 2); // before the change and after it
    const QRgb middle = pictureOf(&key).pixel(5, 15);
    QCOMPARE(QColor(middle), checked ? QColor(248, 129, 133) : QColor(54, 54, 54));
}

void TestRaVirtualKeyboardBtn::releaseReportsOnlyInsideTheKey_data()
{
    QTest::addColumn<QPoint>("pos");
    QTest::addColumn<int>("reports");
    QTest::newRow("middle") << QPoint(30, 15) << 1;
    QTest::newRow("left top corner") << QPoint(0, 0) << 1;
    QTest::newRow("right edge") << QPoint(59, 15) << 1;
    QTest::newRow("lower edge") << QPoint(30, 31) << 1;
    QTest::newRow("left of it") << QPoint(-1, 15) << 0;
    QTest::newRow("above it") << QPoint(30, -1) << 0;
    QTest::newRow("right of it") << QPoint(60, 15) << 0;
    QTest::newRow("below it") << QPoint(30, 32) << 0;
}

void TestRaVirtualKeyboardBtn::releaseReportsOnlyInsideTheKey()
{
    QFETCH(QPoint, pos);
    QFETCH(int, reports);
    Key key;
    key.setText(QLatin1String("a"));
    press(&key);
    sendMouse(&key, QEvent::MouseButtonRelease, pos);
    QCOMPARE(int(key.reported.size()), reports);
}

void TestRaVirtualKeyboardBtn::reportsItsKeyTextWhateverItsType_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("IMAGEBTN") << 0;
    QTest::newRow("TEXTBTN") << 1;
    QTest::newRow("SWITCHBTN") << 2;
    QTest::newRow("SWITCHIMAGEBTN") << 3;
}

void TestRaVirtualKeyboardBtn::reportsItsKeyTextWhateverItsType()
{
    QFETCH(int, type);
    Key key;
    key.setType(static_cast<KEYBOARDTYPE>(type));
    key.setText(QLatin1String("word"));
    tap(&key);
    QCOMPARE(int(key.reported.size()), 1);
    QCOMPARE(key.lastReport(), QString::fromLatin1("word"));
}

void TestRaVirtualKeyboardBtn::secondClickWithinTheGuardIsIgnored()
{
    Key key;
    press(&key);
    release(&key);
    QTimer* guard = key.findChildren<QTimer*>().at(0);
    QVERIFY(guard->isActive());
    QCOMPARE(guard->interval(), 100);
    press(&key);
    release(&key);
    QCOMPARE(int(key.reported.size()), 1);
}

void TestRaVirtualKeyboardBtn::guardEndsWithItsTimer()
{
    Key key;
    press(&key);
    release(&key);
    QTimer* guard = key.findChildren<QTimer*>().at(0);
    fire(guard);
    QVERIFY(!guard->isActive());
    press(&key);
    release(&key);
    QCOMPARE(int(key.reported.size()), 2);
}

void TestRaVirtualKeyboardBtn::holdTimerRunsFromPressToRelease()
{
    Key key;
    QTimer* hold = key.findChildren<QTimer*>().at(1);
    press(&key);
    QVERIFY(hold->isActive());
    QCOMPARE(hold->interval(), 100);
    fire(hold);
    QCOMPARE(int(key.reported.size()), 0);
    sendMouse(&key, QEvent::MouseButtonRelease, QPoint(-50, -50));
    QVERIFY(!hold->isActive());
}

void TestRaVirtualKeyboardBtn::longPressMarkDoesNotStopTheClick()
{
    Key key;
    press(&key);
    key.pressOnSlot();
    release(&key);
    QCOMPARE(int(key.reported.size()), 1);
}

void TestRaVirtualKeyboardBtn::acceptedClickIsLogged()
{
    Key key;
    key.setText(QLatin1String("!@#"));
    press(&key);
    const QList<QByteArray> messages = loggedMessages([&key] { release(&key); });
    QCOMPARE(int(messages.size()), 2);
    QCOMPARE(messages.at(1), QByteArray("clicked(\"!@#\")"));
}

void TestRaVirtualKeyboardBtn::ignoredClickIsNotLogged()
{
    Key key;
    press(&key);
    const QList<QByteArray> messages =
        loggedMessages([&key] { sendMouse(&key, QEvent::MouseButtonRelease, QPoint(-9, -9)); });
    QCOMPARE(messages, QList<QByteArray>());
}

void TestRaVirtualKeyboardBtn::qtsOwnClickedFollowsTheRelease()
{
    Key key;
    QSignalSpy own(&key, SIGNAL(clicked(bool)));
    press(&key);
    QVERIFY(key.isDown());
    release(&key);
    QVERIFY(!key.isDown());
    QCOMPARE(int(own.size()), 1);
    press(&key);
    release(&key);
    QCOMPARE(int(own.size()), 2); // it knows no guard
    QCOMPARE(int(key.reported.size()), 1);
}

void TestRaVirtualKeyboardBtn::receiverMayChangeTheText()
{
    Key key;
    key.setText(QLatin1String("a"));
    QStringList heard;
    connect(&key, static_cast<void (RaVirtualKeyboard_Btn::*)(const QString&)>(&RaVirtualKeyboard_Btn::clicked),
            [&key](const QString&) { key.setText(QLatin1String("1")); });
    connect(&key, static_cast<void (RaVirtualKeyboard_Btn::*)(const QString&)>(&RaVirtualKeyboard_Btn::clicked),
            [&heard](const QString& text) { heard << text; });
    tap(&key);
    QCOMPARE(heard, QStringList() << QLatin1String("a"));
}

void TestRaVirtualKeyboardBtn::receiverMayDeleteTheKey()
{
    Deleter deleter;
    const QPointer<RaVirtualKeyboard_Btn> key(new RaVirtualKeyboard_Btn(nullptr));
    key->resize(59, 31);
    key->setType(SWITCHBTN);
    connect(key, SIGNAL(clicked(QString)), &deleter, SLOT(recClick()));
    press(key);
    release(key);
    QVERIFY(!key);
}

void TestRaVirtualKeyboardBtn::onlyTheTogglingTypeToggles_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("IMAGEBTN") << 0 << QString::fromLatin1(kGrey);
    QTest::newRow("TEXTBTN") << 1 << QString::fromLatin1(kGrey);
    QTest::newRow("SWITCHBTN") << 2 << QString::fromLatin1(kPink);
    QTest::newRow("SWITCHIMAGEBTN") << 3 << QString::fromLatin1(kGrey);
}

void TestRaVirtualKeyboardBtn::onlyTheTogglingTypeToggles()
{
    QFETCH(int, type);
    QFETCH(QString, sheet);
    Key key;
    key.setType(static_cast<KEYBOARDTYPE>(type));
    tap(&key);
    QCOMPARE(key.styleSheet(), sheet);
}

void TestRaVirtualKeyboardBtn::togglesBackWithTheNextClick()
{
    Key key;
    key.setType(SWITCHBTN);
    tap(&key);
    tap(&key);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kGrey));
    QCOMPARE(int(key.reported.size()), 2);
}

void TestRaVirtualKeyboardBtn::releaseOutsideDoesNotToggle()
{
    Key key;
    key.setType(SWITCHBTN);
    press(&key);
    sendMouse(&key, QEvent::MouseButtonRelease, QPoint(100, 15));
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kGrey));
    tap(&key);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kPink));
}

void TestRaVirtualKeyboardBtn::guardedClickDoesNotToggle()
{
    Key key;
    key.setType(SWITCHBTN);
    press(&key);
    release(&key);
    press(&key);
    release(&key);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kPink));
}

void TestRaVirtualKeyboardBtn::storedStateCountsForTheNextToggle()
{
    Key key;
    key.setType(SWITCHBTN);
    key.setCheckState(true);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kGrey));
    tap(&key);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kGrey));
    tap(&key);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kPink));
}

void TestRaVirtualKeyboardBtn::keypadKeysClick_data()
{
    QTest::addColumn<int>("pressed");
    QTest::addColumn<int>("reports");
    QTest::newRow("space") << static_cast<int>(Qt::Key_Space) << 1;
    QTest::newRow("select") << static_cast<int>(Qt::Key_Select) << 1;
    QTest::newRow("return") << static_cast<int>(Qt::Key_Return) << 1;
    QTest::newRow("enter") << static_cast<int>(Qt::Key_Enter) << 1;
    QTest::newRow("a letter") << static_cast<int>(Qt::Key_A) << 0;
}

void TestRaVirtualKeyboardBtn::keypadKeysClick()
{
    QFETCH(int, pressed);
    QFETCH(int, reports);
    Key key;
    key.setText(QLatin1String("k"));
    sendKey(&key, QEvent::KeyPress, pressed);
    sendKey(&key, QEvent::KeyPress, pressed, true);
    sendKey(&key, QEvent::KeyRelease, pressed);
    QCOMPARE(int(key.reported.size()), reports);
}

void TestRaVirtualKeyboardBtn::assistiveToolClicks_data()
{
    QTest::addColumn<bool>("afterAHold");
    QTest::newRow("a fresh key") << false;
    QTest::newRow("a key that was held before") << true;
}

void TestRaVirtualKeyboardBtn::assistiveToolClicks()
{
    QFETCH(bool, afterAHold);
    Key key;
    key.setText(QLatin1String("k"));
    key.setAutoRepeat(true);
    if (afterAHold) {
        sendKey(&key, QEvent::KeyPress, Qt::Key_Space);
        QTRY_VERIFY(!key.reported.isEmpty()); // it repeats
        sendKey(&key, QEvent::KeyRelease, Qt::Key_Space);
        key.reported.clear();
    }
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&key);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(int(key.reported.size()), 1);
    QCOMPARE(key.lastReport(), QString::fromLatin1("k"));
}

void TestRaVirtualKeyboardBtn::textIsDrawnInsideTheKey_data()
{
    QTest::addColumn<QString>("text");
    for (char c = '!'; c <= '~'; ++c) {
        QTest::newRow(QByteArray(1, c).constData()) << QString(QLatin1Char(c));
    }
    QTest::newRow("abc") << QString::fromLatin1("abc");
    QTest::newRow("ABC") << QString::fromLatin1("ABC");
    QTest::newRow("123") << QString::fromLatin1("123");
    QTest::newRow("!@#") << QString::fromLatin1("!@#");
    QTest::newRow("far too long") << QString::fromLatin1("PushButton");
}

void TestRaVirtualKeyboardBtn::textIsDrawnInsideTheKey()
{
    QFETCH(QString, text);
    for (const QSize& size : {QSize(59, 29), QSize(60, 32)}) {
        Key key;
        key.resize(size);
        key.setText(text);
        const QRect ink = inkOf(pictureOf(&key));
        QVERIFY(!ink.isEmpty());
        QVERIFY2(key.rect().adjusted(1, 1, -1, -1).contains(ink), qPrintable(text));
        QVERIFY(qAbs(ink.center().x() - key.rect().center().x()) <= 3);
    }
}

void TestRaVirtualKeyboardBtn::wordsAreSmallerThanCharacters()
{
    Key character;
    character.setText(QLatin1String("A"));
    Key word;
    word.setText(QLatin1String("ABC"));
    QVERIFY(inkOf(pictureOf(&word)).height() < inkOf(pictureOf(&character)).height());
}

void TestRaVirtualKeyboardBtn::ampersandIsDrawnAsItStands()
{
    Key single;
    single.setText(QLatin1String("&"));
    Key doubled;
    doubled.setText(QLatin1String("&&"));
    QVERIFY(!inkOf(pictureOf(&single)).isEmpty());
    QCOMPARE(inkOf(pictureOf(&single)).height(), inkOf(pictureOf(&doubled)).height());
    QCOMPARE(pictureOf(&single), pictureOf(&doubled));
}

void TestRaVirtualKeyboardBtn::pressIsVisibleAtOnceAndEndsWithTheRelease()
{
    Key key;
    key.setText(QLatin1String("a"));
    const QImage idle = pictureOf(&key);
    press(&key);
    QVERIFY(pictureOf(&key) != idle);
    QCOMPARE(key.styleSheet(), QString::fromLatin1(kGrey));
    release(&key);
    QCOMPARE(pictureOf(&key), idle);
}

void TestRaVirtualKeyboardBtn::keyboardFocusIsVisibleAndOtherFocusIsNot()
{
    QWidget window;
    RaVirtualKeyboard_Btn key(&window);
    key.resize(59, 31);
    key.updateStyle(false);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    key.clearFocus();
    const QImage idle = pictureOf(&key);
    key.setFocus();
    QVERIFY(key.hasFocus());
    QCOMPARE(pictureOf(&key), idle);
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    QVERIFY(pictureOf(&key) != idle);
}

void TestRaVirtualKeyboardBtn::allKeysWantTheSameSize()
{
    Key narrow;
    narrow.setText(QLatin1String("i"));
    Key wide;
    wide.setText(QLatin1String("!@#"));
    QCOMPARE(narrow.sizeHint(), wide.sizeHint());
    QCOMPARE(narrow.minimumSizeHint(), wide.minimumSizeHint());
}

void TestRaVirtualKeyboardBtn::focusFrameIsNeverDrawn()
{
    QWidget widget;
    widget.resize(60, 30);
    QStyleOptionFocusRect option;
    option.initFrom(&widget);
    option.state |= QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    QImage blank(60, 30, QImage::Format_RGB32);
    blank.fill(Qt::white);
    QImage image = blank;
    QPainter painter(&image);
    RaVirtualKeyboard_ProxyStyle style;
    style.drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
    painter.end();
    QCOMPARE(image, blank);
}

void TestRaVirtualKeyboardBtn::otherPrimitivesAreDrawn()
{
    QWidget widget;
    widget.resize(60, 30);
    QStyleOptionFrame option;
    option.initFrom(&widget);
    option.lineWidth = 2;
    QImage blank(60, 30, QImage::Format_RGB32);
    blank.fill(Qt::white);
    QImage image = blank;
    QPainter painter(&image);
    RaVirtualKeyboard_ProxyStyle style;
    style.drawPrimitive(QStyle::PE_Frame, &option, &painter, &widget);
    painter.end();
    QVERIFY(image != blank);
}

void TestRaVirtualKeyboardBtn::textCursorHasNoWidth()
{
    RaVirtualKeyboard_ProxyStyle style;
    QCOMPARE(style.pixelMetric(QStyle::PM_TextCursorWidth), 0);
    QVERIFY(style.baseStyle()->pixelMetric(QStyle::PM_TextCursorWidth) != 0);
}

void TestRaVirtualKeyboardBtn::otherMetricsAreTheStyles()
{
    RaVirtualKeyboard_ProxyStyle style;
    const int scrollBar = style.baseStyle()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QVERIFY(scrollBar > 0);
    QCOMPARE(style.pixelMetric(QStyle::PM_ScrollBarExtent), scrollBar);
}

void TestRaVirtualKeyboardBtn::allKeysShareOneStyle()
{
    RaVirtualKeyboard_Btn one(nullptr);
    {
        RaVirtualKeyboard_Btn other(nullptr);
        QCOMPARE(one.style(), other.style());
    }
    QCOMPARE(one.style(), static_cast<QStyle*>(RaVirtualKeyboard_ProxyStyle::shared()));
    QCOMPARE(one.style()->parent(), static_cast<QObject*>(qApp));
}

void TestRaVirtualKeyboardBtn::labelShowsItsText()
{
    QWidget parent;
    RairtualKeyboard_Lb label(&parent);
    QCOMPARE(label.parentWidget(), &parent);
    label.setText(QLatin1String("abc"));
    QCOMPARE(label.text(), QString::fromLatin1("abc"));
}

void TestRaVirtualKeyboardBtn::changeOfTextAppliesTheStyleSheetAnew()
{
    Key key;
    key.setStyleSheet(QLatin1String("QPushButton{color:white} QPushButton[text=\"q\"]{color:red}"
                                    "QPushButton[text=\"\"]{color:blue}"));
    key.setText(QLatin1String("p"));
    QCOMPARE(key.palette().color(QPalette::ButtonText), QColor(Qt::white));
    key.setText(QLatin1String("q"));
    QCOMPARE(key.palette().color(QPalette::ButtonText), QColor(Qt::red));
    key.setType(IMAGEBTN);
    key.setText(QLatin1String("q"));
    QCOMPARE(key.palette().color(QPalette::ButtonText), QColor(Qt::blue));
}

void TestRaVirtualKeyboardBtn::labelAppliesItsStyleSheetAnew()
{
    RairtualKeyboard_Lb label(nullptr);
    label.setStyleSheet(
        QLatin1String("QLabel{color:white} QLabel[text=\"q\"]{color:red} QLabel[text=\"\"]{color:blue}"));
    label.setText(QLatin1String("p"));
    QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::white));
    label.setText(QLatin1String("q"));
    QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::red));
    label.clear();
    QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::blue));
}

void TestRaVirtualKeyboardBtn::labelIsCleared()
{
    RairtualKeyboard_Lb label(nullptr);
    label.setText(QLatin1String("abc"));
    QVERIFY(QMetaObject::invokeMethod(&label, "clear"));
    QCOMPARE(label.text(), QString());
}

void TestRaVirtualKeyboardBtn::labelHasNoWindowFlags()
{
    QWidget parent;
    RairtualKeyboard_Lb label(&parent);
    QCOMPARE(label.windowType(), Qt::Widget);
    QCOMPARE(label.windowFlags(), QLabel(&parent).windowFlags());
}

QTEST_MAIN(TestRaVirtualKeyboardBtn)
#include "tst_ravirtualkeyboard_btn.moc"
