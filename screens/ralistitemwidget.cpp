// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ralistitemwidget.h"

#include "displayname.h"
#include "fittedtext.h"
#include "pictures.h"
#include "qtcompat.h"
#include "ratheme.h"
#include "screenfonts.h"

#include <QPainter>

RaListItemWidget::RaListItemWidget(QWidget* parent) : QWidget(parent), m_signalPicture(getImageData(false, 0))
{
    resize(320, 60);
}

void RaListItemWidget::addItemData(APData* data, int index)
{
    if (!data) {
        return;
    }
    m_name = displayName(*data);
    m_signalPicture = getImageData(data->is_encry == 2, data->sigquality);
    m_index = index;
    setAccessibleName(m_name);
    update();
}

QString RaListItemWidget::getImageData(bool locked, int level) const
{
    return signalPicture(locked, level);
}

void RaListItemWidget::paintEvent(QPaintEvent*)
{
    const FittedText name = fitText(shortenedName(m_name), screenFont(), width() - 35 - 8, 18, 11);
    QPainter painter(this);
    painter.fillRect(rect(), RaTheme::row());
    painter.drawPixmap(2, (height() - 30) / 2, 30, 30, picture(m_signalPicture));
    painter.setPen(RaTheme::text());
    painter.setFont(name.font);
    painter.drawText(rect().adjusted(35, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name.text);
}

void RaListItemWidget::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // so that the release comes here
}

void RaListItemWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (rect().contains(raEventPos(event))) {
        Q_EMIT itemClick(m_index);
    }
}
