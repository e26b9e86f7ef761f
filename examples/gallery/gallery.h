// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef GALLERY_H
#define GALLERY_H

#include <QList>
#include <QRect>
#include <QString>
#include <QWidget>

/** A dark page, as wide as the device's screen, of sections: a heading and below it what it is about. */
class Gallery : public QWidget
{
    Q_OBJECT
public:
    Gallery();

    /** \a heading, which is shown translated, also names the section's picture. */
    void beginSection(const char* heading);
    /** Puts \a sample, which may be a window of its own, at the end of the page and takes it over. */
    void add(QWidget* sample, int height);

    /** Writes every section, and the whole page, as a PNG file into \a directory, which is made if need be.
     */
    bool save(const QString& directory);

private:
    struct Section
    {
        const char* heading;
        QRect place;
    };

    void append(QWidget* widget, int height);

    QList<Section> m_sections;
    int m_bottom = 0;
};

#endif
