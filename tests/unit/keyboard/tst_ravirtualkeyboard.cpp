// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ravirtualkeyboard.h"

#include "heapgrowth.h"
#include "keyboarddriver.h"
#include "loggedmessages.h"
#include "ui_ravirtualkeyboard.h"

#include <QLineEdit>
#include <QPointer>
#include <QResource>
#include <QSignalSpy>
#include <QtTest>

namespace {

const char* const kKeyNames[] = {
    "btn1_Lshirt", "btn1_02", "btn1_03", "btn1_04", "btn1_backspace", "btn2_01", "btn2_02", "btn2_03", "btn2_04",
    "btn2_05",     "btn3_01", "btn3_02", "btn3_03", "btn3_04",        "btn3_05", "btn4_01", "btn4_02", "btn4_03",
    "btn4_04",     "btn4_05", "btn5_01", "btn5_02", "btn5_03",        "btn5_04", "btn5_05", "btn6_01", "btn6_02",
    "btn6_03",     "btn6_04", "btn6_05", "btn7_01", "btn7_02",        "btn7_03",
};
const char kRowOne[] = "ABC abc 123 !@# BS ";

QString pageText(const RaVirtualKeyboard& keyboard)
{
    QStringList texts;
    for (const char* name : kKeyNames) {
        texts << keyNamed(keyboard, name)->getText();
    }
    return texts.join(QLatin1String(" "));
}

// The key that shows \a text, if there is one to tap.
RaVirtualKeyboard_Btn* visibleKey(const RaVirtualKeyboard& keyboard, const QString& text)
{
    for (RaVirtualKeyboard_Btn* key : visibleKeys(keyboard)) {
        if (key->getText() == text) {
            return key;
        }
    }
    return nullptr;
}

} // namespace

// Owns a line edit and applies to it what the keyboard hands over, as a page does.
class Owner : public QObject
{
    Q_OBJECT
public:
    explicit Owner(const RaVirtualKeyboard& watched) : keyboard(watched)
    {
        connect(&keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)), this, SLOT(recText(QString, QString)));
        connect(keyboard.spaceKey(), SIGNAL(clicked(QString)), this, SLOT(recSpaceKey(QString)));
    }

    QString text;

public Q_SLOTS:
    void recText(const QString& typed, const QString&)
    {
        if (typed == QLatin1String("BS")) {
            text.chop(1);
        } else {
            text += typed;
        }
    }
    void recSpaceKey(const QString& typed)
    {
        if (typed.isEmpty() && !keyboard.isMoving()) {
            text += QLatin1Char(' ');
        }
    }

private:
    const RaVirtualKeyboard& keyboard;
};

class TestRaVirtualKeyboard : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void formContainerHasItsSettings();
    void formRowHasItsSettings_data();
    void formRowHasItsSettings();
    void keysAreMadeInOrder();
    void formKeepsAnObjectNameThatIsThere();
    void retranslatedFormHasItsStandInTexts();

    void constructionIsLogged();
    void noKeyShowsTheFormsText();
    void keyTypes();
    void keyStyleSheets();
    void keyPictures();
    void initialisedAgainItReportsOnce();

    void pageShowsItsKeyTexts_data();
    void pageShowsItsKeyTexts();
    void keysWithoutAnEntryAreNotThere_data();
    void keysWithoutAnEntryAreNotThere();
    void everyVisibleKeyShowsSomething_data();
    void everyVisibleKeyShowsSomething();
    void noPageMovesAKey_data();
    void noPageMovesAKey();
    void keysFillTheirRowsEvenly();
    void pageKeyIsMarked_data();
    void pageKeyIsMarked();

    void spaceKeyHasNeitherTextNorPictureOfItsOwn();
    void spaceKeyShowsTheHostsPicture();
    void spaceKeyReportsTheEmptyText();
    void spaceKeyKeepsItsLook();
    void spaceKeyIsOneObjectOnAllPages();
    void nextPageKeyKeepsItsText();
    void nextPageKeyIsOnlyThereWithANextPage();

    void shiftTurnsTheLettersAndShowsIt();
    void letterCaseOutlastsOtherPages();

    void everyPrintableCharacterCanBeTyped_data();
    void everyPrintableCharacterCanBeTyped();

    void keysHaveAccessibleNames_data();
    void keysHaveAccessibleNames();
    void focusWalksTheKeysInOrder();
    void focusSkipsKeysWithoutAnEntry();
    void focusStaysInTheKeyboardWhenItsKeyGoes();
    void tapLeavesTheFocusInTheField();
    void keypadTypes();

    void nothingGrowsOverAThousandKeyboards();
};

void TestRaVirtualKeyboard::formContainerHasItsSettings()
{
    RaVirtualKeyboard keyboard(nullptr);
    QCOMPARE(keyboard.objectName(), QString::fromLatin1("RaVirtualKeyboard"));
    QCOMPARE(keyboard.size(), QSize(320, 262));
    QCOMPARE(keyboard.windowTitle(), QString::fromLatin1("Form"));

    const QWidget* container = keyboard.findChild<QWidget*>(QLatin1String("horizontalLayoutWidget"));
    QVERIFY(container);
    QCOMPARE(container->geometry(), QRect(0, 0, 320, 250));
    QCOMPARE(container->layout()->objectName(), QString::fromLatin1("horizontalLayout"));
    QVERIFY(qobject_cast<QHBoxLayout*>(container->layout()));
    QCOMPARE(container->layout()->spacing(), 0);
    QCOMPARE(container->layout()->contentsMargins(), QMargins(0, 0, 0, 0));

    const QWidget* rows = container->findChild<QWidget*>(QLatin1String("Widget_Key"));
    QVERIFY(rows);
    QCOMPARE(rows->layout()->objectName(), QString::fromLatin1("verticalLayout"));
    QVERIFY(qobject_cast<QVBoxLayout*>(rows->layout()));
    QCOMPARE(rows->layout()->spacing(), 2);
    QCOMPARE(rows->layout()->contentsMargins(), QMargins(1, 1, 1, 1));
    QCOMPARE(rows->layout()->count(), 7);
}

void TestRaVirtualKeyboard::formRowHasItsSettings_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("widget");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("topMargin");
    QTest::addColumn<int>("keys");
    QTest::newRow("1") << 1 << QString::fromLatin1("widget_key1") << QString::fromLatin1("Widget_Key_1") << 4 << 5;
    for (int row = 2; row <= 7; ++row) {
        QTest::newRow(QByteArray::number(row).constData())
            << row << QString::fromLatin1("widget_key%1").arg(row) << QString::fromLatin1("widget_key_%1").arg(row) << 2
            << (row == 7 ? 3 : 5);
    }
}

void TestRaVirtualKeyboard::formRowHasItsSettings()
{
    QFETCH(int, row);
    QFETCH(QString, widget);
    QFETCH(QString, layout);
    QFETCH(int, topMargin);
    QFETCH(int, keys);
    RaVirtualKeyboard keyboard(nullptr);
    const QLayout* rows = keyboard.findChild<QWidget*>(QLatin1String("Widget_Key"))->layout();
    const QWidget* rowWidget = rows->itemAt(row - 1)->widget();
    QCOMPARE(rowWidget->objectName(), widget);
    const QHBoxLayout* rowLayout = qobject_cast<QHBoxLayout*>(rowWidget->layout());
    QVERIFY(rowLayout);
    QCOMPARE(rowLayout->objectName(), layout);
    QCOMPARE(rowLayout->spacing(), 4);
    QCOMPARE(rowLayout->contentsMargins(), QMargins(2, topMargin, 2, 0));
    QCOMPARE(rowLayout->count(), keys);
    for (int i = 0; i < keys; ++i) {
        QCOMPARE(rowLayout->itemAt(i)->widget()->objectName(), QString::fromLatin1(kKeyNames[(row - 1) * 5 + i]));
    }
}

void TestRaVirtualKeyboard::keysAreMadeInOrder()
{
    RaVirtualKeyboard keyboard(nullptr);
    QStringList names;
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        names << key->objectName();
    }
    QStringList expected;
    for (const char* name : kKeyNames) {
        expected << QString::fromLatin1(name);
    }
    QCOMPARE(names, expected);
    QCOMPARE(int(names.size()), 33);
}

void TestRaVirtualKeyboard::formKeepsAnObjectNameThatIsThere()
{
    QWidget widget;
    widget.setObjectName(QLatin1String("mine"));
    Ui::RaVirtualKeyboard form;
    form.setupUi(&widget);
    QCOMPARE(widget.objectName(), QString::fromLatin1("mine"));
}

void TestRaVirtualKeyboard::retranslatedFormHasItsStandInTexts()
{
    QWidget widget;
    Ui::RaVirtualKeyboard form;
    form.setupUi(&widget);
    widget.setWindowTitle(QString());
    form.keys.first()->setText(QString());
    form.retranslateUi(&widget);
    QCOMPARE(widget.windowTitle(), QString::fromLatin1("Form"));
    for (const RaVirtualKeyboard_Btn* key : form.keys) {
        QCOMPARE(key->text(), QString::fromLatin1("PushButton"));
    }
}

void TestRaVirtualKeyboard::constructionIsLogged()
{
    const QByteArray log = capturedOutput(stderr, [] { RaVirtualKeyboard keyboard(nullptr); });
    QVERIFY(log.contains("[ravirtualkeyboard.cpp: "));
    QVERIFY(log.contains(": (init)]"));
    QVERIFY(log.contains(": (RaVirtualKeyboard)]"));
}

void TestRaVirtualKeyboard::noKeyShowsTheFormsText()
{
    RaVirtualKeyboard keyboard(nullptr);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        QVERIFY(key->text() != QLatin1String("PushButton"));
        QVERIFY(key->getText() != QLatin1String("PushButton"));
    }
}

void TestRaVirtualKeyboard::keyTypes()
{
    RaVirtualKeyboard keyboard(nullptr);
    for (RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        const bool picture = key == keyNamed(keyboard, "btn1_Lshirt") || key == keyNamed(keyboard, "btn1_backspace");
        key->setText(QLatin1String("x"));
        QCOMPARE(key->text(), picture ? QString() : QString::fromLatin1("x"));
    }
}

void TestRaVirtualKeyboard::keyStyleSheets()
{
    RaVirtualKeyboard keyboard(nullptr);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        QString expected = QLatin1String("QPushButton{background-color: rgb(54,54, 54);font-size:28px;color:white;"
                                         "border:1px solid rgba(0,0,0,0%);border-radius:10px;}");
        if (key == keyNamed(keyboard, "btn1_backspace")) {
            expected = QLatin1String("background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"
                                     "border:1px solid rgba(0,0,0,0%);border-radius:10px;");
        } else if (key == keyNamed(keyboard, "btn1_Lshirt")) {
            expected = QLatin1String("QPushButton{background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"
                                     "border:1px solid rgba(0,0,0,0%);border-radius:10px;}");
        }
        QCOMPARE(key->styleSheet(), expected);
    }
}

void TestRaVirtualKeyboard::keyPictures()
{
    RaVirtualKeyboard keyboard(nullptr);
    const QSize size(28, 28);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        QString path;
        if (key == keyNamed(keyboard, "btn1_backspace")) {
            path = QLatin1String(":/images/backspace-little.png");
        } else if (key == keyNamed(keyboard, "btn1_Lshirt")) {
            path = QLatin1String(":/images/shift-little.png");
        }
        QCOMPARE(key->icon().pixmap(size).toImage(), QIcon(path).pixmap(size).toImage());
        QCOMPARE(key->iconSize(), size);
        QCOMPARE(key->icon().pixmap(size).isNull(), path.isEmpty());
    }
}

void TestRaVirtualKeyboard::initialisedAgainItReportsOnce()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.init();
    QSignalSpy typed(&keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)));
    tap(keyNamed(keyboard, "btn2_01"));
    QCOMPARE(int(typed.size()), 1);
    QCOMPARE(int(allKeys(keyboard).size()), 33);
}

void TestRaVirtualKeyboard::pageShowsItsKeyTexts_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("keyTexts");
    const QString rowOne = QLatin1String(kRowOne);
    const QString second = rowOne + QLatin1String("< > [ ] { }") + QString(22, QLatin1Char(' '));
    QTest::newRow("letters") << 0 << rowOne + QLatin1String("a b c d e f g h i j k l m n o p q r s t u v w x y z  ");
    QTest::newRow("digits") << 1 << rowOne + QLatin1String("1 2 3 4 5 6 7 8 9 0") + QString(18, QLatin1Char(' '));
    QTest::newRow("first symbols") << 2
                                   << rowOne
                                          + QLatin1String(" . , ? ! ` ' \" - / : ; ( ) $ & @ # % ^ * + = _ \\ | ~ RI");
    QTest::newRow("second symbols") << 3 << second;
    QTest::newRow("page 4") << 4 << second;
    QTest::newRow("page 5") << 5 << second;
}

void TestRaVirtualKeyboard::pageShowsItsKeyTexts()
{
    QFETCH(int, page);
    QFETCH(QString, keyTexts);
    RaVirtualKeyboard keyboard(nullptr);
    const QList<QByteArray> messages = loggedMessages([&] { keyboard.setSymbolPage(page); });
    QVERIFY(!messages.isEmpty());
    QCOMPARE(pageText(keyboard), keyTexts);
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        if (!key->text().isEmpty()) {
            QCOMPARE(key->text(), key->getText());
        }
    }
}

void TestRaVirtualKeyboard::keysWithoutAnEntryAreNotThere_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("keys");
    QTest::newRow("letters") << 0 << 31;
    QTest::newRow("digits") << 1 << 15;
    QTest::newRow("first symbols") << 2 << 33;
    QTest::newRow("second symbols") << 3 << 11;
}

void TestRaVirtualKeyboard::keysWithoutAnEntryAreNotThere()
{
    QFETCH(int, page);
    QFETCH(int, keys);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    keyboard.setSymbolPage(page);
    QCOMPARE(int(visibleKeys(keyboard).size()), keys);

    QSignalSpy typed(&keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)));
    for (RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        if (!key->isVisible()) {
            QSignalSpy reported(key, SIGNAL(clicked(QString)));
            tap(key); // the finger was down before the page changed
            QCOMPARE(int(reported.size()), 0);
            QCOMPARE(key->getText(), QString());
        }
    }
    QCOMPARE(int(typed.size()), 0);
}

void TestRaVirtualKeyboard::everyVisibleKeyShowsSomething_data()
{
    QTest::addColumn<int>("page");
    for (int page = 0; page <= 5; ++page) {
        QTest::newRow(QByteArray::number(page).constData()) << page;
    }
}

void TestRaVirtualKeyboard::everyVisibleKeyShowsSomething()
{
    QFETCH(int, page);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(page);
    keyboard.show();
    QVERIFY(visibleKeys(keyboard).size() > 5); // no page is empty
    for (RaVirtualKeyboard_Btn* key : visibleKeys(keyboard)) {
        const QRect ink = inkOf(pictureOf(key));
        QVERIFY2(!ink.isEmpty(), qPrintable(key->objectName()));
        QVERIFY2(key->rect().contains(ink), qPrintable(key->objectName()));
    }
}

void TestRaVirtualKeyboard::noPageMovesAKey_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("digits") << 1;
    QTest::newRow("first symbols") << 2;
    QTest::newRow("second symbols") << 3;
}

void TestRaVirtualKeyboard::noPageMovesAKey()
{
    QFETCH(int, page);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    QApplication::processEvents();
    QList<QRect> before;
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        before << QRect(key->mapTo(&keyboard, QPoint()), key->size());
    }
    keyboard.setSymbolPage(page);
    QApplication::processEvents();
    QList<QRect> after;
    for (const RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        after << QRect(key->mapTo(&keyboard, QPoint()), key->size());
    }
    QCOMPARE(after, before);
}

void TestRaVirtualKeyboard::keysFillTheirRowsEvenly()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(2);
    keyboard.show();
    QApplication::processEvents();
    for (int i = 0; i < 33; ++i) {
        const RaVirtualKeyboard_Btn* key = keyNamed(keyboard, kKeyNames[i]);
        const QRect place(key->mapTo(&keyboard, QPoint()), key->size());
        QVERIFY(QRect(0, 0, 320, 250).contains(place));
        QVERIFY(i < 30 ? place.width() == 59 || place.width() == 60 : place.width() >= 101 && place.width() <= 103);
        QVERIFY(i < 5 ? place.height() == 29 || place.height() == 30 : place.height() == 31 || place.height() == 32);
        if (i >= 5 && i < 30) { // stands right below its neighbour
            const RaVirtualKeyboard_Btn* above = keyNamed(keyboard, kKeyNames[i - 5]);
            QCOMPARE(place.x(), above->mapTo(&keyboard, QPoint()).x());
        }
    }
}

void TestRaVirtualKeyboard::pageKeyIsMarked_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("marked");
    QTest::newRow("letters") << 0 << QString::fromLatin1("btn1_02");
    QTest::newRow("digits") << 1 << QString::fromLatin1("btn1_03");
    QTest::newRow("first symbols") << 2 << QString::fromLatin1("btn1_04");
    QTest::newRow("second symbols") << 3 << QString::fromLatin1("btn1_04");
}

void TestRaVirtualKeyboard::pageKeyIsMarked()
{
    QFETCH(int, page);
    QFETCH(QString, marked);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    keyboard.setSymbolPage(page);
    for (RaVirtualKeyboard_Btn* key : visibleKeys(keyboard)) {
        const QImage picture = pictureOf(key);
        const QColor bar = picture.pixelColor(key->width() / 2, key->height() - 3);
        QCOMPARE(bar.red() > bar.green() + 50, key->objectName() == marked);
    }
}

void TestRaVirtualKeyboard::spaceKeyHasNeitherTextNorPictureOfItsOwn()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(2);
    const RaVirtualKeyboard_Btn* space = keyNamed(keyboard, "btn2_01");
    QCOMPARE(space, const_cast<const RaVirtualKeyboard_Btn*>(keyboard.spaceKey()));
    QCOMPARE(space->text(), QString());
    QCOMPARE(space->getText(), QString());
    QVERIFY(space->icon().availableSizes().isEmpty());
    QVERIFY(space->iconSize().isValid());
}

void TestRaVirtualKeyboard::spaceKeyShowsTheHostsPicture()
{
    RaVirtualKeyboard keyboard(nullptr);
    RaVirtualKeyboard_Btn* const space = keyboard.spaceKey();
    keyboard.setSymbolPage(2);
    const QImage drawn = pictureOf(space);

    QVERIFY(QResource::registerResource(QLatin1String(HOST_PICTURES)));
    keyboard.setSymbolPage(2);
    const QImage withPicture = pictureOf(space);
    const QImage icon = space->icon().pixmap(space->iconSize()).toImage();
    const QIcon picture(QLatin1String(":/images/space_key.png"));
    const QImage provided = picture.pixmap(space->iconSize()).toImage();
    const QString keyText = space->getText();
    keyboard.setSymbolPage(3);
    const bool cleared = space->icon().isNull();
    QResource::unregisterResource(QLatin1String(HOST_PICTURES));

    QVERIFY(!provided.isNull());
    QCOMPARE(icon, provided);
    QVERIFY(withPicture != drawn);
    QCOMPARE(keyText, QString());
    QVERIFY(cleared);
}

void TestRaVirtualKeyboard::spaceKeyReportsTheEmptyText()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(2);
    QSignalSpy reported(keyboard.spaceKey(), SIGNAL(clicked(QString)));
    QSignalSpy typed(&keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)));
    tap(keyboard.spaceKey());
    QCOMPARE(int(reported.size()), 1);
    QCOMPARE(reported.at(0).at(0).toString(), QString());
    QCOMPARE(int(typed.size()), 0);
}

void TestRaVirtualKeyboard::spaceKeyKeepsItsLook()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    keyboard.setSymbolPage(2);
    const QImage before = pictureOf(keyboard.spaceKey());
    tap(keyboard.spaceKey());
    QCOMPARE(pictureOf(keyboard.spaceKey()), before);
    tap(keyboard.spaceKey());
    QCOMPARE(pictureOf(keyboard.spaceKey()), before);
}

void TestRaVirtualKeyboard::spaceKeyIsOneObjectOnAllPages()
{
    RaVirtualKeyboard keyboard(nullptr);
    RaVirtualKeyboard_Btn* const onLetters = keyboard.spaceKey();
    QVERIFY(onLetters);
    QVERIFY(!onLetters->getText().isEmpty());
    keyboard.setSymbolPage(2);
    QCOMPARE(keyboard.spaceKey(), onLetters);
    keyboard.setSymbolPage(3);
    QCOMPARE(keyboard.spaceKey(), onLetters);
    QVERIFY(!onLetters->getText().isEmpty());
}

void TestRaVirtualKeyboard::nextPageKeyKeepsItsText()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(2);
    const RaVirtualKeyboard_Btn* next = keyNamed(keyboard, "btn7_03");
    QCOMPARE(next->getText(), QString::fromLatin1("RI"));
    QCOMPARE(next->text(), QString()); // an arrow instead
}

void TestRaVirtualKeyboard::nextPageKeyIsOnlyThereWithANextPage()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    for (int page = 0; page <= 5; ++page) {
        keyboard.setSymbolPage(page);
        QCOMPARE(visibleKey(keyboard, QLatin1String("RI")) != nullptr, page == 2);
    }
}

void TestRaVirtualKeyboard::shiftTurnsTheLettersAndShowsIt()
{
    RaVirtualKeyboard keyboard(nullptr);
    RaVirtualKeyboard_Btn* shift = keyNamed(keyboard, "btn1_Lshirt");
    const QString plain = shift->styleSheet();

    tap(shift);
    QCOMPARE(pageText(keyboard),
             QLatin1String(kRowOne) + QLatin1String("A B C D E F G H I J K L M N O P Q R S T U V W X Y Z  "));
    QVERIFY(shift->styleSheet().contains(QLatin1String("rgba(248, 129, 133,100%)")));
    QCOMPARE(keyNamed(keyboard, "btn1_02")->text(), QString::fromLatin1("ABC"));
    QCOMPARE(keyNamed(keyboard, "btn1_02")->getText(), QString::fromLatin1("abc"));

    tap(shift);
    QCOMPARE(keyNamed(keyboard, "btn2_01")->getText(), QString::fromLatin1("a"));
    QCOMPARE(shift->styleSheet(), plain);
    QCOMPARE(keyNamed(keyboard, "btn1_02")->text(), QString::fromLatin1("abc"));
}

void TestRaVirtualKeyboard::letterCaseOutlastsOtherPages()
{
    RaVirtualKeyboard keyboard(nullptr);
    tap(keyNamed(keyboard, "btn1_Lshirt"));
    tap(keyNamed(keyboard, "btn1_03"));
    QCOMPARE(keyNamed(keyboard, "btn1_02")->text(), QString::fromLatin1("ABC")); // says what it leads to
    tap(keyNamed(keyboard, "btn1_02"));
    QCOMPARE(keyNamed(keyboard, "btn2_01")->getText(), QString::fromLatin1("A"));
}

void TestRaVirtualKeyboard::everyPrintableCharacterCanBeTyped_data()
{
    QTest::addColumn<QString>("character");
    for (char c = ' '; c <= '~'; ++c) {
        QTest::newRow(QByteArray(1, c).constData()) << QString(QLatin1Char(c));
    }
}

// Taps visible keys only: page by page, and on each the key that reports the character.
void TestRaVirtualKeyboard::everyPrintableCharacterCanBeTyped()
{
    QFETCH(QString, character);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.show();
    Owner owner(keyboard);
    const QString keyText = character == QLatin1String(" ") ? QString() : character;

    const QStringList way = QStringList() << QLatin1String("ABC") << QLatin1String("123") << QLatin1String("!@#")
                                          << QLatin1String("RI");
    RaVirtualKeyboard_Btn* key = visibleKey(keyboard, keyText);
    for (int i = 0; !key && i < int(way.size()); ++i) {
        RaVirtualKeyboard_Btn* pageKey = visibleKey(keyboard, way.at(i));
        QVERIFY(pageKey);
        tap(pageKey);
        key = visibleKey(keyboard, keyText);
    }
    QVERIFY(key);
    tap(key);
    QCOMPARE(owner.text, character);
    tap(key);
    QCOMPARE(owner.text, character + character);
    tap(visibleKey(keyboard, QLatin1String("BS")));
    QCOMPARE(owner.text, character);
}

void TestRaVirtualKeyboard::keysHaveAccessibleNames_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    const auto add = [](const char* name, int page, const char* key) {
        QTest::newRow(name) << page << QString::fromLatin1(key) << QString::fromLatin1(name);
    };
    add("Shift", 0, "btn1_Lshirt");
    add("Letters", 1, "btn1_02");
    add("Digits", 0, "btn1_03");
    add("Symbols", 0, "btn1_04");
    add("Backspace", 0, "btn1_backspace");
    add("Space", 2, "btn2_01");
    add("More symbols", 2, "btn7_03");
    add("a", 0, "btn2_01");
    add("1", 1, "btn2_01");
    add("&", 2, "btn5_01");
    add("<", 3, "btn2_01");
}

void TestRaVirtualKeyboard::keysHaveAccessibleNames()
{
    QFETCH(int, page);
    QFETCH(QString, key);
    QFETCH(QString, name);
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(page);
    QCOMPARE(keyNamed(keyboard, key.toLatin1().constData())->accessibleName(), name);
}

void TestRaVirtualKeyboard::focusWalksTheKeysInOrder()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(2);
    keyboard.show();
    keyboard.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&keyboard));
    keyNamed(keyboard, kKeyNames[0])->setFocus();
    for (const char* name : kKeyNames) {
        QVERIFY(QApplication::focusWidget());
        QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    }
}

void TestRaVirtualKeyboard::focusSkipsKeysWithoutAnEntry()
{
    RaVirtualKeyboard keyboard(nullptr);
    keyboard.setSymbolPage(3);
    keyboard.show();
    keyboard.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&keyboard));
    keyNamed(keyboard, "btn3_01")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1("btn1_Lshirt"));
}

void TestRaVirtualKeyboard::focusStaysInTheKeyboardWhenItsKeyGoes()
{
    QWidget page;
    RaVirtualKeyboard keyboard(&page);
    QLineEdit after(&page);
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    keyboard.setSymbolPage(2);
    keyNamed(keyboard, "btn7_03")->setFocus();
    QTest::keyClick(keyNamed(keyboard, "btn7_03"), Qt::Key_Space);
    QCOMPARE(keyNamed(keyboard, "btn2_01")->getText(), QString::fromLatin1("<"));
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(keyNamed(keyboard, "btn1_04")));
}

void TestRaVirtualKeyboard::tapLeavesTheFocusInTheField()
{
    QWidget page;
    QLineEdit field(&page);
    RaVirtualKeyboard keyboard(&page);
    page.show();
    page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    field.setFocus();
    for (const char* name : {"btn2_01", "btn1_Lshirt", "btn1_03", "btn1_backspace"}) {
        QTest::mouseClick(keyNamed(keyboard, name), Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(&field));
    }
}

void TestRaVirtualKeyboard::keypadTypes()
{
    RaVirtualKeyboard keyboard(nullptr);
    QSignalSpy typed(&keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)));
    QTest::keyClick(keyNamed(keyboard, "btn2_02"), Qt::Key_Return);
    QTest::keyClick(keyNamed(keyboard, "btn2_03"), Qt::Key_Space);
    QCOMPARE(int(typed.size()), 2);
    QCOMPARE(typed.at(0).at(0).toString(), QString::fromLatin1("b"));
    QCOMPARE(typed.at(1).at(0).toString(), QString::fromLatin1("c"));
}

void TestRaVirtualKeyboard::nothingGrowsOverAThousandKeyboards()
{
    bool digits = false;
    const auto makeAndUse = [&digits] {
        QWidget page;
        RaVirtualKeyboard keyboard(&page);
        keyboard.show();
        digits = !digits;
        keyboard.recKeyClicked(QLatin1String(digits ? "123" : "ABC"));
    };
    makeAndUse();
    const int stylesBefore = int(qApp->findChildren<QStyle*>().size());
    const long growth = heapGrowth(makeAndUse);
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
    QCOMPARE(int(qApp->findChildren<QStyle*>().size()), stylesBefore);
}

QTEST_MAIN(TestRaVirtualKeyboard)
#include "tst_ravirtualkeyboard.moc"
