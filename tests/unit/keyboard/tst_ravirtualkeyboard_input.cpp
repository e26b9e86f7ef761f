// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ravirtualkeyboard.h"

#include "keyboarddriver.h"
#include "loggedmessages.h"

#include <QAbstractEventDispatcher>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPair>
#include <QSignalSpy>
#include <QTouchEvent>
#include <QtTest>

// No call of the keyboard clears the flag for more symbol pages, so it is reached for: an explicit
// instantiation may name private members.
QMap<int, bool>& flagsOf(RaVirtualKeyboard& keyboard);
template<QMap<int, bool> RaVirtualKeyboard::*Flags>
struct FlagsAccess
{
    friend QMap<int, bool>& flagsOf(RaVirtualKeyboard& keyboard) { return keyboard.*Flags; }
};
template struct FlagsAccess<&RaVirtualKeyboard::mode_flag_map_>;

namespace {

struct Keyboard : RaVirtualKeyboard
{
    Keyboard() : RaVirtualKeyboard(nullptr) { show(QString(), QLatin1String("field")); }

    RaVirtualKeyboard_Btn* key(const char* name) const { return keyNamed(*this, name); }

    QString typedText() const
    {
        QString text;
        for (const QList<QVariant>& arguments : typed) {
            text += arguments.at(0).toString();
        }
        return text;
    }

    void click(const QString& keyText) { recKeyClicked(keyText); }
    void click(const char* keyText) { recKeyClicked(QLatin1String(keyText)); }

    QSignalSpy typed{this, SIGNAL(changedOutSideTextSignal(QString, QString))};
    QSignalSpy steps{this, SIGNAL(sendKeyboardMoveStep(bool, int))};
    QSignalSpy digits{this, SIGNAL(sendKeyboardNumber())};
    QSignalSpy symbols{this, SIGNAL(sendKeyboardSymbol())};
    QSignalSpy letters{this, SIGNAL(sendKeyboardCharacter())};
};

// A finger that is down on \a widget and moves up or down, wherever the widget goes meanwhile.
class Finger
{
public:
    explicit Finger(QWidget* widget) : m_widget(widget), m_screen(widget->mapToGlobal(widget->rect().center()))
    {
        send(QEvent::MouseButtonPress);
    }
    void move(int dx, int dy)
    {
        m_screen += QPoint(dx, dy);
        send(QEvent::MouseMove);
    }
    void moveInSteps(int steps, int dy)
    {
        for (int i = 0; i < steps; ++i) {
            move(0, dy);
        }
    }
    void backToTheKey() { m_screen = m_widget->mapToGlobal(m_widget->rect().center()); }
    void lift() { send(QEvent::MouseButtonRelease); }

private:
    void send(QEvent::Type type) { sendMouse(m_widget, type, m_widget->mapFromGlobal(m_screen)); }

    QWidget* m_widget;
    QPoint m_screen;
};

auto newTouches(QWidget* widget)
{
    static auto* const device = QTest::createTouchDevice();
    return QTest::touchEvent(widget, device, false);
}

// Fingers on a screen that tells them apart; each stays where it is until it is lifted.
class TouchScreen
{
public:
    explicit TouchScreen(QWidget* window) : m_touches(newTouches(window)) {}
    void press(QWidget* widget)
    {
        others();
        m_touches.press(m_next, widget->rect().center(), widget).commit();
        m_down << qMakePair(m_next++, widget);
    }
    /** Moves the only finger to \a dy pixels below the place where it came down. */
    void moveTo(int dy)
    {
        const QPair<int, QWidget*> finger = m_down.last();
        m_touches.move(finger.first, finger.second->rect().center() + QPoint(0, dy), finger.second).commit();
    }
    /** Lifts the finger that has been on \a widget longest. */
    void release(QWidget* widget)
    {
        for (int i = 0; i < int(m_down.size()); ++i) {
            if (m_down.at(i).second == widget) {
                lift(i);
                return;
            }
        }
    }
    void releaseAll()
    {
        while (!m_down.isEmpty()) {
            lift(0);
        }
    }

private:
    void others()
    {
        for (const QPair<int, QWidget*>& finger : m_down) {
            m_touches.stationary(finger.first);
        }
    }
    void lift(int index)
    {
        const QPair<int, QWidget*> finger = m_down.takeAt(index);
        others();
        m_touches.release(finger.first, finger.second->rect().center(), finger.second).commit();
    }

    decltype(newTouches(nullptr)) m_touches;
    QList<QPair<int, QWidget*>> m_down;
    int m_next = 0;
};

// The interval and the number of the only timer that \a object runs itself; both 0 when there is none.
QAbstractEventDispatcher::TimerInfo runningTimer(QObject* object)
{
    const QList<QAbstractEventDispatcher::TimerInfo> timers =
        QAbstractEventDispatcher::instance()->registeredTimers(object);
    return timers.isEmpty() ? QAbstractEventDispatcher::TimerInfo(0, 0, Qt::CoarseTimer) : timers.first();
}

void fireRepeat(QObject* object)
{
    QTimerEvent event(runningTimer(object).timerId);
    QApplication::sendEvent(object, &event);
}

void sendFocus(QWidget* widget, QEvent::Type type, Qt::FocusReason reason)
{
    QFocusEvent event(type, reason);
    QApplication::sendEvent(widget, &event);
}

} // namespace

// Moves the keyboard along with the finger, as a page does.
class Mover : public QObject
{
    Q_OBJECT
public:
    explicit Mover(QWidget* moved) : m_moved(moved)
    {
        connect(moved, SIGNAL(sendKeyboardMoveStep(bool, int)), this, SLOT(recStep(bool, int)));
    }
public Q_SLOTS:
    void recStep(bool isUP, int moveValue)
    {
        m_moved->move(m_moved->x(), m_moved->y() + (isUP ? -moveValue : moveValue));
    }

private:
    QWidget* m_moved;
};

class TestRaVirtualKeyboardInput : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresItsSignalsAndSlotsInOrder();

    void characterIsHandedOverInItsOwnCase_data();
    void characterIsHandedOverInItsOwnCase();
    void nothingIsKeptBetweenClicks();
    void textGoesToTheFieldNamedLast();
    void specialKeyActs_data();
    void specialKeyActs();
    void unknownTextDoesNothing_data();
    void unknownTextDoesNothing();
    void doubledAmpersandIsOneAmpersand();
    void backspaceIsHandedOverByName();
    void nextPageStopsAtFive();
    void nextPageStopsAtTwoWithoutMoreSymbolPages();
    void symbolKeyLeadsBackFromTheSecondSymbolPage();
    void digitKeyTogglesTheLetterModeOnce();
    void returnToLettersKeepsTheirCase();
    void flagChangesAreLogged();
    void dispatchIsLogged_data();
    void dispatchIsLogged();
    void clearBufferOnlyLogs();

    void stepIsFourPixels_data();
    void stepIsFourPixels();
    void dragReportsDirectionAndDistance();
    void shortDragStillClicks();
    void longDragMutesTheKeysUntilItsTimerFires();
    void mutedClickIsLogged();
    void mutedKeyKeepsItsLook();
    void tapsDoNotMakeTheMuteLonger();
    void newDragStartsTheMuteAnew();
    void updatePressStatusUnmutes();
    void tremblingIsNoDrag();
    void movingSidewaysIsNoDrag();
    void jumpingPointerIsOneStep();
    void dragWithoutAPressIsNone();
    void restingFingerOnlyWobbled();
    void touchDragsToo();
    void dragStartsInAGapToo();
    void dragStartsWithASecondTapToo();
    void dragIsMeasuredOnTheScreen();
    void hidingEndsADrag();

    void twoFingersTypeEachKeyOnce_data();
    void twoFingersTypeEachKeyOnce();
    void twoFingersTouchEachKeyOnce_data();
    void twoFingersTouchEachKeyOnce();
    void touchThatIsTakenBackTypesNothing();
    void doubleClickEventsAreTwoTaps();
    void pageChangeUnderAFingerTypesNothingUnseen();
    void hidingLetsAHeldKeyGo_data();
    void hidingLetsAHeldKeyGo();

    void backspaceTapIsOneEvent();
    void backspaceHeldRepeats();
    void backspaceReleaseAfterRepeatsAddsNothing();
    void backspaceTapAfterAHoldCounts();
    void otherKeysDoNotRepeat();
    void keyboardBeingDraggedDoesNotRepeat();

    void showTakesTextAndName();
    void watchedEditShowsTheKeyboard_data();
    void watchedEditShowsTheKeyboard();
    void focusLossHidesOnlyWithAutoHide_data();
    void focusLossHidesOnlyWithAutoHide();
    void focusGoingToAKeyDoesNotHide();
    void watchedObjectsStillGetTheirEvents();
    void watchingNothingIsAllowed();
};

void TestRaVirtualKeyboardInput::declaresItsSignalsAndSlotsInOrder()
{
    QCOMPARE(declaredMethods(RaVirtualKeyboard::staticMetaObject, QMetaMethod::Signal),
             QStringList() << QLatin1String("sendKeyboardMoveStep(bool,int)") << QLatin1String("sendKeyboardNumber()")
                           << QLatin1String("sendKeyboardSymbol()") << QLatin1String("sendKeyboardCharacter()")
                           << QLatin1String("changedOutSideTextSignal(QString,QString)"));
    QCOMPARE(declaredMethods(RaVirtualKeyboard::staticMetaObject, QMetaMethod::Slot),
             QStringList() << QLatin1String("recKeyClicked(QString)") << QLatin1String("show(QString,QString)")
                           << QLatin1String("show()") << QLatin1String("updatePressStatus()"));
}

void TestRaVirtualKeyboardInput::characterIsHandedOverInItsOwnCase_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("lower") << QString::fromLatin1("a");
    QTest::newRow("upper") << QString::fromLatin1("A");
    QTest::newRow("digit") << QString::fromLatin1("7");
    QTest::newRow("ampersand") << QString::fromLatin1("&");
    QTest::newRow("blank") << QString::fromLatin1(" ");
}

void TestRaVirtualKeyboardInput::characterIsHandedOverInItsOwnCase()
{
    QFETCH(QString, text);
    Keyboard keyboard;
    keyboard.click(text);
    QCOMPARE(int(keyboard.typed.size()), 1);
    QCOMPARE(keyboard.typed.at(0).at(0).toString(), text);
    QCOMPARE(keyboard.typed.at(0).at(1).toString(), QString::fromLatin1("field"));
}

void TestRaVirtualKeyboardInput::nothingIsKeptBetweenClicks()
{
    Keyboard keyboard;
    tap(keyboard.key("btn2_01"));
    tap(keyboard.key("btn2_02"));
    QCOMPARE(int(keyboard.typed.size()), 2);
    QCOMPARE(keyboard.typed.at(1).at(0).toString(), QString::fromLatin1("b"));
}

void TestRaVirtualKeyboardInput::textGoesToTheFieldNamedLast()
{
    Keyboard keyboard;
    keyboard.show(QLatin1String("typed before"), QLatin1String("other"));
    keyboard.click("x");
    keyboard.click("BS");
    QCOMPARE(keyboard.typed.at(0).at(1).toString(), QString::fromLatin1("other"));
    QCOMPARE(keyboard.typed.at(1).at(1).toString(), QString::fromLatin1("other"));
}

void TestRaVirtualKeyboardInput::specialKeyActs_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("keyText");
    QTest::addColumn<QString>("firstKey"); // of row 2 afterwards
    QTest::addColumn<int>("digits");
    QTest::addColumn<int>("symbols");
    QTest::addColumn<int>("letters");
    const auto add = [](const char* name, const char* before, const char* keyText, const char* firstKey, int digits,
                        int symbols, int letters) {
        QTest::newRow(name) << QString::fromLatin1(before).split(QLatin1Char(' ')) << QString::fromLatin1(keyText)
                            << QString::fromLatin1(firstKey) << digits << symbols << letters;
    };
    add("ABC on the letters", "", "ABC", "A", 0, 0, 0);
    add("abc on the letters", "", "abc", "A", 0, 0, 0);
    add("aBc is ABC", "", "aBc", "A", 0, 0, 0);
    add("ABC twice", "ABC", "ABC", "a", 0, 0, 0);
    add("123 on the letters", "", "123", "1", 1, 0, 0);
    add("123 on the digits", "123", "123", "1", 0, 0, 0);
    add("123 on the symbols", "!@#", "123", "1", 1, 0, 0);
    add("abc on the digits", "123", "abc", "a", 0, 0, 1);
    add("ABC on the symbols", "!@#", "ABC", "a", 0, 0, 1);
    add("ABC on the second symbols", "!@# RI", "ABC", "a", 0, 0, 1);
    add("!@# on the letters", "", "!@#", "", 0, 1, 0);
    add("!@# on the symbols", "!@#", "!@#", "", 0, 0, 0);
    add("!@# on the second symbols", "!@# RI", "!@#", "", 0, 1, 0);
    add("RI on the symbols", "!@#", "RI", "<", 0, 1, 0);
    add("ri is RI", "!@#", "ri", "<", 0, 1, 0);
    add("RI on the letters", "", "RI", "1", 1, 0, 0);
    add("RI on the digits", "123", "RI", "", 0, 1, 0);
    add("RI on page 5", "!@# RI RI RI", "RI", "<", 0, 0, 0);
}

void TestRaVirtualKeyboardInput::specialKeyActs()
{
    QFETCH(QStringList, before);
    QFETCH(QString, keyText);
    QFETCH(QString, firstKey);
    QFETCH(int, digits);
    QFETCH(int, symbols);
    QFETCH(int, letters);
    Keyboard keyboard;
    for (const QString& text : before) {
        keyboard.click(text);
    }
    keyboard.digits.clear();
    keyboard.symbols.clear();
    keyboard.letters.clear();
    keyboard.click(keyText);
    QCOMPARE(keyboard.key("btn2_01")->getText(), firstKey);
    QCOMPARE(int(keyboard.digits.size()), digits);
    QCOMPARE(int(keyboard.symbols.size()), symbols);
    QCOMPARE(int(keyboard.letters.size()), letters);
    QCOMPARE(int(keyboard.typed.size()), 0);
}

void TestRaVirtualKeyboardInput::unknownTextDoesNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("ok") << QString::fromLatin1("ok");
    QTest::newRow("OK") << QString::fromLatin1("OK");
    QTest::newRow("hi") << QString::fromLatin1("hi");
    QTest::newRow("word") << QString::fromLatin1("word");
}

void TestRaVirtualKeyboardInput::unknownTextDoesNothing()
{
    QFETCH(QString, text);
    Keyboard keyboard;
    keyboard.click(text);
    QCOMPARE(int(keyboard.typed.size()), 0);
    QVERIFY(keyboard.isVisible());
    QCOMPARE(keyboard.key("btn2_01")->getText(), QString::fromLatin1("a"));
}

void TestRaVirtualKeyboardInput::doubledAmpersandIsOneAmpersand()
{
    Keyboard keyboard;
    keyboard.click("&&");
    QCOMPARE(int(keyboard.typed.size()), 1);
    QCOMPARE(keyboard.typed.at(0).at(0).toString(), QString::fromLatin1("&"));
}

void TestRaVirtualKeyboardInput::backspaceIsHandedOverByName()
{
    Keyboard keyboard;
    keyboard.click("b");
    keyboard.click("bs");
    QCOMPARE(int(keyboard.typed.size()), 2);
    QCOMPARE(keyboard.typed.at(1).at(0).toString(), QString::fromLatin1("BS"));
}

// The page number shows in how many steps the way up still has.
void TestRaVirtualKeyboardInput::nextPageStopsAtFive()
{
    Keyboard keyboard;
    keyboard.click("!@#");
    keyboard.symbols.clear();
    for (int i = 0; i < 10; ++i) {
        keyboard.click("RI");
    }
    QCOMPARE(int(keyboard.symbols.size()), 3);
}

void TestRaVirtualKeyboardInput::nextPageStopsAtTwoWithoutMoreSymbolPages()
{
    Keyboard keyboard;
    flagsOf(keyboard)[0] = false;
    for (int i = 0; i < 10; ++i) {
        keyboard.click("RI");
    }
    QCOMPARE(int(keyboard.digits.size()), 1);
    QCOMPARE(int(keyboard.symbols.size()), 1);
    QCOMPARE(keyboard.key("btn2_02")->getText(), QString::fromLatin1("."));
}

void TestRaVirtualKeyboardInput::symbolKeyLeadsBackFromTheSecondSymbolPage()
{
    Keyboard keyboard;
    tap(keyboard.key("btn1_04"));
    tap(keyboard.key("btn7_03"));
    QCOMPARE(keyboard.key("btn2_01")->getText(), QString::fromLatin1("<"));
    tap(keyboard.key("btn1_04"));
    QCOMPARE(keyboard.key("btn2_02")->getText(), QString::fromLatin1("."));
}

void TestRaVirtualKeyboardInput::digitKeyTogglesTheLetterModeOnce()
{
    Keyboard keyboard;
    const auto letterMode = [&keyboard] {
        const QList<QByteArray> messages = loggedMessages([&keyboard] { keyboard.switchLetterStatus(); });
        return messages.contains("...mode_flag_map_[1]=1");
    };
    keyboard.click("123");
    QVERIFY(!letterMode());
    keyboard.click("123");
    QVERIFY(!letterMode());
    keyboard.click("!@#");
    keyboard.click("123");
    QVERIFY(letterMode());
    keyboard.click("!@#");
    keyboard.click("123");
    QVERIFY(!letterMode());
    keyboard.click("abc");
    QVERIFY(letterMode());
}

void TestRaVirtualKeyboardInput::returnToLettersKeepsTheirCase()
{
    Keyboard keyboard;
    keyboard.click("ABC");
    keyboard.click("123");
    keyboard.click("ABC");
    QCOMPARE(keyboard.key("btn2_01")->getText(), QString::fromLatin1("A"));
    keyboard.click("abc");
    QCOMPARE(keyboard.key("btn2_01")->getText(), QString::fromLatin1("a"));
}

void TestRaVirtualKeyboardInput::flagChangesAreLogged()
{
    Keyboard keyboard;
    const QList<QByteArray> messages = loggedMessages([&keyboard] { keyboard.switchLetterStatus(); });
    QVERIFY(messages.contains("...mode_flag_map_[0]=1"));
    QVERIFY(messages.contains("...mode_flag_map_[1]=1"));
    QVERIFY(messages.contains("...mode_flag_map_[2]=0"));
    QVERIFY(messages.contains("...new value mode_flag_map_[2] = 1"));
}

void TestRaVirtualKeyboardInput::dispatchIsLogged_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("lower case letter") << QString::fromLatin1("a") << QByteArray("true");
    QTest::newRow("upper case letter") << QString::fromLatin1("A") << QByteArray("false");
    QTest::newRow("special key in upper case") << QString::fromLatin1("abc") << QByteArray("---------------- ABC");
    QTest::newRow("page number") << QString::fromLatin1("123") << QByteArray("symbal_page_ = 1");
}

void TestRaVirtualKeyboardInput::dispatchIsLogged()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, message);
    Keyboard keyboard;
    const QByteArray log = capturedOutput(stderr, [&] { keyboard.click(text); });
    QVERIFY(log.contains(": (recKeyClicked)]  "));
    QVERIFY2(log.contains(")]  " + message + "\033[0m\n"), log.constData());
}

void TestRaVirtualKeyboardInput::clearBufferOnlyLogs()
{
    Keyboard keyboard;
    const QList<QByteArray> messages = loggedMessages([&keyboard] { keyboard.clearBuffer(); });
    QCOMPARE(int(messages.size()), 1);
    QCOMPARE(int(keyboard.typed.size()), 0);
}

void TestRaVirtualKeyboardInput::stepIsFourPixels_data()
{
    QTest::addColumn<int>("pixels");
    QTest::addColumn<int>("steps");
    QTest::newRow("3 up") << -3 << 0;
    QTest::newRow("4 up") << -4 << 1;
    QTest::newRow("3 down") << 3 << 0;
    QTest::newRow("4 down") << 4 << 1;
}

void TestRaVirtualKeyboardInput::stepIsFourPixels()
{
    QFETCH(int, pixels);
    QFETCH(int, steps);
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.move(0, pixels);
    QCOMPARE(int(keyboard.steps.size()), steps);
    QCOMPARE(keyboard.isMoving(), steps != 0);
}

void TestRaVirtualKeyboardInput::dragReportsDirectionAndDistance()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.move(0, -12);
    finger.move(0, 5);
    finger.move(0, 2);
    finger.move(0, 2);
    QCOMPARE(int(keyboard.steps.size()), 3);
    QCOMPARE(keyboard.steps.at(0), QList<QVariant>() << true << 12);
    QCOMPARE(keyboard.steps.at(1), QList<QVariant>() << false << 5);
    QCOMPARE(keyboard.steps.at(2), QList<QVariant>() << false << 4);
}

void TestRaVirtualKeyboardInput::shortDragStillClicks()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(6, 4);
    finger.backToTheKey();
    const QList<QByteArray> messages = loggedMessages([&finger] { finger.lift(); });
    QCOMPARE(messages.first(), QByteArray("QEvent::MouseButtonRelease:m_isMoveStatus=6"));
    QVERIFY(!messages.contains("--------call releaseMoveStatus start 100-------"));
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("m"));
    QVERIFY(!keyboard.isMoving());
    QVERIFY(!moveTimer(keyboard)->isActive());
}

void TestRaVirtualKeyboardInput::longDragMutesTheKeysUntilItsTimerFires()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    finger.backToTheKey();
    const QList<QByteArray> messages = loggedMessages([&finger] { finger.lift(); });
    QCOMPARE(messages.value(0), QByteArray("QEvent::MouseButtonRelease:m_isMoveStatus=7"));
    QCOMPARE(messages.value(1), QByteArray("--------call releaseMoveStatus start 100-------"));
    QCOMPARE(keyboard.typedText(), QString());
    QTimer* timer = moveTimer(keyboard);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 900);

    tap(keyboard.key("btn2_01"));
    QCOMPARE(keyboard.typedText(), QString());
    QVERIFY(keyboard.isMoving());

    fire(timer);
    QVERIFY(!timer->isActive());
    QVERIFY(!keyboard.isMoving());
    tap(keyboard.key("btn2_01"));
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("a"));
}

void TestRaVirtualKeyboardInput::mutedClickIsLogged()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    finger.lift();
    const QList<QByteArray> messages = loggedMessages([&keyboard] { keyboard.click("a"); });
    QCOMPARE(messages.last(), QByteArray("recKeyClicked ,current status MouseMove"));
}

void TestRaVirtualKeyboardInput::mutedKeyKeepsItsLook()
{
    Keyboard keyboard;
    keyboard.click("!@#");
    RaVirtualKeyboard_Btn* next = keyboard.key("btn7_03");
    const QImage before = pictureOf(next);
    for (int i = 0; i < 2; ++i) {
        Finger finger(next);
        finger.moveInSteps(7, 4);
        finger.backToTheKey();
        finger.lift();
        next->updatePressStatus();
        QCOMPARE(pictureOf(next), before);
        QCOMPARE(next->getText(), QString::fromLatin1("RI"));
    }
}

void TestRaVirtualKeyboardInput::tapsDoNotMakeTheMuteLonger()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    finger.lift();
    const QList<QByteArray> messages = loggedMessages([&keyboard] { tap(keyboard.key("btn2_01")); });
    QVERIFY(messages.contains("QEvent::MouseButtonRelease:m_isMoveStatus=7"));
    QVERIFY(!messages.contains("--------call releaseMoveStatus start 100-------"));
    QVERIFY(moveTimer(keyboard)->isActive());
}

void TestRaVirtualKeyboardInput::newDragStartsTheMuteAnew()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    finger.lift();
    Finger again(keyboard.key("btn4_03"));
    again.move(0, 4);
    QVERIFY(!moveTimer(keyboard)->isActive());
    QVERIFY(keyboard.isMoving());
    again.lift();
    QVERIFY(moveTimer(keyboard)->isActive());
    QCOMPARE(moveTimer(keyboard)->interval(), 900);
}

void TestRaVirtualKeyboardInput::updatePressStatusUnmutes()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    finger.lift();
    keyboard.updatePressStatus();
    QVERIFY(!moveTimer(keyboard)->isActive());
    keyboard.click("a");
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("a"));
}

void TestRaVirtualKeyboardInput::tremblingIsNoDrag()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    for (int i = 0; i < 50; ++i) {
        finger.move(0, i % 2 ? 3 : -3);
    }
    QCOMPARE(int(keyboard.steps.size()), 0);
    finger.lift();
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("m"));
}

void TestRaVirtualKeyboardInput::movingSidewaysIsNoDrag()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    for (int i = 0; i < 10; ++i) {
        finger.move(10, 0);
    }
    QVERIFY(!keyboard.isMoving());
    finger.lift();
    QCOMPARE(keyboard.typedText(), QString()); // but it left the key
}

void TestRaVirtualKeyboardInput::jumpingPointerIsOneStep()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn2_01"));
    finger.move(120, 150);
    finger.lift();
    QVERIFY(!keyboard.isMoving());
    tap(keyboard.key("btn2_02"));
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("b"));
}

void TestRaVirtualKeyboardInput::dragWithoutAPressIsNone()
{
    Keyboard keyboard;
    sendMouse(keyboard.key("btn2_01"), QEvent::MouseMove, QPoint(10, 200));
    QCOMPARE(int(keyboard.steps.size()), 0);
}

void TestRaVirtualKeyboardInput::restingFingerOnlyWobbled()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn1_backspace"));
    finger.moveInSteps(3, 4);
    QTimer* timer = moveTimer(keyboard);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 300);
    fire(timer);
    QVERIFY(!keyboard.isMoving());
    finger.moveInSteps(7, 4);
    QVERIFY(!timer->isActive()); // a drag is one until the finger is lifted
}

void TestRaVirtualKeyboardInput::touchDragsToo()
{
    Keyboard keyboard;
    TouchScreen screen(&keyboard);
    screen.press(keyboard.key("btn4_03"));
    for (int step = 1; step <= 7; ++step) {
        screen.moveTo(-4 * step);
    }
    QCOMPARE(int(keyboard.steps.size()), 7);
    QCOMPARE(keyboard.steps.at(6), QList<QVariant>() << true << 4);
    screen.moveTo(0);
    screen.releaseAll();
    QVERIFY(keyboard.isMoving());
    QCOMPARE(moveTimer(keyboard)->interval(), 900);
    QCOMPARE(keyboard.typedText(), QString());
}

void TestRaVirtualKeyboardInput::dragStartsInAGapToo()
{
    Keyboard keyboard;
    QWidget* gaps = keyboard.findChild<QWidget*>(QLatin1String("horizontalLayoutWidget"));
    Finger finger(gaps);
    finger.moveInSteps(7, -4);
    QCOMPARE(int(keyboard.steps.size()), 7);
    finger.lift();
    QVERIFY(keyboard.isMoving());
}

void TestRaVirtualKeyboardInput::dragStartsWithASecondTapToo()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn4_03");
    tap(key);
    sendMouse(key, QEvent::MouseButtonDblClick, key->rect().center());
    sendMouse(key, QEvent::MouseMove, key->rect().center() + QPoint(0, 9));
    QCOMPARE(int(keyboard.steps.size()), 1);
}

void TestRaVirtualKeyboardInput::dragIsMeasuredOnTheScreen()
{
    QWidget page;
    page.resize(320, 480);
    RaVirtualKeyboard keyboard(&page);
    page.show();
    Mover mover(&keyboard);
    QSignalSpy steps(&keyboard, SIGNAL(sendKeyboardMoveStep(bool, int)));
    Finger finger(keyNamed(keyboard, "btn4_03"));
    finger.moveInSteps(10, 6);
    QCOMPARE(int(steps.size()), 10);
    QCOMPARE(keyboard.y(), 60);
    finger.moveInSteps(10, -6);
    QCOMPARE(keyboard.y(), 0);
}

void TestRaVirtualKeyboardInput::hidingEndsADrag()
{
    Keyboard keyboard;
    Finger finger(keyboard.key("btn4_03"));
    finger.moveInSteps(7, 4);
    keyboard.hide();
    keyboard.show();
    QVERIFY(!keyboard.isMoving());
    finger.move(0, 20);
    QCOMPARE(int(keyboard.steps.size()), 7);
}

void TestRaVirtualKeyboardInput::twoFingersTypeEachKeyOnce_data()
{
    QTest::addColumn<QString>("events"); // + and the key is pressed, - and it is released
    QTest::addColumn<QString>("typed");
    QTest::newRow("one after the other") << QString::fromLatin1("+a-a+b-b") << QString::fromLatin1("ab");
    QTest::newRow("rolled over") << QString::fromLatin1("+a+b-a-b") << QString::fromLatin1("ab");
    QTest::newRow("one within the other") << QString::fromLatin1("+a+b-b-a") << QString::fromLatin1("ba");
    QTest::newRow("three rolled over") << QString::fromLatin1("+a+b-a+c-b-c") << QString::fromLatin1("abc");
    QTest::newRow("same key too soon") << QString::fromLatin1("+a-a+b-b+a-a") << QString::fromLatin1("ab");
    QTest::newRow("pressed twice, released once") << QString::fromLatin1("+a+a-a") << QString::fromLatin1("a");
}

void TestRaVirtualKeyboardInput::twoFingersTypeEachKeyOnce()
{
    QFETCH(QString, events);
    QFETCH(QString, typed);
    Keyboard keyboard;
    for (int i = 0; i + 1 < int(events.size()); i += 2) {
        const int place = events.at(i + 1).unicode() - 'a';
        RaVirtualKeyboard_Btn* key = allKeys(keyboard).at(5 + place);
        if (events.at(i) == QLatin1Char('+')) {
            press(key);
        } else {
            release(key);
        }
    }
    QCOMPARE(keyboard.typedText(), typed);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        QVERIFY(!key->isDown());
    }
}

void TestRaVirtualKeyboardInput::twoFingersTouchEachKeyOnce_data()
{
    twoFingersTypeEachKeyOnce_data();
    QTest::newRow("two fingers on one key") << QString::fromLatin1("+a+a-a-a") << QString::fromLatin1("a");
}

// The same on a screen that tells its fingers apart.
void TestRaVirtualKeyboardInput::twoFingersTouchEachKeyOnce()
{
    QFETCH(QString, events);
    QFETCH(QString, typed);
    Keyboard keyboard;
    TouchScreen screen(&keyboard);
    for (int i = 0; i + 1 < int(events.size()); i += 2) {
        const int place = events.at(i + 1).unicode() - 'a';
        RaVirtualKeyboard_Btn* key = allKeys(keyboard).at(5 + place);
        if (events.at(i) == QLatin1Char('+')) {
            screen.press(key);
        } else {
            screen.release(key);
        }
    }
    QCOMPARE(keyboard.typedText(), typed);
    screen.releaseAll();
    QCOMPARE(keyboard.typedText(), typed);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        QVERIFY(!key->isDown());
    }
}

void TestRaVirtualKeyboardInput::touchThatIsTakenBackTypesNothing()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn1_backspace");
    TouchScreen screen(&keyboard);
    screen.press(key);
    QVERIFY(key->isDown());
    QTouchEvent cancel(QEvent::TouchCancel);
    QApplication::sendEvent(key, &cancel);
    QVERIFY(!key->isDown());
    QCOMPARE(runningTimer(key).timerId, 0);
    screen.releaseAll();
    QCOMPARE(int(keyboard.typed.size()), 0);
}

void TestRaVirtualKeyboardInput::doubleClickEventsAreTwoTaps()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn2_01");
    tap(key);
    sendMouse(key, QEvent::MouseButtonDblClick, key->rect().center());
    QVERIFY(key->isDown());
    release(key);
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("aa"));
}

void TestRaVirtualKeyboardInput::pageChangeUnderAFingerTypesNothingUnseen()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* z = keyboard.key("btn7_01");
    QSignalSpy reported(z, SIGNAL(clicked(QString)));
    press(z);
    tap(keyboard.key("btn1_03"));
    release(z);
    QCOMPARE(int(reported.size()), 0);
    QVERIFY(!z->isDown());
    QCOMPARE(keyboard.typedText(), QString());
}

void TestRaVirtualKeyboardInput::hidingLetsAHeldKeyGo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("touched");
    QTest::newRow("a letter") << QString::fromLatin1("btn2_01") << false;
    QTest::newRow("backspace") << QString::fromLatin1("btn1_backspace") << false;
    QTest::newRow("a letter, touched") << QString::fromLatin1("btn2_01") << true;
    QTest::newRow("backspace, touched") << QString::fromLatin1("btn1_backspace") << true;
}

void TestRaVirtualKeyboardInput::hidingLetsAHeldKeyGo()
{
    QFETCH(QString, name);
    QFETCH(bool, touched);
    Keyboard keyboard;
    TouchScreen screen(&keyboard);
    RaVirtualKeyboard_Btn* key = keyboard.key(name.toLatin1().constData());
    const auto down = [&] { touched ? screen.press(key) : press(key); };
    const auto up = [&] { touched ? screen.release(key) : release(key); };
    down();
    QVERIFY(key->isDown());
    keyboard.setVisible(false);
    QVERIFY(!key->isDown());
    QCOMPARE(runningTimer(key).timerId, 0); // no repeats for nobody to see
    keyboard.setVisible(true);
    up();
    QCOMPARE(int(keyboard.typed.size()), 0);
    down();
    up();
    QCOMPARE(int(keyboard.typed.size()), 1);
}

void TestRaVirtualKeyboardInput::backspaceTapIsOneEvent()
{
    Keyboard keyboard;
    tap(keyboard.key("btn1_backspace"));
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("BS"));
    QCOMPARE(runningTimer(keyboard.key("btn1_backspace")).timerId, 0);
}

void TestRaVirtualKeyboardInput::backspaceHeldRepeats()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn1_backspace");
    press(key);
    QCOMPARE(int(keyboard.typed.size()), 0);
    QCOMPARE(runningTimer(key).interval, 500);
    fireRepeat(key);
    QCOMPARE(int(keyboard.typed.size()), 1);
    QCOMPARE(runningTimer(key).interval, 100);
    fireRepeat(key);
    fireRepeat(key);
    QCOMPARE(keyboard.typedText(), QString::fromLatin1("BSBSBS"));
}

void TestRaVirtualKeyboardInput::backspaceReleaseAfterRepeatsAddsNothing()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn1_backspace");
    press(key);
    fireRepeat(key);
    release(key);
    QCOMPARE(int(keyboard.typed.size()), 1);
    QCOMPARE(runningTimer(key).timerId, 0);
}

void TestRaVirtualKeyboardInput::backspaceTapAfterAHoldCounts()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn1_backspace");
    press(key);
    fireRepeat(key);
    release(key);
    press(key);
    release(key);
    QCOMPARE(int(keyboard.typed.size()), 2);
}

void TestRaVirtualKeyboardInput::otherKeysDoNotRepeat()
{
    Keyboard keyboard;
    for (RaVirtualKeyboard_Btn* key : visibleKeys(keyboard)) {
        QCOMPARE(key->autoRepeat(), key == keyboard.key("btn1_backspace"));
    }
    press(keyboard.key("btn2_01"));
    QCOMPARE(runningTimer(keyboard.key("btn2_01")).timerId, 0);
}

void TestRaVirtualKeyboardInput::keyboardBeingDraggedDoesNotRepeat()
{
    Keyboard keyboard;
    RaVirtualKeyboard_Btn* key = keyboard.key("btn1_backspace");
    Finger finger(key);
    finger.move(0, 5);
    fireRepeat(key);
    QCOMPARE(int(keyboard.typed.size()), 0);
    fire(moveTimer(keyboard)); // the finger rests again
    fireRepeat(key);
    QCOMPARE(int(keyboard.typed.size()), 1);
}

void TestRaVirtualKeyboardInput::showTakesTextAndName()
{
    Keyboard keyboard;
    keyboard.setVisible(false);
    keyboard.show(QLatin1String("text"), QLatin1String("name"));
    QVERIFY(keyboard.isVisible());
    keyboard.setVisible(false);
    QVERIFY(QMetaObject::invokeMethod(&keyboard, "show"));
    QVERIFY(keyboard.isVisible());
    keyboard.click("a");
    QCOMPARE(keyboard.typed.at(0).at(1).toString(), QString::fromLatin1("name"));
}

void TestRaVirtualKeyboardInput::watchedEditShowsTheKeyboard_data()
{
    QTest::addColumn<int>("event");
    QTest::addColumn<bool>("watched");
    QTest::newRow("pressed") << static_cast<int>(QEvent::MouseButtonPress) << true;
    QTest::newRow("focused") << static_cast<int>(QEvent::FocusIn) << true;
    QTest::newRow("pressed, not watched") << static_cast<int>(QEvent::MouseButtonPress) << false;
    QTest::newRow("focused, not watched") << static_cast<int>(QEvent::FocusIn) << false;
}

void TestRaVirtualKeyboardInput::watchedEditShowsTheKeyboard()
{
    QFETCH(int, event);
    QFETCH(bool, watched);
    QLineEdit edit;
    edit.setObjectName(QLatin1String("password"));
    Keyboard keyboard;
    keyboard.setVisible(false);
    if (watched) {
        keyboard.setAutoShow(&edit);
    }
    if (event == QEvent::FocusIn) {
        sendFocus(&edit, QEvent::FocusIn, Qt::OtherFocusReason);
    } else {
        press(&edit);
    }
    QCOMPARE(keyboard.isVisible(), watched);
    keyboard.click("a");
    QCOMPARE(keyboard.typed.at(0).at(1).toString(), QString::fromLatin1(watched ? "password" : "field"));
}

void TestRaVirtualKeyboardInput::focusLossHidesOnlyWithAutoHide_data()
{
    QTest::addColumn<bool>("autoHide");
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("visible");
    QTest::newRow("off from the start") << false << static_cast<int>(Qt::OtherFocusReason) << true;
    QTest::newRow("on") << true << static_cast<int>(Qt::OtherFocusReason) << false;
    QTest::newRow("on, another window") << true << static_cast<int>(Qt::ActiveWindowFocusReason) << false;
    QTest::newRow("on, a pop-up") << true << static_cast<int>(Qt::PopupFocusReason) << true;
}

void TestRaVirtualKeyboardInput::focusLossHidesOnlyWithAutoHide()
{
    QFETCH(bool, autoHide);
    QFETCH(int, reason);
    QFETCH(bool, visible);
    QLineEdit edit;
    Keyboard keyboard;
    keyboard.setAutoShow(&edit);
    if (autoHide) {
        keyboard.setAutoHide(true);
    }
    sendFocus(&edit, QEvent::FocusOut, static_cast<Qt::FocusReason>(reason));
    QCOMPARE(keyboard.isVisible(), visible);
}

void TestRaVirtualKeyboardInput::focusGoingToAKeyDoesNotHide()
{
    QWidget page;
    QLineEdit edit(&page);
    QLineEdit other(&page);
    RaVirtualKeyboard keyboard(&page);
    keyboard.setAutoShow(&edit);
    keyboard.setAutoHide(true);
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    edit.setFocus();
    for (const char* name : {"btn2_01", "btn2_02"}) {
        keyNamed(keyboard, name)->setFocus();
        QVERIFY(keyNamed(keyboard, name)->hasFocus());
        QVERIFY(keyboard.isVisible());
    }
    other.setFocus();
    QVERIFY(!keyboard.isVisible());
    edit.setFocus();
    QVERIFY(keyboard.isVisible());
}

void TestRaVirtualKeyboardInput::watchedObjectsStillGetTheirEvents()
{
    Keyboard keyboard;
    QLineEdit edit;
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPoint(1, 1), QPoint(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QVERIFY(!keyboard.eventFilter(keyboard.key("btn2_01"), &event));
        QVERIFY(!keyboard.eventFilter(&edit, &event));
    }
}

void TestRaVirtualKeyboardInput::watchingNothingIsAllowed()
{
    Keyboard keyboard;
    keyboard.setAutoShow(nullptr);
    keyboard.setAutoHide(true);
    QVERIFY(keyboard.isVisible());
}

QTEST_MAIN(TestRaVirtualKeyboardInput)
#include "tst_ravirtualkeyboard_input.moc"
