// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// Every widget of the library, live, on one page. With --save DIR it writes a picture of each section and of
// the whole page instead, for which it needs no screen.

#include "gallery.h"
#include "samples.h"

#include <QApplication>
#include <QLocale>
#include <QScrollArea>
#include <QScrollBar>
#include <QTranslator>
#include <cstdio>
#include <cstring>

namespace {

// The library and the gallery each carry their own catalogues.
void speakTheLocale(QApplication& application)
{
    for (const char* catalogue : {"rawificontrol", "rawifigallery"}) {
        QTranslator* const texts = new QTranslator(&application);
        if (texts->load(QLocale(), QLatin1String(catalogue), QLatin1String("_"), QLatin1String(":/translations"))) {
            QApplication::installTranslator(texts);
        }
    }
}

int runOnScreen(Gallery* gallery)
{
    QScrollArea window;
    window.setWindowTitle(Gallery::tr("Gallery"));
    window.setFrameShape(QFrame::NoFrame);
    window.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    window.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    window.setWidget(gallery);
    window.resize(gallery->width() + window.verticalScrollBar()->sizeHint().width(), 640);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    const bool saves = argc == 3 && std::strcmp(argv[1], "--save") == 0;
    if (argc > 1 && !saves) {
        std::fprintf(stderr, "usage: rawifigallery [--save DIR]\n");
        return 2;
    }
    if (saves && qgetenv("QT_QPA_PLATFORM").isEmpty()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    speakTheLocale(application);

    Gallery* gallery = new Gallery;
    addSamples(gallery);
    if (!saves) {
        return runOnScreen(gallery); // which owns the gallery now
    }
    const bool saved = gallery->save(QString::fromLocal8Bit(argv[2]));
    if (!saved) {
        std::fprintf(stderr, "rawifigallery: cannot write to %s\n", argv[2]);
    }
    delete gallery;
    return saved ? 0 : 1;
}
