// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "rapswdlineedit.h"
#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"
#include "rawifiinputwnd.h"
#include "widgettest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using namespace widgettest;

namespace {

QString placeholder()
{
    return QString::fromUtf8("请输入密码");
}

/** The page as it opens for a network. */
class Page : public RaWifiInputWnd
{
public:
    explicit Page(const APData& data = network(1, "Home"))
    {
        setAPData(data);
        show();
    }

    raPsWdLineEdit* edit() const { return findChild<raPsWdLineEdit*>(); }
    RaVirtualKeyboard* keyboard() const { return findChild<RaVirtualKeyboard*>(); }
    QTimer* tipsTimer() const { return findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }
    QString typed() const { return edit()->getIsPlaceholderText() ? QString() : edit()->text(); }
    bool isIdle() const { return edit()->getIsPlaceholderText() && edit()->echoMode() == QLineEdit::Normal; }

    /** The tip that is shown; empty when none is. */
    QString tip() const
    {
        for (const QLabel* label : findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (label->isVisible() && label->geometry().top() > 50) {
                return label->text();
            }
        }
        return QString();
    }
    QPushButton* button(const char* text) const
    {
        for (QPushButton* candidate : findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (candidate->text() == QString::fromUtf8(text)
                || candidate->accessibleName() == QString::fromUtf8(text)) {
                return candidate;
            }
        }
        return nullptr;
    }

    /** Types with fingers on the keyboard; the keys are looked for on the page that is shown. */
    void tapKeys(const QStringList& texts)
    {
        for (const QString& text : texts) {
            for (RaVirtualKeyboard_Btn* key : keyboard()->findChildren<RaVirtualKeyboard_Btn*>()) {
                if (key->isVisible() && key->getText() == text) {
                    tap(key);
                    key->updatePressStatus(); // the guard against a double click
                    break;
                }
            }
        }
    }
    void type(const QString& text)
    {
        for (const QChar c : text) {
            setTextSlot(c, edit()->objectName());
        }
    }
};

QStringList letters(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char('.'));
}

} // namespace

class TestRaWifiInputWnd : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void declaresItsMethodsInOrder();
    void opensIdle();
    void partsLieWithinThePage();
    void buttonsWearTheStyleSheet();
    void nameIsPlainAndSafe_data();
    void nameIsPlainAndSafe();

    void keyboardTypes_data();
    void keyboardTypes();
    void movingKeyboardTypesNoBlank();
    void textGoesInAtTheCursor_data();
    void textGoesInAtTheCursor();
    void backspaceInThePlaceholderChangesNothing();
    void lastCharacterBringsThePlaceholderBack();
    void slotLogsOneLine();

    void limitIsKept_data();
    void limitIsKept();
    void foreignCharactersAreRefused();

    void okHandsOverThePassword_data();
    void okHandsOverThePassword();
    void okWithoutAPasswordGivesATip();
    void cancelReports_data();
    void cancelReports();
    void clearForgetsEverything();
    void savedPasswordIsNotShown();

    void toggleMasks();
    void toggleWhileIdleMasksWhatIsTypedThen();
    void tipGoesAfterAWhile();
    void tipGoesWithTheNextChange();

    void hardwareKeys_data();
    void hardwareKeys();
    void hardwareDeleteBringsThePlaceholderBack();
    void pastedTextKeepsToTheRules();
    void placeholderTakesNoCursor();
    void keysDoNotReachThePageBelow();
    void focusStaysOnThePage();
    void everyControlHasAName();

    void keyboardMovesWithinThePage();
    void keyboardOpensWithLetters();
    void passwordIsNotLogged();
    void nothingLeaks();
};

void TestRaWifiInputWnd::initTestCase()
{
    qRegisterMetaType<APData>("APData");
}

void TestRaWifiInputWnd::declaresItsMethodsInOrder()
{
    const QMetaObject& meta = RaWifiInputWnd::staticMetaObject;
    QCOMPARE(signalsOf(meta),
             QStringList() << QLatin1String("sendWifiInputOkMsg(APData)") << QLatin1String("sendWifiInputCancelMsg()"));
    QCOMPARE(slotsOf(meta), QStringList()
                                << QLatin1String("onOkClicked()") << QLatin1String("onCancelClicked()")
                                << QLatin1String("pwdSelectChanged()") << QLatin1String("recKeyboardMoveStep(bool,int)")
                                << QLatin1String("setTextSlot(QString,QString)") << QLatin1String("recKeyboardNumber()")
                                << QLatin1String("recKeyboardSymbol()") << QLatin1String("recKeyboardCharacter()")
                                << QLatin1String("PwTxtEdited(QString)") << QLatin1String("PwTxtChanged(QString)")
                                << QLatin1String("hideTips()"));
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void TestRaWifiInputWnd::opensIdle()
{
    const Page page;
    QVERIFY(page.isIdle());
    QCOMPARE(page.edit()->text(), placeholder());
    QCOMPARE(page.tip(), QString());
    QVERIFY(page.keyboard()->isVisible());
    QCOMPARE(page.focusWidget(), static_cast<QWidget*>(page.edit()));
}

void TestRaWifiInputWnd::partsLieWithinThePage()
{
    const Page page;
    QCOMPARE(page.keyboard()->geometry(), QRect(0, page.height() - 262, 320, 262));
    const QList<QWidget*> parts = page.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* part : parts) {
        QVERIFY(page.rect().contains(part->geometry()));
        for (const QWidget* other : parts) {
            QVERIFY(part == other || !part->geometry().intersects(other->geometry()));
        }
    }
}

void TestRaWifiInputWnd::buttonsWearTheStyleSheet()
{
    const Page page;
    const QList<QPushButton*> buttons = page.findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(int(buttons.size()), 4);
    for (const QPushButton* button : buttons) {
        QCOMPARE(button->styleSheet(),
                 QString::fromLatin1("QPushButton{border:0px groove gray;border-radius:10px;padding:2px 4px}"
                                     "QPushButton{background-color:rgb(54,54,54)}"));
    }
    QVERIFY(!page.button("返回")->icon().isNull());
    QVERIFY(!page.button("显示密码")->icon().isNull());
}

void TestRaWifiInputWnd::nameIsPlainAndSafe_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QByteArray("Home") << QString::fromLatin1("Home");
    QTest::newRow("rich text") << QByteArray("<b>x</b>&amp;") << QString::fromLatin1("<b>x</b>&amp;");
    QTest::newRow("overriding") << QByteArray("a\xe2\x80\xae") << QString::fromUtf8("a\xef\xbf\xbd");
}

void TestRaWifiInputWnd::nameIsPlainAndSafe()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, shown);
    const Page page(network(1, name));
    QLabel* label = nullptr;
    for (QLabel* candidate : page.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (candidate->geometry().top() < 50) {
            label = candidate;
        }
    }
    QVERIFY(label);
    QCOMPARE(label->text(), shown);
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(page.accessibleName(), shown);
}

void TestRaWifiInputWnd::keyboardTypes_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << letters("h.o.m.e") << QString::fromLatin1("home");
    QTest::newRow("capital") << letters("ABC.H.ABC.o") << QString::fromLatin1("Ho");
    QTest::newRow("digits") << letters("a.123.1.0") << QString::fromLatin1("a10");
    QTest::newRow("blank between") << (letters("a.!@#") << QString() << letters("abc.b")) << QString::fromLatin1("a b");
    QTest::newRow("blank first") << (letters("!@#") << QString()) << QString::fromLatin1(" ");
    QTest::newRow("two blanks") << (letters("!@#") << QString() << QString()) << QString::fromLatin1("  ");
    QTest::newRow("symbols of both pages") << letters("!@#.&.\\.RI.{.}") << QString::fromLatin1("&\\{}");
    QTest::newRow("backspace") << letters("a.b.BS.c") << QString::fromLatin1("ac");
    QTest::newRow("all taken back") << letters("a.b.BS.BS.BS") << QString();
}

void TestRaWifiInputWnd::keyboardTypes()
{
    QFETCH(QStringList, keys);
    QFETCH(QString, text);
    Page page;
    page.tapKeys(keys);
    QCOMPARE(page.typed(), text);
    QCOMPARE(page.isIdle(), text.isEmpty());
}

void TestRaWifiInputWnd::movingKeyboardTypesNoBlank()
{
    Page page;
    page.keyboard()->recKeyClicked(QLatin1String("!@#"));
    RaVirtualKeyboard_Btn* space = page.keyboard()->spaceKey();
    QPoint point = space->mapToGlobal(space->rect().center());
    finger(space, QEvent::MouseButtonPress, point);
    for (int i = 0; i < 8; ++i) {
        point.ry() -= 6;
        finger(space, QEvent::MouseMove, point);
    }
    finger(space, QEvent::MouseButtonRelease, space->mapToGlobal(space->rect().center()));
    QVERIFY(page.keyboard()->isMoving());
    QVERIFY(page.isIdle());
    page.keyboard()->updatePressStatus();
    space->updatePressStatus();
    tap(space);
    QCOMPARE(page.typed(), QString::fromLatin1(" "));
}

void TestRaWifiInputWnd::textGoesInAtTheCursor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("cursorAfter");
    const QString abc = QString::fromLatin1("abc");
    const QString x = QString::fromLatin1("x");
    const QString back = QString::fromLatin1("BS");
    QTest::newRow("in the middle") << abc << 1 << x << QString::fromLatin1("axbc") << 2;
    QTest::newRow("at the start") << abc << 0 << x << QString::fromLatin1("xabc") << 1;
    QTest::newRow("at the end") << abc << 3 << x << QString::fromLatin1("abcx") << 4;
    QTest::newRow("back in the middle") << abc << 2 << back << QString::fromLatin1("ac") << 1;
    QTest::newRow("back at the start") << abc << 0 << back << abc << 0;
    QTest::newRow("back at the end") << abc << 3 << back << QString::fromLatin1("ab") << 2;
    QTest::newRow("double-quote") << abc << 1 << QString::fromLatin1("\"") << QString::fromLatin1("a\"bc") << 2;
}

void TestRaWifiInputWnd::textGoesInAtTheCursor()
{
    QFETCH(QString, text);
    QFETCH(int, cursor);
    QFETCH(QString, key);
    QFETCH(QString, after);
    QFETCH(int, cursorAfter);
    Page page;
    page.type(text);
    page.edit()->setCursorPosition(cursor);
    page.setTextSlot(key, page.edit()->objectName());
    QCOMPARE(page.edit()->text(), after);
    QCOMPARE(page.edit()->cursorPosition(), cursorAfter);
}

void TestRaWifiInputWnd::backspaceInThePlaceholderChangesNothing()
{
    Page page;
    page.edit()->setCursorPosition(3);
    page.setTextSlot(QLatin1String("BS"), page.edit()->objectName());
    QVERIFY(page.isIdle());
    page.type(QString::fromLatin1("a"));
    QCOMPARE(page.edit()->text(), QString::fromLatin1("a"));
}

void TestRaWifiInputWnd::lastCharacterBringsThePlaceholderBack()
{
    Page page;
    page.type(QString::fromLatin1("a"));
    QVERIFY(!page.isIdle());
    page.setTextSlot(QLatin1String("BS"), page.edit()->objectName());
    QVERIFY(page.isIdle());
    QCOMPARE(page.edit()->cursorPosition(), 0);
}

void TestRaWifiInputWnd::slotLogsOneLine()
{
    Page page;
    const QByteArray log =
        capturedOutput(stderr, [&page] { page.setTextSlot(QLatin1String("q"), QLatin1String("anEdit")); });
    QVERIFY2(log.contains("text=q,objName = anEdit"), log.constData());
}

void TestRaWifiInputWnd::limitIsKept_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("fits");
    QTest::addColumn<QString>("more");
    QTest::newRow("WPA2") << int(WPA2_PSK) << QString(63, QLatin1Char('x')) << QString::fromLatin1("x");
    QTest::newRow("WPA2 digits") << int(WPA2_PSK) << QString(64, QLatin1Char('1')) << QString::fromLatin1("1");
    QTest::newRow("WPA2 no digit after 63 digits")
        << int(WPA2_PSK) << QString(63, QLatin1Char('1')) << QString::fromLatin1("x");
    QTest::newRow("WEP") << int(WEP) << QString(199, QLatin1Char('x')) << QString::fromLatin1("x");
}

void TestRaWifiInputWnd::limitIsKept()
{
    QFETCH(int, kind);
    QFETCH(QString, fits);
    QFETCH(QString, more);
    APData data = network(1, "net");
    data.encry[0] = kind;
    Page page(data);
    page.type(fits);
    QCOMPARE(page.edit()->text(), fits);
    QCOMPARE(page.tip(), QString());
    page.edit()->setCursorPosition(7);
    page.type(more);
    QCOMPARE(page.edit()->text(), fits);
    QCOMPARE(page.edit()->cursorPosition(), 7);
    QVERIFY(!page.tip().isEmpty());

    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    page.onOkClicked();
    QCOMPARE(ok.count(), 1);
    QCOMPARE(QByteArray(ok.at(0).at(0).value<APData>().psk), fits.toLatin1());
}

void TestRaWifiInputWnd::foreignCharactersAreRefused()
{
    Page page;
    page.type(QString::fromUtf8("密"));
    QVERIFY(page.isIdle());
    QVERIFY(!page.tip().isEmpty());
    page.type(QString::fromUtf8("aä"));
    QCOMPARE(page.typed(), QString::fromUtf8("aä"));

    // However it got there, what would not survive is not handed over.
    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    page.edit()->setText(QString::fromUtf8("密x"));
    page.onOkClicked();
    page.edit()->setText(QString(300, QLatin1Char('x')));
    page.onOkClicked();
    QCOMPARE(ok.count(), 0);
    QVERIFY(!page.tip().isEmpty());
}

void TestRaWifiInputWnd::okHandsOverThePassword_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::newRow("one character") << QByteArray("x");
    QTest::newRow("blanks") << QByteArray(" a b ");
    QTest::newRow("quotes") << QByteArray("\"'\\#$`");
    QTest::newRow("Latin-1") << QByteArray("caf\xe9");
}

void TestRaWifiInputWnd::okHandsOverThePassword()
{
    QFETCH(QByteArray, password);
    APData data = network(7, "net", true, 2, "an older and longer password");
    Page page(data);
    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    page.type(QString::fromLatin1(password));
    tap(page.button("确定"));
    QCOMPARE(ok.count(), 1);
    APData sent = ok.at(0).at(0).value<APData>();
    APData expected = network(7, "net", true, 2, password.constData());
    QCOMPARE(std::memcmp(&sent, &expected, sizeof sent), 0);
}

void TestRaWifiInputWnd::okWithoutAPasswordGivesATip()
{
    Page page;
    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    page.onOkClicked();
    QCOMPARE(ok.count(), 0);
    QCOMPARE(page.tip(), placeholder());
    QVERIFY(page.isIdle());
}

void TestRaWifiInputWnd::cancelReports_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("cancel") << QByteArray("取消");
    QTest::newRow("back") << QByteArray("返回");
}

void TestRaWifiInputWnd::cancelReports()
{
    QFETCH(QByteArray, button);
    Page page;
    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    QSignalSpy cancel(&page, SIGNAL(sendWifiInputCancelMsg()));
    page.type(QString::fromLatin1("secret"));
    tap(page.button(button.constData()));
    QCOMPARE(cancel.count(), 1);
    QCOMPARE(ok.count(), 0);
}

void TestRaWifiInputWnd::clearForgetsEverything()
{
    Page page;
    page.type(QString::fromLatin1("secret"));
    page.pwdSelectChanged();
    page.onOkClicked();
    page.recKeyboardMoveStep(true, 50);
    page.type(QString::fromUtf8("密"));
    QVERIFY(!page.tip().isEmpty());
    page.clear();
    QVERIFY(page.isIdle());
    QCOMPARE(page.tip(), QString());
    QVERIFY(!page.tipsTimer()->isActive());
    QCOMPARE(page.keyboard()->y(), page.height() - 262);
    page.type(QString::fromLatin1("x"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Normal);
}

void TestRaWifiInputWnd::savedPasswordIsNotShown()
{
    const Page page(network(1, "net", true, 3, "saved"));
    QVERIFY(page.isIdle());
}

void TestRaWifiInputWnd::toggleMasks()
{
    Page page;
    page.type(QString::fromLatin1("secret"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Normal);
    QVERIFY(page.button("显示密码")->isChecked());
    const QImage readable = pictureOf(&page);
    tap(page.button("显示密码"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Password);
    QVERIFY(!page.button("显示密码")->isChecked());
    QVERIFY(pictureOf(page.button("显示密码")) != readable.copy(page.button("显示密码")->geometry()));
    page.type(QString::fromLatin1("x"));
    QCOMPARE(page.edit()->text(), QString::fromLatin1("secretx"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Password);
    tap(page.button("显示密码"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Normal);
}

void TestRaWifiInputWnd::toggleWhileIdleMasksWhatIsTypedThen()
{
    Page page;
    page.pwdSelectChanged();
    QVERIFY(page.isIdle());
    page.type(QString::fromLatin1("a"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Password);
    page.setTextSlot(QLatin1String("BS"), page.edit()->objectName());
    QVERIFY(page.isIdle());
    page.type(QString::fromLatin1("b"));
    QCOMPARE(page.edit()->echoMode(), QLineEdit::Password);
}

void TestRaWifiInputWnd::tipGoesAfterAWhile()
{
    Page page;
    page.onOkClicked();
    QVERIFY(page.tipsTimer()->isActive());
    QTimerEvent timeout(page.tipsTimer()->timerId());
    const QByteArray log = capturedOutput(stderr, [&] { QCoreApplication::sendEvent(page.tipsTimer(), &timeout); });
    QVERIFY2(log.contains("Connect Timer Timeout -> hideTips"), log.constData());
    QCOMPARE(page.tip(), QString());
    QVERIFY(!page.tipsTimer()->isActive());
}

void TestRaWifiInputWnd::tipGoesWithTheNextChange()
{
    Page page;
    page.onOkClicked();
    page.type(QString::fromLatin1("a"));
    QCOMPARE(page.tip(), QString());
}

void TestRaWifiInputWnd::hardwareKeys_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("oks");
    QTest::addColumn<int>("cancels");
    const QString ab = QString::fromLatin1("ab");
    const QString none;
    QTest::newRow("letter into the placeholder")
        << none << int(Qt::Key_Q) << QString::fromLatin1("q") << QString::fromLatin1("q") << 0 << 0;
    QTest::newRow("letter") << ab << int(Qt::Key_Q) << QString::fromLatin1("Q") << QString::fromLatin1("abQ") << 0 << 0;
    QTest::newRow("blank") << ab << int(Qt::Key_Space) << QString::fromLatin1(" ") << QString::fromLatin1("ab ") << 0
                           << 0;
    QTest::newRow("foreign") << ab << int(Qt::Key_unknown) << QString::fromUtf8("密") << ab << 0 << 0;
    QTest::newRow("backspace") << ab << int(Qt::Key_Backspace) << QString(QChar(8)) << QString::fromLatin1("a") << 0
                               << 0;
    QTest::newRow("backspace in the placeholder")
        << none << int(Qt::Key_Backspace) << QString(QChar(8)) << none << 0 << 0;
    QTest::newRow("delete in the placeholder") << none << int(Qt::Key_Delete) << QString(QChar(127)) << none << 0 << 0;
    QTest::newRow("right in the placeholder") << none << int(Qt::Key_Right) << none << none << 0 << 0;
    QTest::newRow("return") << ab << int(Qt::Key_Return) << QString(QChar(13)) << ab << 1 << 0;
    QTest::newRow("enter") << ab << int(Qt::Key_Enter) << QString(QChar(13)) << ab << 1 << 0;
    QTest::newRow("return in the placeholder") << none << int(Qt::Key_Return) << QString(QChar(13)) << none << 0 << 0;
    QTest::newRow("escape") << ab << int(Qt::Key_Escape) << QString(QChar(27)) << ab << 0 << 1;
}

void TestRaWifiInputWnd::hardwareKeys()
{
    QFETCH(QString, before);
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(QString, after);
    QFETCH(int, oks);
    QFETCH(int, cancels);
    Page page;
    page.type(before);
    QSignalSpy ok(&page, SIGNAL(sendWifiInputOkMsg(APData)));
    QSignalSpy cancel(&page, SIGNAL(sendWifiInputCancelMsg()));
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(page.edit(), &event);
    QCOMPARE(page.typed(), after);
    QCOMPARE(page.edit()->getIsPlaceholderText(), after.isEmpty());
    QCOMPARE(ok.count(), oks);
    QCOMPARE(cancel.count(), cancels);
}

void TestRaWifiInputWnd::hardwareDeleteBringsThePlaceholderBack()
{
    Page page;
    page.type(QString::fromLatin1("a"));
    page.edit()->setCursorPosition(0);
    QTest::keyClick(page.edit(), Qt::Key_Delete);
    QVERIFY(page.isIdle());
}

void TestRaWifiInputWnd::pastedTextKeepsToTheRules()
{
    Page page;
    QClipboard* clipboard = QGuiApplication::clipboard();
    const QByteArray log = capturedOutput(stderr, [&] {
        clipboard->setText(QString::fromLatin1("canary"));
        QTest::keySequence(page.edit(), QKeySequence::Paste);
    });
    QCOMPARE(page.typed(), QString::fromLatin1("canary"));
    QVERIFY2(!log.contains("canary"), log.constData());
    clipboard->setText(QString(64, QLatin1Char('x')));
    QTest::keySequence(page.edit(), QKeySequence::Paste);
    QCOMPARE(page.typed(), QString::fromLatin1("canary"));
    QVERIFY(!page.tip().isEmpty());
}

void TestRaWifiInputWnd::placeholderTakesNoCursor()
{
    Page page;
    QTest::mouseClick(page.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 20));
    QCOMPARE(page.edit()->cursorPosition(), 0);
    QTest::mouseDClick(page.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 20));
    QVERIFY(!page.edit()->hasSelectedText());
    page.type(QString::fromLatin1("abcdef"));
    QTest::mouseClick(page.edit(), Qt::LeftButton, Qt::NoModifier, QPoint(14, 20));
    QCOMPARE(page.edit()->cursorPosition(), 0);
}

void TestRaWifiInputWnd::keysDoNotReachThePageBelow()
{
    Page page;
    for (const int key : {int(Qt::Key_Up), int(Qt::Key_Down), int(Qt::Key_A)}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&page, &event);
        QVERIFY(event.isAccepted());
    }
    QVERIFY(page.testAttribute(Qt::WA_NoMousePropagation));
}

void TestRaWifiInputWnd::focusStaysOnThePage()
{
    QWidget below;
    QPushButton beside(&below);
    RaWifiInputWnd* page = new RaWifiInputWnd(&below);
    below.show();
    below.activateWindow();
    QSet<QWidget*> reached;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int i = 0; i < 50; ++i) {
            QTest::keyClick(below.focusWidget(), key);
            reached << below.focusWidget();
        }
    }
    QVERIFY(!reached.contains(&beside));
    QVERIFY(reached.contains(page->findChild<raPsWdLineEdit*>()));
    QVERIFY(reached.size() >= 5 + 31);
}

void TestRaWifiInputWnd::everyControlHasAName()
{
    const Page page;
    for (const QPushButton* button : page.findChildren<QPushButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        QVERIFY(!button->text().isEmpty() || !button->accessibleName().isEmpty());
    }
    QCOMPARE(page.edit()->accessibleName(), QString::fromUtf8("密码"));
}

void TestRaWifiInputWnd::keyboardMovesWithinThePage()
{
    Page page;
    const int lowest = page.height() - 262;
    page.recKeyboardMoveStep(true, 30);
    QCOMPARE(page.keyboard()->y(), lowest - 30);
    page.recKeyboardMoveStep(false, 10);
    QCOMPARE(page.keyboard()->y(), lowest - 20);
    page.recKeyboardMoveStep(false, 1000);
    QCOMPARE(page.keyboard()->y(), lowest);
    page.recKeyboardMoveStep(true, 1000);
    QCOMPARE(page.keyboard()->y(), 50);
    page.resize(320, 400);
    QCOMPARE(page.keyboard()->y(), 400 - 262);

    RaVirtualKeyboard_Btn* key = page.keyboard()->findChild<RaVirtualKeyboard_Btn*>(QLatin1String("btn3_03"));
    QPoint point = key->mapToGlobal(key->rect().center());
    finger(key, QEvent::MouseButtonPress, point);
    point.ry() -= 40;
    finger(key, QEvent::MouseMove, point);
    QCOMPARE(page.keyboard()->y(), 400 - 262 - 40); // under the finger still
}

void TestRaWifiInputWnd::keyboardOpensWithLetters()
{
    Page page;
    page.tapKeys(letters("123.7"));
    page.clear();
    page.tapKeys(letters("a"));
    QCOMPARE(page.typed(), QString::fromLatin1("a"));
    page.clear();
    page.tapKeys(letters("b")); // and not "B"
    QCOMPARE(page.typed(), QString::fromLatin1("b"));
}

void TestRaWifiInputWnd::passwordIsNotLogged()
{
    const QByteArray log = capturedOutput(stderr, [] {
        Page page(network(1, "net", true, 3, "canary-saved"));
        page.type(QString::fromLatin1("canary-typed"));
        page.pwdSelectChanged();
        page.onOkClicked();
        page.clear();
    });
    QVERIFY(log.contains("text=c"));
    QVERIFY2(!log.contains("canary"), log.constData());
}

void TestRaWifiInputWnd::nothingLeaks()
{
    const auto useOnce = [] {
        RaWifiInputWnd page;
        page.setAPData(network(1, "net"));
        page.setTextSlot(QLatin1String("a"), QString());
        page.onCancelClicked();
    };
    capturedOutput(stderr, [&] {
        for (int i = 0; i < 500; ++i) {
            useOnce(); // until the toolkit's own caches are full
        }
    });
    const long growth = heapGrowth(useOnce);
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
}

QTEST_MAIN(TestRaWifiInputWnd)
#include "tst_rawifiinputwnd.moc"
