// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// A host application as a device maker would write it: a home page, and the library's Wi-Fi page over it.

#include "homepage.h"
#include "rememberednetworks.h"

#include <rawificontrol.h>

#include <QApplication>
#include <QLocale>
#include <QTranslator>

namespace {

// The library and the host each carry their own catalogues. Where the locale has none, texts are as they are
// in the sources: the library's are English and Chinese.
void speakTheLocale(QApplication& application)
{
    for (const char* catalogue : {"rawificontrol", "rawifihost"}) {
        QTranslator* const texts = new QTranslator(&application);
        if (texts->load(QLocale(), QLatin1String(catalogue), QLatin1String("_"), QLatin1String(":/translations"))) {
            QApplication::installTranslator(texts);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    speakTheLocale(application); // before the first text is made

    // The order matters: the manager's constructor forgets an application set before.
    RaWifiManager* const wifi = RaWifiManager::instance();
    RaWifiManager::setMainAppObj(&application);

    HomePage home(wifi);
    home.setWindowFlags(Qt::FramelessWindowHint);
    home.resize(320, 480);
    home.show();

    RememberedNetworks remembered(wifi);
    remembered.bringBack();

    const int status = application.exec();
    wifi->setParent(nullptr); // the library destroys its page itself
    RaWifiManager::close();
    return status;
}
