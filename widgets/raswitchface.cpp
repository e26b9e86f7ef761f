// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchface.h"

#include "qtcompat.h"
#include "rafocus.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>

namespace {

enum Style { HalfWidthKnob = 0, RoundKnob = 1, WideRoundKnob = 2 };

QColor blended(const QColor& off, const QColor& on, double onShare)
{
    const double offShare = 1 - onShare;
    return QColor(
        qRound(off.red() * offShare + on.red() * onShare), qRound(off.green() * offShare + on.green() * onShare),
        qRound(off.blue() * offShare + on.blue() * onShare), qRound(off.alpha() * offShare + on.alpha() * onShare));
}

} // namespace

RaSwitchFace::RaSwitchFace()
    : bgColorOff(225, 225, 225),
      bgColorOn(250, 250, 250),
      sliderColorOff(100, 100, 100),
      sliderColorOn(100, 184, 255),
      textColorOff(255, 255, 255),
      textColorOn(10, 10, 10),
      imageOff(QLatin1String(":/image/btncheckoff1.png")),
      imageOn(QLatin1String(":/image/btncheckon1.png"))
{}

QFont RaSwitchFace::font()
{
    return QFont(QLatin1String("Microsoft Yahei"), 10);
}

int RaSwitchFace::onX(const QRect& area) const
{
    const int width = area.right() - area.left();
    const int height = area.bottom() - area.top();
    switch (style) {
    case RoundKnob:
        return width - height;
    case WideRoundKnob:
        return width - height + space;
    default:
        return width - width / 2;
    }
}

void RaSwitchFace::setStepFor(int width)
{
    m_step = qMax(1, width / 50);
}

void RaSwitchFace::placeKnob(int x)
{
    m_x = x;
    m_endX = x;
    m_gliding = false;
}

void RaSwitchFace::startGlide(int x)
{
    m_endX = x;
    m_gliding = true;
}

bool RaSwitchFace::glide()
{
    m_x += checked ? m_step : -m_step;
    const bool arrived = checked ? m_x >= m_endX : m_x <= m_endX;
    if (arrived) {
        placeKnob(m_endX);
    }
    return arrived;
}

// The end positions count from pixel to pixel, one less than the extent; the knob's sizes here make it rest
// with the same distance to the switch's edge at both ends.
QRectF RaSwitchFace::knobArea(const QRect& area) const
{
    const int height = area.height();
    switch (style) {
    case RoundKnob:
        return QRectF(area.left() + m_x + space, area.top() + space, height - 2 * space, height - 2 * space);
    case WideRoundKnob:
        return QRectF(area.left() + m_x, area.top() + space / 2.0, height - space, height - space);
    default:
        return QRectF(area.left() + m_x + space, area.top() + space, (area.width() - 1) / 2 + 1 - 2 * space,
                      height - 2 * space);
    }
}

void RaSwitchFace::draw(QPainter* painter, const QRect& area, int onX, bool focused) const
{
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    // At rest the colours are those of the state; on the way they follow the knob.
    const double onShare = m_gliding && onX > 0 ? qBound(0.0, double(m_x) / onX, 1.0) : (checked ? 1.0 : 0.0);
    const QRectF knob = knobArea(area);

    drawBg(painter, area, onShare);
    QRectF free(area);
    const double end = area.height() / 8.0; // where the track's round end begins to narrow
    if (checked) {
        free.adjust(end, 0, 0, 0);
        free.setRight(knob.left());
    } else {
        free.adjust(0, 0, -end, 0);
        free.setLeft(knob.right());
    }
    const QString& text = checked ? textOn : textOff;
    if (text.isEmpty()) {
        drawImage(painter, free);
    } else {
        drawText(painter, free, text);
    }
    drawSlider(painter, knob, onShare);
    if (focused) {
        raDrawFocusMark(painter, area, style == HalfWidthKnob ? rectRadius : area.height() / 2.0);
    }
    painter->restore();
}

void RaSwitchFace::drawBg(QPainter* painter, const QRect& area, double onShare) const
{
    QRectF track(area);
    if (style == WideRoundKnob) { // a slim track under a knob that stands out of it
        const double inset = area.height() / 5.0;
        track.adjust(space, inset, -space, -inset);
    }
    const double radius = style == HalfWidthKnob ? rectRadius : track.height() / 2;
    painter->setPen(Qt::NoPen);
    painter->setBrush(blended(bgColorOff, bgColorOn, onShare));
    painter->drawRoundedRect(track, radius, radius);

    // A faint edge keeps a dark track visible on dark ground.
    painter->setPen(QPen(QColor(255, 255, 255, 40), 1));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(track.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

void RaSwitchFace::drawText(QPainter* painter, const QRectF& area, const QString& text) const
{
    const int margin = 1;
    const int room = qMax(0, int(area.width()) - 2 * margin);
    QFont textFont = painter->font();
    QFontMetrics metrics(textFont);
    for (int size = metrics.ascent(); size >= 8 && raTextWidth(metrics, text) > room; --size) {
        textFont.setPixelSize(size);
        metrics = QFontMetrics(textFont);
    }
    painter->setFont(textFont);
    painter->setPen(checked ? textColorOn : textColorOff);
    painter->drawText(area, Qt::AlignCenter, metrics.elidedText(text, Qt::ElideRight, room));
}

void RaSwitchFace::drawImage(QPainter* painter, const QRectF& area) const
{
    const QString& path = checked ? imageOn : imageOff;
    if (!QFile::exists(path)) {
        return; // the colours alone tell the state
    }
    const QPixmap picture(path);
    QSizeF size(picture.size());
    if (size.width() > area.width() || size.height() > area.height()) {
        size.scale(area.size(), Qt::KeepAspectRatio);
    }
    QRectF target(QPointF(), size);
    target.moveCenter(area.center());
    painter->drawPixmap(target, picture, picture.rect());
}

void RaSwitchFace::drawSlider(QPainter* painter, const QRectF& knob, double onShare) const
{
    const double radius = style == HalfWidthKnob ? qMax(0, rectRadius - space) : knob.height() / 2;
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 0, 0, 50));
    painter->drawRoundedRect(knob.translated(0, 1), radius, radius); // shadow
    painter->setBrush(blended(sliderColorOff, sliderColorOn, onShare));
    painter->drawRoundedRect(knob, radius, radius);
}
