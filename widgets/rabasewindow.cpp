// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rabasewindow.h"

#include "qtcompat.h"
#include "rabasewidget.h"
#include "raclickablelabel.h"
#include "raicons.h"
#include "ralog.h"
#include "rasliderwidget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace {

const int TitleBarHeight = 50;
const int SideMargin = 10;

QPixmap backPicture(const QWidget* widget)
{
    const QPixmap picture(QLatin1String(":pngs/images/back.png"));
    if (!picture.isNull()) {
        return picture;
    }
    const QSize size(34, 34);
    QPixmap drawn = raTransparentPixmap(widget, size);
    QPainter painter(&drawn);
    raDrawBackMark(&painter, QRectF(QPointF(), size));
    return drawn;
}

/** A content that must not grow keeps its height, in the middle of its share of the page. */
Qt::Alignment alignmentOf(const QWidget* content)
{
    const bool grows = content->sizePolicy().verticalPolicy() & QSizePolicy::GrowFlag;
    return grows ? Qt::Alignment() : Qt::AlignVCenter;
}

} // namespace

RaBaseWindow::RaBaseWindow(QWidget* parent, QString title, QString subtitle)
    : QWidget(nullptr),
      m_title(title),
      m_subtitle(subtitle)
{
    Q_UNUSED(parent);
    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QLatin1String("QWidget{background-color:#1e2129}"));
    setWindowTitle(m_title);
}

RaBaseWindow::~RaBaseWindow() {}

RaBaseWidget* RaBaseWindow::createContengWidget(int type)
{
    return new RaSliderWidget(static_cast<RaSliderWidget::RA_SLIDERTYPE>(type), nullptr);
}

void RaBaseWindow::createUI(QString title, int type, QString ignored)
{
    Q_UNUSED(ignored);
    clearUI();
    createTitleBar(title, m_subtitle);
    m_content = createContengWidget(type);

    QVBoxLayout* page = new QVBoxLayout;
    page->setContentsMargins(0, 0, 0, 0);
    page->setSpacing(0);
    page->addWidget(m_titleBar, 5, Qt::AlignTop);
    if (m_content) {
        page->addWidget(m_content, 12, alignmentOf(m_content));
    } else {
        RA_DEBUG("content !!!! NULL");
        page->addWidget(new QWidget, 12);
    }
    setLayout(page);
}

void RaBaseWindow::createTitleBar(const QString& title, const QString& subtitle)
{
    m_titleBar = new QWidget(this);
    m_titleBar->setMinimumHeight(TitleBarHeight);

    m_backLabel = new RaClickableLabel(m_titleBar);
    m_backLabel->setPixmap(backPicture(this));
    m_backLabel->setAlignment(Qt::AlignCenter);
    m_backLabel->setMinimumSize(TitleBarHeight, TitleBarHeight);
    m_backLabel->setAccessibleName(tr("Back"));
    connect(m_backLabel, SIGNAL(clicked()), this, SLOT(slotQuit()));

    m_titleLabel = new QLabel(m_titleBar);
    m_titleLabel->setTextFormat(Qt::PlainText);
    m_titleLabel->setStyleSheet(QLatin1String("QLabel {font-size: 22px;color: #ffffff;background-color: #1e2129;}"));
    if (!title.isEmpty()) {
        m_titleLabel->setText(title);
    }

    m_subtitleLabel = new QLabel(m_titleBar);
    m_subtitleLabel->setTextFormat(Qt::PlainText);
    m_subtitleLabel->setMinimumWidth(TitleBarHeight - SideMargin); // an empty one balances the back label
    m_subtitleLabel->setStyleSheet(QLatin1String("QLabel {font-size: 18px;color: #ffffff;background-color: #1e2129;}"));
    if (!subtitle.isEmpty()) {
        m_subtitleLabel->setText(subtitle);
    }

    QHBoxLayout* bar = new QHBoxLayout(m_titleBar);
    bar->setContentsMargins(0, 0, SideMargin, 0);
    bar->setSpacing(0);
    bar->addWidget(m_backLabel, 0, Qt::AlignLeft | Qt::AlignVCenter);
    bar->addWidget(m_titleLabel, 0, Qt::AlignCenter);
    bar->addWidget(m_subtitleLabel, 0, Qt::AlignRight | Qt::AlignVCenter);
}

void RaBaseWindow::clearUI()
{
    if (!layout()) {
        return;
    }
    while (QLayoutItem* item = layout()->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    delete layout();
}

void RaBaseWindow::showBackButton(bool shown)
{
    if (m_backLabel) {
        m_backLabel->setVisible(shown);
    }
}

void RaBaseWindow::slotQuit()
{
    close();
}

void RaBaseWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up && m_content) {
        m_content->keyUp();
    } else if (event->key() == Qt::Key_Down && m_content) {
        m_content->keyDown();
    } else {
        event->ignore();
    }
}
