// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ratitlewidget.h"

#include "qtcompat.h"
#include "raaccessible.h"
#include "rafocus.h"
#include "ralog.h"
#include "ratheme.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

const int BackMarkEnd = 49;
const int SideMargin = 10;
const int TopMargin = 5;

bool isOnBackMark(const QPoint& position)
{
    return position.x() >= 1 && position.x() <= BackMarkEnd && position.y() >= 1 && position.y() <= BackMarkEnd;
}

} // namespace

RaTitleWidget::RaTitleWidget(QWidget* parent) : QWidget(nullptr)
{
    Q_UNUSED(parent);
    init();
}

RaTitleWidget::RaTitleWidget(QString title, QString right, bool ignored, QWidget* parent)
    : QWidget(nullptr),
      m_title(title),
      m_right(right)
{
    Q_UNUSED(ignored);
    Q_UNUSED(parent);
    init();
}

RaTitleWidget::~RaTitleWidget() {}

void RaTitleWidget::init()
{
    raInstallAccessibility();
    setWindowFlags(Qt::FramelessWindowHint);
    setGeometry(0, 0, 320, 50);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Back"));
    setAccessibleDescription(m_title);
}

void RaTitleWidget::mousePressEvent(QMouseEvent* event)
{
    m_backHeld = isOnBackMark(raEventPos(event));
    update();
}

void RaTitleWidget::mouseReleaseEvent(QMouseEvent* event)
{
    m_backHeld = false;
    update();
    if (isOnBackMark(raEventPos(event))) {
        Q_EMIT backPressed();
    }
}

void RaTitleWidget::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event)) {
        Q_EMIT backPressed();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void RaTitleWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), RaTheme::background());
    painter.fillRect(QRect(0, height() - 1, width(), 1), RaTheme::row());

    const QRectF backMark(4, 4, BackMarkEnd - 8, height() - 9);
    if (m_backHeld) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(RaTheme::row());
        painter.drawRoundedRect(backMark, 10, 10);
    }
    if (raShowsFocus(this)) {
        raDrawFocusMark(&painter, backMark, 10);
    }

    QFont titleFont = font();
    titleFont.setPixelSize(16);
    QFont rightFont = font();
    rightFont.setPointSize(9);
    const QRect texts = rect().adjusted(SideMargin, TopMargin, -SideMargin, -TopMargin);

    painter.setPen(RaTheme::text());
    QFont markFont = titleFont;
    markFont.setBold(true);
    painter.setFont(markFont);
    painter.drawText(QRect(0, 0, BackMarkEnd, height()), Qt::AlignCenter, QLatin1String("<"));

    const int rightW = m_right.isEmpty() ? 0 : raTextWidth(QFontMetrics(rightFont), m_right) + SideMargin;
    const int room = qMax(0, texts.right() + 1 - rightW - (BackMarkEnd + 1));
    const QFontMetrics metrics(titleFont);
    const QString title = metrics.elidedText(m_title, Qt::ElideRight, room);
    const int titleW = raTextWidth(metrics, title);
    const int centred = (width() - titleW) / 2;
    const int titleX = qMax(BackMarkEnd + 1, qMin(centred, texts.right() + 1 - rightW - titleW));
    RA_DEBUG("width is %d", width());
    RA_DEBUG("height is %d", height());
    RA_DEBUG("titleW is %d", titleW);
    RA_DEBUG("titleX is %d", titleX);
    painter.setFont(titleFont);
    painter.drawText(QRect(titleX, texts.top(), titleW, texts.height()), Qt::AlignCenter, title);

    painter.setFont(rightFont);
    painter.drawText(texts, Qt::AlignRight | Qt::AlignVCenter, m_right);
}
