// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ravirtualkeyboard.h"

#include "keyglyph.h"
#include "keypages.h"
#include "qtcompat.h"
#include "ralog.h"
#include "ravirtualkeyboard_btn.h"
#include "ui_ravirtualkeyboard.h"

#include <QApplication>
#include <QFocusEvent>
#include <QIcon>
#include <QMouseEvent>
#include <QTimer>
#include <QVariant>

namespace {

// Three ways to write the same look.
const char kKeyStyle[] = "QPushButton{background-color: rgb(54,54, 54);font-size:28px;color:white;"
                         "border:1px solid rgba(0,0,0,0%);border-radius:10px;}";
const char kBackspaceStyle[] = "background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"
                               "border:1px solid rgba(0,0,0,0%);border-radius:10px;";
// The third is the unchecked look of a key, worn by the one key that has a checked look as well: shift.

const int kIconSize = 28;
const int kRepeatDelay = 500;    // ms
const int kRepeatInterval = 100; // ms

const int kDragStep = 4;    // pixels: a resting finger trembles less
const int kDragSteps = 7;   // steps, and with them nearly the height of a key: a drag, not a tap
const int kInertTime = 900; // ms
const int kRestTime = 300;  // ms: a finger that rests so long has only wobbled, and backspace may repeat

const int kLastPageNumber = 5; // with more than one symbol page
const int kOnlyPageNumber = 2; // with one

enum ModeFlag { MoreSymbolPages = 0, LetterMode = 1, UpperCase = 2, LettersShown = 3 };

struct KeyLook
{
    KEYBOARDTYPE type;
    RaKeyGlyph glyph;
    const char* picture;
    const char* name; // for assistive tools; none: the key text
};

KeyLook keyLook(KeyRole role)
{
    switch (role) {
    case KeyRole::None:
    case KeyRole::Character:
        break;
    case KeyRole::Shift:
        return {IMAGEBTN, RaKeyGlyph::Shift, ":/images/shift-little.png",
                QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Shift")};
    case KeyRole::Letters:
        return {TEXTBTN, RaKeyGlyph::None, nullptr, QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Letters")};
    case KeyRole::Digits:
        return {TEXTBTN, RaKeyGlyph::None, nullptr, QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Digits")};
    case KeyRole::Symbols:
        return {TEXTBTN, RaKeyGlyph::None, nullptr, QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Symbols")};
    case KeyRole::Backspace:
        return {IMAGEBTN, RaKeyGlyph::Backspace, ":/images/backspace-little.png",
                QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Backspace")};
    case KeyRole::Space:
        return {SWITCHBTN, RaKeyGlyph::Space, ":/images/space_key.png",
                QT_TRANSLATE_NOOP("RaVirtualKeyboard", "Space")};
    case KeyRole::NextPage:
        return {SWITCHBTN, RaKeyGlyph::NextPage, nullptr, QT_TRANSLATE_NOOP("RaVirtualKeyboard", "More symbols")};
    }
    return {TEXTBTN, RaKeyGlyph::None, nullptr, nullptr};
}

void applyLook(RaVirtualKeyboard_Btn* key, const KeyLook& look)
{
    key->setType(look.type);
    key->setGlyph(look.glyph);
    key->setIcon(look.picture ? QIcon(QLatin1String(look.picture)) : QIcon());
    key->setIconSize(QSize(kIconSize, kIconSize));
}

// Measured on the screen, because the keyboard's owner may move it along with the finger.
int screenY(const QWidget* widget, const QEvent* event)
{
    return widget->mapToGlobal(raEventPos(static_cast<const QMouseEvent*>(event))).y();
}

} // namespace

RaVirtualKeyboard::RaVirtualKeyboard(QWidget* parent) : QWidget(parent), m_ui(new Ui_RaVirtualKeyboard)
{
    m_ui->setupUi(this);
    m_moveTimer = new QTimer(this);
    connect(m_moveTimer, SIGNAL(timeout()), this, SLOT(updatePressStatus()));
    init();
    RA_DEBUG("constructed");
}

RaVirtualKeyboard::~RaVirtualKeyboard() = default;

void RaVirtualKeyboard::init()
{
    RA_DEBUG("enter");
    mode_flag_map_[MoreSymbolPages] = true;
    mode_flag_map_[LetterMode] = true;
    mode_flag_map_[UpperCase] = false;
    init1();
    init2();
    setSymbolPage(symbal_page_);
}

void RaVirtualKeyboard::init1()
{
    m_keyRows.clear();
    for (int i = 0; i < int(m_ui->keys.size()); ++i) {
        RaVirtualKeyboard_Btn* key = m_ui->keys.at(i);
        m_keyRows[1 + i / RowOneKeys] << key;
        key->setType(TEXTBTN);
        key->setStyleSheet(QLatin1String(kKeyStyle));
        key->setFocusPolicy(Qt::TabFocus); // a tap leaves the focus with the edited field
        raRetainSizeWhenHidden(key);
        key->installEventFilter(this);
        connect(key, SIGNAL(clicked(QString)), this, SLOT(recKeyClicked(QString)), Qt::UniqueConnection);
    }
    m_ui->horizontalLayoutWidget->installEventFilter(this); // the gaps between the keys

    RaVirtualKeyboard_Btn* const shift = m_ui->keys.first();
    applyLook(shift, keyLook(KeyRole::Shift));
    shift->updateStyle(false);

    RaVirtualKeyboard_Btn* const backspace = m_ui->keys.at(RowOneKeys - 1);
    applyLook(backspace, keyLook(KeyRole::Backspace));
    backspace->setStyleSheet(QLatin1String(kBackspaceStyle));
    backspace->setAutoRepeat(true);
    backspace->setAutoRepeatDelay(kRepeatDelay);
    backspace->setAutoRepeatInterval(kRepeatInterval);
}

void RaVirtualKeyboard::init2()
{
    clearBuffer();
    m_pageTables = keyPageTables();
    setAutoHide(false);
}

void RaVirtualKeyboard::setSymbolPage(int page)
{
    RA_DEBUG_KEY("page=%d", page);
    symbal_page_ = qMax<int>(page, LetterPage);
    mode_flag_map_[LettersShown] = symbal_page_ == LetterPage;
    RaVirtualKeyboard_Btn* const pageKey = m_keyRows[1].at(1 + qMin<int>(symbal_page_, SymbolPage));
    const QList<KeyEntry> entries = keyPageEntries(m_pageTables, page);
    int next = 0;
    for (const QList<RaVirtualKeyboard_Btn*>& row : m_keyRows) {
        for (RaVirtualKeyboard_Btn* key : row) {
            const KeyEntry& entry = entries.at(next++);
            if (entry.role == KeyRole::None && key->hasFocus()) {
                pageKey->setFocus(Qt::OtherFocusReason); // or hiding the key would send it out of the keyboard
            }
            dressKey(key, entry);
            key->setCurrent(key == pageKey);
        }
    }
}

void RaVirtualKeyboard::dressKey(RaVirtualKeyboard_Btn* key, const KeyEntry& entry)
{
    const KeyLook look = keyLook(entry.role);
    const QString text = keyText(entry);
    applyLook(key, look);
    key->setText(text);
    key->setAccessibleName(look.name ? tr(look.name) : text);
    key->setEnabled(entry.role != KeyRole::None);
    key->setVisible(entry.role != KeyRole::None);
    if (entry.role == KeyRole::Letters && mode_flag_map_[UpperCase]) {
        key->QPushButton::setText(text.toUpper()); // says in which case the letters are; the key text stays
    }
}

QString RaVirtualKeyboard::keyText(const KeyEntry& entry) const
{
    const bool upper = entry.role == KeyRole::Character && mode_flag_map_.value(UpperCase);
    return upper ? entry.text.toUpper() : entry.text;
}

void RaVirtualKeyboard::switchLetterStatus()
{
    for (QMap<int, bool>::const_iterator flag = mode_flag_map_.constBegin(); flag != mode_flag_map_.constEnd();
         ++flag) {
        RA_DEBUG_KEY("...mode_flag_map_[%d]=%d", flag.key(), flag.value());
    }
    if (!mode_flag_map_[LettersShown]) {
        return;
    }
    mode_flag_map_[UpperCase] = !mode_flag_map_[UpperCase];
    RA_DEBUG_KEY("...new value mode_flag_map_[%d] = %d", UpperCase, mode_flag_map_[UpperCase]);
    m_keyRows[1].first()->updateStyle(mode_flag_map_[UpperCase]);
    setSymbolPage(LetterPage);
}

void RaVirtualKeyboard::clearBuffer()
{
    RA_DEBUG_KEY("enter");
}

void RaVirtualKeyboard::setAutoShow(QObject* edit)
{
    if (edit) {
        edit->installEventFilter(this);
    }
}

void RaVirtualKeyboard::setAutoHide(bool hide)
{
    m_autoHide = hide;
}

RaVirtualKeyboard_Btn* RaVirtualKeyboard::spaceKey() const
{
    return m_ui->keys.at(RowOneKeys);
}

bool RaVirtualKeyboard::isMoving() const
{
    return m_isMoveStatus != 0;
}

void RaVirtualKeyboard::recKeyClicked(const QString& strValue)
{
    RA_DEBUG_KEY("enter");
    // Space and the way to more symbols are of the toggling type and have no state to show: the toggle that
    // follows a click always ends in the plain look.
    spaceKey()->setCheckState(true);
    m_ui->keys.last()->setCheckState(true);

    RA_DEBUG_KEY("%s", raContainsMatch(strValue, QLatin1String("[a-z]")) ? "true" : "false");
    if (m_isMoveStatus != 0) {
        RA_DEBUG("recKeyClicked ,current status MouseMove");
        return;
    }

    const QString upper = strValue.toUpper();
    if (upper.size() == 1) {
        m_curText = strValue;
        Q_EMIT changedOutSideTextSignal(m_curText, m_recObjName);
        clearBuffer();
        return;
    }
    RA_DEBUG_KEY("---------------- %s", qPrintable(upper));
    actOnSpecialKey(upper);
}

void RaVirtualKeyboard::actOnSpecialKey(const QString& upper)
{
    if (upper == QLatin1String("&&")) {
        RA_DEBUG_KEY("&&");
        recKeyClicked(QLatin1String("&"));
    } else if (upper == QLatin1String("123")) {
        RA_DEBUG_KEY("123");
        if (symbal_page_ != DigitPage) {
            symbal_page_ = DigitPage;
            RA_DEBUG_KEY("symbal_page_ = %d", symbal_page_);
            setSymbolPage(DigitPage);
            mode_flag_map_[LetterMode] = !mode_flag_map_[LetterMode];
            Q_EMIT sendKeyboardNumber();
        }
    } else if (upper == QLatin1String("BS")) {
        RA_DEBUG_KEY("BS");
        Q_EMIT changedOutSideTextSignal(QLatin1String("BS"), m_recObjName);
        if (m_buffer.isEmpty()) {
            clearBuffer();
        }
    } else if (upper == QLatin1String("ABC")) {
        RA_DEBUG_KEY("ABC");
        mode_flag_map_[LetterMode] = true;
        if (symbal_page_ != LetterPage) {
            symbal_page_ = LetterPage;
            switchLetterStatus();
            setSymbolPage(LetterPage);
            Q_EMIT sendKeyboardCharacter();
        } else {
            switchLetterStatus();
        }
    } else if (upper == QLatin1String("!@#")) {
        RA_DEBUG_KEY("!@#");
        if (symbal_page_ != SymbolPage) {
            selectPage(SymbolPage);
        }
    } else if (upper == QLatin1String("RI")) {
        RA_DEBUG_KEY("RI");
        if (symbal_page_ < (mode_flag_map_[MoreSymbolPages] ? kLastPageNumber : kOnlyPageNumber)) {
            selectPage(symbal_page_ + 1);
        }
    } else if (upper == QLatin1String("ok")) { // never: upper is in upper case
        RA_DEBUG_KEY("ok");
        if (!m_buffer.isEmpty()) {
            m_curText += m_buffer;
            Q_EMIT changedOutSideTextSignal(m_curText, m_recObjName);
            clearBuffer();
        }
    } else if (upper == QLatin1String("hi")) { // never, likewise
        RA_DEBUG_KEY("hi");
        setVisible(false);
    }
}

void RaVirtualKeyboard::selectPage(int page)
{
    setSymbolPage(page);
    if (page == DigitPage) {
        Q_EMIT sendKeyboardNumber();
    } else {
        Q_EMIT sendKeyboardSymbol();
    }
}

void RaVirtualKeyboard::show(const QString& curText, const QString& recObjName)
{
    m_recObjName = recObjName;
    m_curText = curText;
    setVisible(true);
}

void RaVirtualKeyboard::show()
{
    setVisible(true);
}

void RaVirtualKeyboard::updatePressStatus()
{
    m_moveTimer->stop();
    m_isMoveStatus = 0;
}

void RaVirtualKeyboard::hideEvent(QHideEvent* event)
{
    m_dragged = nullptr;
    updatePressStatus();
    QWidget::hideEvent(event);
}

bool RaVirtualKeyboard::eventFilter(QObject* watched, QEvent* event)
{
    QWidget* widget = qobject_cast<QWidget*>(watched);
    if (widget && isAncestorOf(widget)) {
        watchKey(widget, event);
    } else {
        watchEdit(watched, event);
    }
    return false;
}

void RaVirtualKeyboard::watchEdit(QObject* edit, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::FocusIn:
        show(edit->property("text").toString(), edit->objectName());
        break;
    case QEvent::FocusOut:
        hideUnlessInUse(static_cast<const QFocusEvent*>(event));
        break;
    default:
        break;
    }
}

void RaVirtualKeyboard::watchKey(QWidget* key, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // the second of two quick taps
        m_dragged = key;
        m_dragY = screenY(key, event);
        break;
    case QEvent::MouseMove:
        if (key == m_dragged) {
            countDrag(screenY(key, event));
        }
        break;
    case QEvent::MouseButtonRelease:
        endDrag();
        break;
    case QEvent::FocusOut:
        hideUnlessInUse(static_cast<const QFocusEvent*>(event));
        break;
    default:
        if (raIsTouchCancel(event)) {
            endDrag();
        }
        break;
    }
}

void RaVirtualKeyboard::hideUnlessInUse(const QFocusEvent* focusOut)
{
    const QWidget* focused = QApplication::focusWidget(); // the one that has got the focus by now
    const bool inUse = focusOut->reason() == Qt::PopupFocusReason || (focused && isAncestorOf(focused));
    if (m_autoHide && !inUse) {
        setVisible(false);
    }
}

// One event is one step at most: a pointer that jumps from one finger to another has not dragged anything.
void RaVirtualKeyboard::countDrag(int y)
{
    const int way = m_dragY - y;
    if (qAbs(way) < kDragStep) {
        return;
    }
    m_dragY = y;
    if (++m_isMoveStatus < kDragSteps) {
        m_moveTimer->start(kRestTime);
    } else {
        m_moveTimer->stop();
    }
    Q_EMIT sendKeyboardMoveStep(way > 0, qAbs(way));
}

void RaVirtualKeyboard::endDrag()
{
    RA_DEBUG_KEY("QEvent::MouseButtonRelease:m_isMoveStatus=%d", m_isMoveStatus);
    m_dragged = nullptr;
    if (m_isMoveStatus < kDragSteps) {
        updatePressStatus();
    } else if (!m_moveTimer->isActive()) { // a tap in the meantime does not make it longer
        m_moveTimer->start(kInertTime);
        RA_DEBUG("--------call releaseMoveStatus start 100-------");
    }
}
