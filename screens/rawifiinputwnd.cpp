// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiinputwnd.h"

#include "displayname.h"
#include "fittedtext.h"
#include "pagebutton.h"
#include "passwordrule.h"
#include "pictures.h"
#include "qtcompat.h"
#include "raguithread.h"
#include "ralog.h"
#include "rapswdlineedit.h"
#include "ratheme.h"
#include "ravirtualkeyboard.h"
#include "recordtext.h"
#include "screenfonts.h"
#include "spacekeyblank.h"

#include <QApplication>
#include <QClipboard>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {

const QRect backRect(5, 5, 40, 40);
const QRect nameRect(50, 0, 220, 50);
const QRect editRect(10, 56, 300, 42);
const QRect toggleRect(10, 104, 130, 34);
const QRect tipRect(148, 104, 162, 34);
const QRect cancelRect(10, 150, 145, 48);
const QRect okRect(165, 150, 145, 48);
const QSize keyboardSize(320, 262);
const int pageWidth = 320;
const int stripHeight = 50;
const int iconSize = 30;

const int tipMs = 3000;

QString text(const char* utf8)
{
    return raTranslateUtf8("RaWifiInputWnd", utf8);
}

QPixmap faded(const QPixmap& pixmap)
{
    QPixmap result(pixmap.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(0.3);
    painter.drawPixmap(0, 0, pixmap);
    return result;
}

} // namespace

RaWifiInputWnd::RaWifiInputWnd(QWidget* parent) : QWidget(parent), m_data(freshRecord()), m_tipsTimer(new QTimer(this))
{
    QPalette colours = palette();
    colours.setColor(QPalette::Window, RaTheme::background());
    colours.setColor(QPalette::WindowText, RaTheme::text());
    setPalette(colours);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_NoMousePropagation); // the page below must not be worked through this one
    setFont(passwordPageFont());
    resize(pageWidth, 480);

    makeStrip();
    makeField();
    makeButtons();
    makeKeyboard();
    connect(m_tipsTimer, SIGNAL(timeout()), this, SLOT(hideTips()));
    clear();
}

void RaWifiInputWnd::makeStrip()
{
    m_back = new PageButton(QString(), this);
    m_back->setGeometry(backRect);
    m_back->setIcon(QIcon(picture(QLatin1String("/apps/res/back-little.png"))));
    m_back->setIconSize(QSize(iconSize, iconSize));
    m_back->setAccessibleName(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "返回")));
    connect(m_back, SIGNAL(clicked()), this, SLOT(onCancelClicked()));

    m_name = new QLabel(this);
    m_name->setGeometry(nameRect);
    m_name->setAlignment(Qt::AlignCenter);
    m_name->setTextFormat(Qt::PlainText);
}

void RaWifiInputWnd::makeField()
{
    m_edit = new raPsWdLineEdit(this);
    m_edit->setObjectName(QLatin1String("pwdLineEdit"));
    m_edit->setGeometry(editRect);
    m_edit->setAccessibleName(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "密码")));
    m_edit->setAttribute(Qt::WA_InputMethodEnabled, false); // the page has a keyboard of its own
    m_edit->setplaceholdertext(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "请输入密码")));
    m_edit->installEventFilter(this);
    connect(m_edit, SIGNAL(textEdited(QString)), this, SLOT(PwTxtEdited(QString)));
    connect(m_edit, SIGNAL(textChanged(QString)), this, SLOT(PwTxtChanged(QString)));

    const QPixmap tick = picture(QLatin1String(":/images/selectwifi.png"));
    QIcon state(faded(tick));
    state.addPixmap(tick, QIcon::Normal, QIcon::On);
    m_toggle = new PageButton(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "显示密码")), this);
    m_toggle->setCheckable(true);
    m_toggle->setIcon(state);
    m_toggle->setIconSize(QSize(iconSize, iconSize));
    m_toggle->setGeometry(toggleRect);
    connect(m_toggle, SIGNAL(clicked()), this, SLOT(pwdSelectChanged()));

    m_tip = new QLabel(this);
    m_tip->setGeometry(tipRect);
    m_tip->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_tip->setTextFormat(Qt::PlainText);
    QPalette tipColours = palette();
    tipColours.setColor(QPalette::WindowText, RaTheme::accent());
    m_tip->setPalette(tipColours);
}

void RaWifiInputWnd::makeButtons()
{
    m_cancel = new PageButton(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "取消")), this);
    m_cancel->setGeometry(cancelRect);
    connect(m_cancel, SIGNAL(clicked()), this, SLOT(onCancelClicked()));

    m_ok = new PageButton(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "确定")), this);
    m_ok->setGeometry(okRect);
    QPalette primary = m_ok->palette();
    primary.setColor(QPalette::ButtonText, RaTheme::accent());
    m_ok->setPalette(primary);
    connect(m_ok, SIGNAL(clicked()), this, SLOT(onOkClicked()));
}

void RaWifiInputWnd::makeKeyboard()
{
    m_keyboard = new RaVirtualKeyboard(this);
    m_keyboard->resize(keyboardSize);
    m_keyboard->setAutoFillBackground(true); // it may be moved over the rest of the page
    SpaceKeyBlank* blank = new SpaceKeyBlank(m_keyboard, m_edit->objectName());
    connect(blank, SIGNAL(typed(QString,QString)), this, SLOT(setTextSlot(QString,QString)));
    connect(m_keyboard, SIGNAL(sendKeyboardMoveStep(bool,int)), this, SLOT(recKeyboardMoveStep(bool,int)));
    connect(m_keyboard, SIGNAL(changedOutSideTextSignal(QString,QString)), this, SLOT(setTextSlot(QString,QString)));
    connect(m_keyboard, SIGNAL(sendKeyboardNumber()), this, SLOT(recKeyboardNumber()));
    connect(m_keyboard, SIGNAL(sendKeyboardSymbol()), this, SLOT(recKeyboardSymbol()));
    connect(m_keyboard, SIGNAL(sendKeyboardCharacter()), this, SLOT(recKeyboardCharacter()));
}

void RaWifiInputWnd::setAPData(APData data)
{
    raAssertOwnThread(this);
    m_data = data;
    const FittedText name = fitText(displayName(data), font(), nameRect.width(), 18, 12);
    m_name->setFont(name.font);
    m_name->setText(name.text);
    setAccessibleName(displayName(data));
}

void RaWifiInputWnd::clear()
{
    raAssertOwnThread(this);
    m_isMasked = false;
    setTyped(QString(), QString());
    m_tipsTimer->stop();
    m_tip->hide();
    moveKeyboard(height());
    if (!m_lettersShown) {
        m_keyboard->recKeyClicked(QLatin1String("abc"));
    }
}

void RaWifiInputWnd::onOkClicked()
{
    raAssertOwnThread(this);
    if (m_edit->getIsPlaceholderText()) {
        showTip(text(QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "请输入密码")));
        return;
    }
    const QString objection = passwordObjection(m_data, m_edit->text());
    if (!objection.isEmpty()) {
        showTip(objection);
        return;
    }
    setField(m_data.psk, m_edit->text().toLatin1());
    Q_EMIT sendWifiInputOkMsg(m_data);
}

void RaWifiInputWnd::onCancelClicked()
{
    raAssertOwnThread(this);
    Q_EMIT sendWifiInputCancelMsg();
}

void RaWifiInputWnd::pwdSelectChanged()
{
    raAssertOwnThread(this);
    m_isMasked = !m_isMasked;
    applyEcho();
}

// The placeholder is real text, and must stay readable.
void RaWifiInputWnd::applyEcho()
{
    m_toggle->setChecked(!m_isMasked);
    m_edit->setEchoMode(m_isMasked && !m_edit->getIsPlaceholderText() ? QLineEdit::Password : QLineEdit::Normal);
}

void RaWifiInputWnd::recKeyboardMoveStep(bool isUP, int moveValue)
{
    raAssertOwnThread(this);
    moveKeyboard(m_keyboard->y() + (isUP ? -moveValue : moveValue));
}

void RaWifiInputWnd::moveKeyboard(int top)
{
    const int lowest = height() - keyboardSize.height();
    m_keyboard->move(0, qBound(qMin(stripHeight, lowest), top, lowest));
}

void RaWifiInputWnd::setTextSlot(QString text, QString objName)
{
    raAssertOwnThread(this);
    RA_DEBUG("text=%s,objName = %s", raSecret(text.toUtf8().constData()), objName.toUtf8().constData());
    if (text == QLatin1String("BS")) {
        removeCharacter();
    } else {
        insertText(text);
    }
}

void RaWifiInputWnd::insertText(const QString& text)
{
    const bool isPlaceholder = m_edit->getIsPlaceholderText();
    const QString before = isPlaceholder ? text : m_edit->text().left(m_edit->cursorPosition()) + text;
    const QString after = isPlaceholder ? QString() : m_edit->text().mid(m_edit->cursorPosition());
    const QString objection = passwordObjection(m_data, before + after);
    if (objection.isEmpty()) {
        setTyped(before, after);
    } else {
        showTip(objection);
    }
}

void RaWifiInputWnd::removeCharacter()
{
    if (!m_edit->getIsPlaceholderText()) {
        QString before = m_edit->text().left(m_edit->cursorPosition());
        const QString after = m_edit->text().mid(m_edit->cursorPosition());
        before.chop(1);
        setTyped(before, after);
    }
}

void RaWifiInputWnd::setTyped(const QString& before, const QString& after)
{
    m_edit->setText(before + after);
    m_edit->setCursorPosition(int(before.size()));
    m_edit->setPlaceholdertextStatus();
    applyEcho();
}

void RaWifiInputWnd::recKeyboardNumber()
{
    raAssertOwnThread(this);
    m_lettersShown = false;
}

void RaWifiInputWnd::recKeyboardSymbol()
{
    raAssertOwnThread(this);
    m_lettersShown = false;
}

void RaWifiInputWnd::recKeyboardCharacter()
{
    raAssertOwnThread(this);
    m_lettersShown = true;
}

void RaWifiInputWnd::PwTxtEdited(QString text)
{
    raAssertOwnThread(this);
    if (text.isEmpty()) {
        m_edit->setPlaceholdertextStatus();
    }
}

void RaWifiInputWnd::PwTxtChanged(QString)
{
    raAssertOwnThread(this);
    m_tip->hide(); // it was about the text before
}

void RaWifiInputWnd::showTip(const QString& tip)
{
    const FittedText fitted = fitText(tip, font(), tipRect.width(), 14, 10);
    m_tip->setFont(fitted.font);
    m_tip->setText(fitted.text);
    m_tip->show();
    m_tipsTimer->start(tipMs);
}

void RaWifiInputWnd::hideTips()
{
    raAssertOwnThread(this);
    RA_DEBUG("Connect Timer Timeout -> hideTips");
    m_tipsTimer->stop();
    m_tip->hide();
}

bool RaWifiInputWnd::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_edit) {
        return QWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        return fieldKey(static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        m_edit->setFocus();
        return m_edit->getIsPlaceholderText(); // there is no place for a cursor in a placeholder
    default:
        return false;
    }
}

// Every way of typing goes through insertText(), so that every way keeps to its rules.
bool RaWifiInputWnd::fieldKey(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Paste)) {
        insertText(QApplication::clipboard()->text());
        return true;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        keyPressEvent(event);
        return true;
    case Qt::Key_Backspace:
        removeCharacter();
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    default:
        break;
    }
    const bool isCommand = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!isCommand && !event->text().isEmpty() && event->text().at(0).isPrint()) {
        insertText(event->text());
        return true;
    }
    return m_edit->getIsPlaceholderText();
}

void RaWifiInputWnd::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    const QString typed = m_edit->getIsPlaceholderText() ? QString() : m_edit->text();
    m_keyboard->show(typed, m_edit->objectName());
    m_edit->setFocus();
}

void RaWifiInputWnd::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_keyboard) {
        moveKeyboard(height());
    }
}

void RaWifiInputWnd::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        onOkClicked();
        break;
    case Qt::Key_Escape:
    case Qt::Key_Back:
        onCancelClicked();
        break;
    default: // and nothing gets through to the page below
        break;
    }
}

// Goes round within the page, because the one below is hidden by it.
bool RaWifiInputWnd::focusNextPrevChild(bool next)
{
    QWidget* const from = focusWidget() ? focusWidget() : this;
    QWidget* to = from;
    do {
        to = next ? to->nextInFocusChain() : to->previousInFocusChain();
    } while (to != from
             && !(isAncestorOf(to) && to->isVisible() && to->isEnabled() && to->focusPolicy() & Qt::TabFocus));
    to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
