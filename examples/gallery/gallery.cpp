// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "gallery.h"

#include <QDir>
#include <QLabel>
#include <QPixmap>

namespace {

const int screenWidth = 320;
const int headingHeight = 40;
const int headingPixels = 15;
const int gap = 6; // below each sample
const QColor background(0x1e, 0x21, 0x29);
const QColor accent(248, 129, 133);

QLabel* headingLabel(const QString& heading)
{
    QLabel* label = new QLabel(heading);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setIndent(10);
    QFont font = label->font();
    font.setPixelSize(headingPixels);
    font.setBold(true);
    label->setFont(font);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, accent);
    label->setPalette(colours);
    return label;
}

QString fileName(const QString& directory, const char* heading)
{
    const QString name = QString::fromLatin1(heading).toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
    return QDir(directory).filePath(name + QLatin1String(".png"));
}

} // namespace

Gallery::Gallery()
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, background);
    setPalette(colours);
    setAutoFillBackground(true);
}

void Gallery::beginSection(const char* heading)
{
    m_sections << Section{heading, QRect(0, m_bottom, screenWidth, 0)};
    append(headingLabel(tr(heading)), headingHeight);
}

void Gallery::add(QWidget* sample, int height)
{
    append(sample, height);
    m_bottom += gap;
    m_sections.last().place.setBottom(m_bottom - 1);
    resize(screenWidth, m_bottom);
}

void Gallery::append(QWidget* widget, int height)
{
    widget->setParent(this);
    widget->setGeometry(0, m_bottom, screenWidth, height);
    widget->show();
    m_bottom += height;
}

bool Gallery::save(const QString& directory)
{
    QPixmap page(size());
    render(&page);
    bool saved = QDir().mkpath(directory) && page.save(fileName(directory, "gallery"));
    for (const Section& section : m_sections) {
        saved = saved && page.copy(section.place).save(fileName(directory, section.heading));
    }
    return saved;
}
