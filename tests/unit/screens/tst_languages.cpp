// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "drawntexts.h"
#include "language.h"
#include "networks.h"
#include "rabasewindow.h"
#include "racirclewait.h"
#include "raitempushbtn.h"
#include "rapswdlineedit.h"
#include "rasliderwidget.h"
#include "ravirtualkeyboard.h"
#include "rawifiinputwnd.h"
#include "rawifilistwidget.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>
#include <functional>
#include <memory>

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/** What a text has of the other language: what is written in its letters. */
QString foreignPart(const QString& locale, const QString& text)
{
    // Addresses, the keys that turn the keyboard's pages, and words that Chinese writes so, too.
    static const QRegularExpression ofNoLanguage(
        QLatin1String("(?:[0-9a-f]{2}:){5}[0-9a-f]{2}|\\b(?:MAC|IP|ABC|abc)(?![A-Za-z])|%1"));
    static const QRegularExpression latinWord(QLatin1String("[A-Za-z]{2,}"));
    static const QRegularExpression chinese(
        QLatin1String("[\\x{2E80}-\\x{9FFF}\\x{F900}-\\x{FAFF}\\x{FF00}-\\x{FFEF}]+"));
    QString rest = text;
    rest.remove(ofNoLanguage);
    return (locale == QLatin1String("en") ? chinese : latinWord).match(rest).captured();
}

struct Message
{
    QByteArray context;
    QByteArray source;
    QString translation;
};

QList<Message> catalogue(const QString& locale)
{
    QFile file(QLatin1String(RAWIFI_TRANSLATIONS_DIR "/rawificontrol_") + locale + QLatin1String(".ts"));
    QList<Message> messages;
    if (!file.open(QIODevice::ReadOnly)) {
        return messages;
    }
    QXmlStreamReader xml(&file);
    Message message;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == QLatin1String("name")) {
            message.context = xml.readElementText().toUtf8();
        } else if (xml.name() == QLatin1String("source")) {
            message.source = xml.readElementText().toUtf8();
        } else if (xml.name() == QLatin1String("translation")) {
            message.translation = xml.readElementText();
            messages << message;
        }
    }
    return messages;
}

// --- The pages, with a network whose name is in the page's language

using Page = std::shared_ptr<QWidget>;

std::shared_ptr<RaWifiListWidget> list(const QByteArray& name)
{
    setAir(name.isEmpty() ? QList<APData>() : QList<APData>() << network(1, name));
    const QString title = QCoreApplication::translate("RaWifiManager", "Network Setting");
    auto page = std::make_shared<RaWifiListWidget>(nullptr, true, title, utf8("00:11:22:33:44:55"));
    page->setWifiSwitch(true);
    page->show();
    return page;
}

Page listAtRest(const QByteArray& name)
{
    auto page = list(name);
    page->showRefreshListData();
    return page;
}

Page listDiscovering(const QByteArray& name)
{
    auto page = list(name);
    page->showRefreshListData();
    page->setScanning(true);
    return page;
}

Page listWithoutNetworks(const QByteArray&)
{
    auto page = list(QByteArray());
    page->showRefreshListData();
    return page;
}

Page listOff(const QByteArray& name)
{
    auto page = list(name);
    page->setWifiSwitch(false);
    return page;
}

Page listJoining(const QByteArray& name)
{
    auto page = list(name);
    page->showRefreshListData();
    page->recWifiListMsg(network(1, name), false);
    return page;
}

Page listJoined(const QByteArray& name)
{
    auto page = list(name);
    page->showRefreshListData();
    page->recWifiListMsg(network(1, name), true);
    return page;
}

Page passwordWith(const QByteArray& name, const QString& text)
{
    auto page = std::make_shared<RaWifiInputWnd>();
    page->setAPData(network(1, name));
    page->show();
    for (const QChar c : text) {
        page->setTextSlot(QString(c), page->findChild<raPsWdLineEdit*>()->objectName());
    }
    return page;
}

Page passwordEmpty(const QByteArray& name)
{
    return passwordWith(name, QString());
}

Page passwordTooLong(const QByteArray& name)
{
    return passwordWith(name, QString(64, QLatin1Char('.')));
}

Page passwordImpossible(const QByteArray& name)
{
    return passwordWith(name, QString(QChar(0x20ac)));
}

Page passwordMissing(const QByteArray& name)
{
    auto page = std::make_shared<RaWifiInputWnd>();
    page->setAPData(network(1, name));
    page->show();
    page->onOkClicked();
    return page;
}

Page keyboard(const char* key)
{
    auto page = std::make_shared<RaVirtualKeyboard>(nullptr);
    page->show();
    page->recKeyClicked(utf8(key));
    return page;
}

Page slider(RaSliderWidget::RA_SLIDERTYPE type)
{
    return std::make_shared<RaSliderWidget>(type);
}

Page titledSlider(const QByteArray& name)
{
    auto page = std::make_shared<RaBaseWindow>(nullptr, QString::fromUtf8(name), QString());
    page->createUI(QString::fromUtf8(name), RaSliderWidget::VOLUME, QString());
    page->show();
    return page;
}

struct Scene
{
    const char* name;
    std::function<Page(const QByteArray&)> make;
    int leastTexts; ///< that the page has to show for the test to mean something
};

const Scene scenes[] = {
    {"list", listAtRest, 4},
    {"list, discovering again", listDiscovering, 5},
    {"list without networks", listWithoutNetworks, 4},
    {"list, off", listOff, 3},
    {"list, joining", listJoining, 5},
    {"list, joined", listJoined, 5},
    {"password page", passwordEmpty, 10},
    {"password page, too long a text", passwordTooLong, 10},
    {"password page, a letter that no password has", passwordImpossible, 10},
    {"password page, left empty", passwordMissing, 10},
    {"keyboard, letters", [](const QByteArray&) { return keyboard("abc"); }, 30},
    {"keyboard, digits", [](const QByteArray&) { return keyboard("123"); }, 15},
    {"keyboard, symbols", [](const QByteArray&) { return keyboard("!@#"); }, 15},
    {"volume", [](const QByteArray&) { return slider(RaSliderWidget::VOLUME); }, 1},
    {"brightness", [](const QByteArray&) { return slider(RaSliderWidget::BRIGHTNESS); }, 1},
    {"spinner", [](const QByteArray&) { return std::make_shared<RaCircleWait>(nullptr); }, 1},
    {"slider on a page with a title", titledSlider, 3},
};

} // namespace

class TestLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void localeChoosesTheCatalogue_data();
    void localeChoosesTheCatalogue();
    void everyTranslationIsCompiledIn_data();
    void everyTranslationIsCompiledIn();
    void everyTranslationIsInItsLanguage_data();
    void everyTranslationIsInItsLanguage();
    void noTextOfTheOtherLanguageIsOnAnyPage_data();
    void noTextOfTheOtherLanguageIsOnAnyPage();
    void withoutACatalogueTheTextsAreAsCompiledIn();
};

void TestLanguages::cleanup()
{
    setAir(QList<APData>());
}

void TestLanguages::localeChoosesTheCatalogue_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("back");
    QTest::newRow("zh_CN") << utf8("zh_CN") << utf8("返回");
    QTest::newRow("en") << utf8("en") << utf8("Back");
    QTest::newRow("en_GB") << utf8("en_GB") << utf8("Back");
    QTest::newRow("none for French") << utf8("fr_FR") << utf8("返回");
}

void TestLanguages::localeChoosesTheCatalogue()
{
    QFETCH(QString, locale);
    QFETCH(QString, back);
    const Language language(locale);
    QCOMPARE(QCoreApplication::translate("RaWifiInputWnd", "返回"), back);
}

void TestLanguages::everyTranslationIsCompiledIn_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("English") << utf8("en");
    QTest::newRow("Chinese") << utf8("zh_CN");
}

void TestLanguages::everyTranslationIsCompiledIn()
{
    QFETCH(QString, locale);
    const QList<Message> messages = catalogue(locale);
    QVERIFY(messages.size() >= 40);
    const Language language(locale);
    QVERIFY(language.isLoaded());
    for (const Message& message : messages) {
        QCOMPARE(QCoreApplication::translate(message.context.constData(), message.source.constData()),
                 message.translation);
    }
}

void TestLanguages::everyTranslationIsInItsLanguage_data()
{
    everyTranslationIsCompiledIn_data();
}

void TestLanguages::everyTranslationIsInItsLanguage()
{
    QFETCH(QString, locale);
    const QList<Message> messages = catalogue(locale);
    QVERIFY(messages.size() >= 40);
    for (const Message& message : messages) {
        QVERIFY2(!message.translation.isEmpty(), message.source.constData());
        QVERIFY2(foreignPart(locale, message.translation).isEmpty(), qPrintable(message.translation));
        QCOMPARE(message.translation.contains(QLatin1String("%1")), message.source.contains("%1"));
    }
}

void TestLanguages::noTextOfTheOtherLanguageIsOnAnyPage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("scene");
    for (const char* locale : {"en", "zh_CN"}) {
        for (int i = 0; i < int(sizeof scenes / sizeof *scenes); ++i) {
            QTest::newRow(qPrintable(utf8(locale) + utf8(": ") + utf8(scenes[i].name))) << utf8(locale) << i;
        }
    }
}

void TestLanguages::noTextOfTheOtherLanguageIsOnAnyPage()
{
    QFETCH(QString, locale);
    QFETCH(int, scene);
    const Language language(locale);
    QVERIFY(language.isLoaded());
    const Page page = scenes[scene].make(locale == utf8("en") ? "Kitchen" : "厨房");
    const QStringList texts = textsOf(page.get());
    QVERIFY2(texts.size() >= scenes[scene].leastTexts, qPrintable(texts.join(utf8(" | "))));
    for (const QString& text : texts) {
        QVERIFY2(foreignPart(locale, text).isEmpty(), qPrintable(text));
    }
}

void TestLanguages::withoutACatalogueTheTextsAreAsCompiledIn()
{
    const Page page = listJoining("Kitchen");
    const QString texts = textsOf(page.get()).join(utf8(" | "));
    QVERIFY2(texts.contains(utf8("WIFI")), qPrintable(texts));
    QVERIFY2(texts.contains(utf8("正在连接中")), qPrintable(texts));
    QVERIFY2(texts.contains(utf8("Network Setting")), qPrintable(texts));
}

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
