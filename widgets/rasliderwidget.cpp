// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rasliderwidget.h"

#include "qtcompat.h"
#include "raaccessible.h"
#include "rafocus.h"
#include "raicons.h"
#include "ralog.h"
#include "ratheme.h"

#include <QKeyEvent>
#include <QPainter>

RaSliderWidget::RaSliderWidget(RA_SLIDERTYPE type, QWidget* parent)
    : RaBaseWidget(parent),
      m_inactiveColor(QLatin1String("#363636")),
      m_activeColor(QLatin1String("#f88185")),
      m_type(type),
      m_levels(type == VOLUME ? 5 : 4),
      m_increasePicture(type == VOLUME ? QLatin1String(":pngs/images/increase_vol.png")
                                       : QLatin1String(":pngs/images/increase_brightness.png")),
      m_decreasePicture(type == VOLUME ? QLatin1String(":pngs/images/decrease_vol.png")
                                       : QLatin1String(":pngs/images/decrease_brightness.png"))
{
    raInstallAccessibility();
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    setAccessibleName(type == VOLUME ? tr("Volume") : tr("Brightness"));
}

RaSliderWidget::~RaSliderWidget() {}

QSize RaSliderWidget::sizeHint() const
{
    return QSize(320, 120);
}

void RaSliderWidget::keyUp()
{
    if (m_level < m_levels) {
        choose(m_level + 1);
    }
    update();
}

void RaSliderWidget::keyDown()
{
    if (m_level > 0) {
        choose(m_level - 1);
    }
    update();
}

void RaSliderWidget::saveConfig(int level)
{
    RA_DEBUG("save config, level is %d", level);
}

void RaSliderWidget::setLevel(int level)
{
    m_level = qBound(0, level, m_levels);
    raAnnounceValue(this, m_level);
    update();
}

void RaSliderWidget::choose(int level)
{
    setLevel(level);
    saveConfig(m_level);
}

int RaSliderWidget::unit() const
{
    return height() / 3 - 10;
}

void RaSliderWidget::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // not a press on what lies below, too
}

void RaSliderWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const int u = unit();
    // Not the gap of the drawing: the fields of touch spread over the whole width, blocks and gaps alike.
    const int gap = (width() - 2 * u - m_levels * u) / (m_levels + 1);
    const int step = u + gap;
    const int x = raEventPos(event).x();
    const int y = raEventPos(event).y();
    RA_DEBUG("spacing %d", gap);
    RA_DEBUG("x %d, y %d", x, y);

    int level = m_level;
    if (y >= u && y < 2 * u) {
        if (x > 0 && x <= u) {
            level = 0;
            RA_DEBUG("curLevel %d", level);
        } else if (x > m_levels * step + step) {
            level = m_levels;
            RA_DEBUG("curLevel %d", level);
        } else if (step > 0 && x >= step && x <= m_levels * step + step - gap) {
            level = qBound(0, (x + 1) / step, m_levels);
            RA_DEBUG("curLevel is %d", level);
        }
    }
    if (level != m_level) {
        choose(level);
    }
    update();
}

void RaSliderWidget::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
        keyUp();
        break;
    case Qt::Key_Down:
    case Qt::Key_Left:
        keyDown();
        break;
    default:
        RaBaseWidget::keyPressEvent(event);
    }
}

void RaSliderWidget::resizeEvent(QResizeEvent* event)
{
    RaBaseWidget::resizeEvent(event);
    update();
}

void RaSliderWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), RaTheme::background());
    painter.drawPixmap(0, 0, paintToPixmap());
}

QPixmap RaSliderWidget::paintToPixmap()
{
    QPixmap pixmap = raTransparentPixmap(this, size());
    const int u = unit();
    if (u <= 0) {
        return pixmap;
    }
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPicture(&painter, QRect(0, u, u, u), m_decreasePicture, false);
    drawPicture(&painter, QRect(width() - u, u, u, u), m_increasePicture, true);

    const int gap = (width() - 2 * u - m_levels * u - 60) / (m_levels + 1);
    const int first = height() / 3 + 20 + gap;
    painter.setPen(QPen(Qt::white, 1));
    for (int block = 0; block < m_levels; ++block) {
        painter.setBrush(block < m_level ? m_activeColor : m_inactiveColor);
        const QRectF area(first + block * (u + gap), u, u, u);
        painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), u / 6.0, u / 6.0);
    }
    if (raShowsFocus(this)) {
        raDrawFocusMark(&painter, QRectF(0, u - 8, width(), u + 16), 10);
    }
    return pixmap;
}

void RaSliderWidget::drawPicture(QPainter* painter, const QRect& area, const QString& path, bool increase)
{
    const QPixmap picture(path);
    if (!picture.isNull()) {
        QRect target(QPoint(), picture.size().scaled(area.size(), Qt::KeepAspectRatio));
        target.moveCenter(area.center());
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawPixmap(target, picture);
    } else if (m_type == VOLUME) {
        raDrawLoudspeaker(painter, area, increase ? 2 : 0);
    } else {
        raDrawSun(painter, area, increase ? 1 : 0);
    }
}
