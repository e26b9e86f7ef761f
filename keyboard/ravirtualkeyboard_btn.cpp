// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ravirtualkeyboard_btn.h"

#include "keyglyph.h"
#include "qtcompat.h"
#include "ralog.h"

#include <QApplication>
#include <QFontInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTimer>
#include <QTouchEvent>

namespace {

const char kUncheckedStyle[] = "QPushButton{background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"
                               "border:1px solid rgba(0,0,0,0%);border-radius:10px;}";
const char kCheckedStyle[] = "QPushButton{background-color: rgba(248, 129, 133,100%);font-size:28px;color:white;"
                             "border:1px solid rgba(0,0,0,0%);border-radius:10px;}";
const int kClickGuard = 100; // ms
const int kHoldTime = 100;   // ms
const qreal kCornerRadius = 10;
const int kNoFinger = -1;

// Not a null string, which the selector [text=""] of a style sheet does not match.
QString emptyText()
{
    return QLatin1String("");
}

bool showsItsText(KEYBOARDTYPE type)
{
    return type != IMAGEBTN && type != SWITCHBTN && type != SWITCHIMAGEBTN;
}

void applyStyle(QWidget* widget)
{
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->update();
}

bool isEnter(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

RaVirtualKeyboard_ProxyStyle* RaVirtualKeyboard_ProxyStyle::shared()
{
    static QPointer<RaVirtualKeyboard_ProxyStyle> style;
    if (!style) {
        style = new RaVirtualKeyboard_ProxyStyle;
        style->setParent(qApp);
    }
    return style;
}

void RaVirtualKeyboard_ProxyStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                                 QPainter* painter, const QWidget* widget) const
{
    if (element != PE_FrameFocusRect) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int RaVirtualKeyboard_ProxyStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                              const QWidget* widget) const
{
    return metric == PM_TextCursorWidth ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

RairtualKeyboard_Lb::RairtualKeyboard_Lb(QWidget* parent) : QLabel(parent) {}

void RairtualKeyboard_Lb::setText(const QString& text)
{
    QLabel::setText(text);
    applyStyle(this);
}

void RairtualKeyboard_Lb::clear()
{
    setText(emptyText());
}

RaVirtualKeyboard_Btn::RaVirtualKeyboard_Btn(QWidget* parent)
    : QPushButton(parent),
      m_clickTimer(new QTimer(this)),
      m_holdTimer(new QTimer(this)),
      m_finger(kNoFinger),
      m_glyph(RaKeyGlyph::None)
{
    setAttribute(Qt::WA_AcceptTouchEvents);
    connect(m_clickTimer, SIGNAL(timeout()), this, SLOT(updatePressStatus()));
    setStyle(RaVirtualKeyboard_ProxyStyle::shared());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void RaVirtualKeyboard_Btn::setText(const QString& text)
{
    QPushButton::setText(showsItsText(m_keyType) ? text : emptyText());
    m_Text = text;
    applyStyle(this);
}

QString RaVirtualKeyboard_Btn::getText() const
{
    return m_Text;
}

void RaVirtualKeyboard_Btn::setType(KEYBOARDTYPE type)
{
    m_keyType = type;
    if (type == IMAGEBTN || type == SWITCHIMAGEBTN) {
        QPushButton::setText(emptyText());
    }
}

void RaVirtualKeyboard_Btn::updateStyle(bool checked)
{
    RA_DEBUG_KEY("m_checked=%d", m_checked);
    m_checked = checked;
    setStyleSheet(QLatin1String(checked ? kCheckedStyle : kUncheckedStyle));
    applyStyle(this);
    RA_DEBUG_KEY("new value m_checked=%d", m_checked);
}

void RaVirtualKeyboard_Btn::setCheckState(bool checked)
{
    m_checked = checked;
}

void RaVirtualKeyboard_Btn::setGlyph(RaKeyGlyph glyph)
{
    m_glyph = glyph;
    update();
}

void RaVirtualKeyboard_Btn::setCurrent(bool current)
{
    m_current = current;
    update();
}

QSize RaVirtualKeyboard_Btn::sizeHint() const
{
    return QSize(40, 28);
}

QSize RaVirtualKeyboard_Btn::minimumSizeHint() const
{
    return QSize(20, 20);
}

void RaVirtualKeyboard_Btn::updatePressStatus()
{
    m_isPressFinish = true;
    m_clickTimer->stop();
}

void RaVirtualKeyboard_Btn::pressOnSlot()
{
    m_isPressOn = true;
}

// The toolkit makes mouse events of the first finger only, so a key that is tapped while another one is still
// held would be lost.
bool RaVirtualKeyboard_Btn::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        if (event->type() == QEvent::TouchBegin) {
            m_finger = kNoFinger; // whatever became of the last one
        }
        event->accept();
        followFinger(static_cast<const QTouchEvent*>(event));
        return true;
    default:
        if (raIsTouchCancel(event)) {
            m_finger = kNoFinger;
            letGo();
        }
        return QPushButton::event(event);
    }
}

void RaVirtualKeyboard_Btn::followFinger(const QTouchEvent* event)
{
    for (const RaFinger& finger : raFingers(event)) {
        if (m_finger == kNoFinger && finger.state == Qt::TouchPointPressed) {
            m_finger = finger.id;
        }
        if (finger.id != m_finger) {
            continue;
        }
        QEvent::Type type = QEvent::MouseMove;
        if (finger.state == Qt::TouchPointPressed) {
            type = QEvent::MouseButtonPress;
        } else if (finger.state == Qt::TouchPointReleased) {
            type = QEvent::MouseButtonRelease;
            m_finger = kNoFinger;
        }
        QMouseEvent mouse(type, finger.position, mapToGlobal(finger.position),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(this, &mouse);
        return; // the key may be gone
    }
}

void RaVirtualKeyboard_Btn::letGo()
{
    if (isDown()) {
        m_isPressSpent = true;
        m_holdTimer->stop();
        setDown(false);
    }
}

void RaVirtualKeyboard_Btn::mousePressEvent(QMouseEvent* event)
{
    m_isPressSpent = false;
    m_holdTimer->start(kHoldTime);
    QPushButton::mousePressEvent(event);
}

void RaVirtualKeyboard_Btn::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointer<QWidget> self(this);
    m_isPressOn = false;
    if (m_holdTimer->isActive()) {
        m_holdTimer->stop();
    }
    m_releasePos = raEventPos(event);
    // One more than QRect::contains() would take in: the edges count as inside.
    const bool inside =
        m_releasePos.x() >= 0 && m_releasePos.x() <= width() && m_releasePos.y() >= 0 && m_releasePos.y() <= height();
    if (inside) {
        completeClick();
    }
    if (self) {
        QPushButton::mouseReleaseEvent(event);
    }
    if (self) {
        m_isPressSpent = false;
    }
}

void RaVirtualKeyboard_Btn::keyPressEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat()) {
        QPushButton::keyPressEvent(event);
        return;
    }
    m_isPressSpent = false;
    if (isEnter(event)) {
        completeClick();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

// A key that goes while it is held neither repeats unseen nor types when it is let go.
void RaVirtualKeyboard_Btn::hideEvent(QHideEvent* event)
{
    letGo();
    QPushButton::hideEvent(event);
}

// The toolkit's auto-repeat comes here with the button down; the end of a click with the button up, be it one
// of a hardware key, an assistive tool or a finger. A finger's release has completed it already, so that the
// guard is on.
void RaVirtualKeyboard_Btn::nextCheckState()
{
    QPushButton::nextCheckState();
    if (isDown()) {
        m_isPressSpent = true;
        report();
        return;
    }
    const QPointer<QWidget> self(this);
    completeClick();
    if (self) {
        m_isPressSpent = false;
    }
}

void RaVirtualKeyboard_Btn::completeClick()
{
    if (!m_isPressFinish || m_isPressSpent) {
        return;
    }
    const QPointer<QWidget> self(this);
    m_isPressFinish = false;
    m_clickTimer->start(kClickGuard);
    report();
    if (self && m_keyType == SWITCHBTN) {
        updateStyle(!m_checked);
    }
}

void RaVirtualKeyboard_Btn::report()
{
    const QString text = m_Text; // a receiver may give this key another one
    RA_DEBUG_KEY("m_keyType=%d", m_keyType);
    RA_DEBUG_KEY("clicked(\"%s\")", qPrintable(text));
    Q_EMIT clicked(text);
}

void RaVirtualKeyboard_Btn::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    const QIcon picture = option.icon;
    option.icon = QIcon();
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect();
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 70));
        painter.drawRoundedRect(area, kCornerRadius, kCornerRadius);
    }

    const QColor color = option.palette.color(QPalette::ButtonText);
    if (!text().isEmpty()) {
        paintText(&painter, color);
    } else if (!picture.pixmap(option.iconSize).isNull()) {
        QRect place(QPoint(0, 0), option.iconSize);
        place.moveCenter(rect().center());
        picture.paint(&painter, place);
    } else {
        raPaintKeyGlyph(&painter, m_glyph, area, color);
    }

    if (m_current) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(248, 129, 133));
        painter.drawRoundedRect(QRectF(area.center().x() - 12, area.bottom() - 3, 24, 2), 1, 1);
    }
    // Keypad users must see where they are; a key that a finger has focused shows nothing.
    if (hasFocus() && option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), kCornerRadius - 1, kCornerRadius - 1);
    }
}

// Sized by the key's height rather than by the font's line height, which fonts with Chinese glyphs make
// large, and placed by the height of a capital, so that all keys of a row share a base line and nothing is
// cut off.
void RaVirtualKeyboard_Btn::paintText(QPainter* painter, const QColor& color) const
{
    QString shown = text();
    shown.replace(QLatin1String("&&"), QLatin1String("&"));

    QFont font = this->font();
    const int largest = qMin(QFontInfo(font).pixelSize(), (height() - 7) & ~1);
    int size = qMax(1, shown.size() == 1 ? largest : largest * 3 / 4);
    font.setPixelSize(size);
    while (size > 8 && raTextWidth(QFontMetrics(font), shown) > width() - 6) {
        font.setPixelSize(--size);
    }
    const QFontMetrics metrics(font);
    const qreal capHeight = metrics.tightBoundingRect(QLatin1String("H")).height();
    painter->setFont(font);
    painter->setPen(color);
    const qreal left = (width() - raTextWidth(metrics, shown)) / 2.0;
    const qreal baseLine = (height() + capHeight) / 2.0 - 1; // 1 for what hangs below it
    painter->drawText(QPointF(left, baseLine), shown);
}
