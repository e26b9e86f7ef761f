// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAVIRTUALKEYBOARD_H
#define RAWIFI_RAVIRTUALKEYBOARD_H

#include "rawifi_export.h"

#include <QList>
#include <QMap>
#include <QScopedPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

class QFocusEvent;
class QTimer;
class RaVirtualKeyboard_Btn;
class Ui_RaVirtualKeyboard;
struct KeyEntry;

/**
 * A keyboard of 320 by 262 pixels with a letter page, a digit page and two symbol pages. It edits nothing:
 * every tap is handed over as a text for the line edit that show() named. GUI thread only.
 */
class RAWIFI_EXPORT RaVirtualKeyboard : public QWidget
{
    Q_OBJECT
public:
    explicit RaVirtualKeyboard(QWidget* parent); ///< On the letter page, in small letters.
    ~RaVirtualKeyboard() override;

    void init(); ///< init1() and init2(); the constructor's.
    /** Gives every key its type, look and connections. */
    void init1();
    /** Builds the tables of key texts. */
    void init2();

    /** Goes to page 0 (letters), 1 (digits) or 2 and above (symbols). Pages above 3 look like page 3. */
    void setSymbolPage(int page);
    /** Changes between "a" and "A" when the letters are shown; on any other page their case stays. */
    void switchLetterStatus();
    /** Changes nothing. */
    void clearBuffer();

    /** Shows the keyboard for \a edit whenever that is pressed or gets the focus. Null is ignored. */
    void setAutoShow(QObject* edit);
    /** Whether to hide when the focus leaves both the edits of setAutoShow() and the keys. Off at first. */
    void setAutoHide(bool hide);

    /**
     * The key that is the space key on page 2. It reports a tap there with clicked("") and the keyboard
     * passes nothing on: the owner of the edited text turns that into a blank, unless isMoving(). On other
     * pages the key is another one and reports a text that is not empty. Owned by the keyboard.
     */
    RaVirtualKeyboard_Btn* spaceKey() const;
    /** Whether the keyboard is being dragged, or has been within the last 900 ms, so that no key acts. */
    bool isMoving() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /** One step of a drag: its direction, and its length in pixels (4 or more). */
    void sendKeyboardMoveStep(bool isUP, int moveValue);
    /** The digit page was selected. */
    void sendKeyboardNumber();
    /** A symbol page was selected. */
    void sendKeyboardSymbol();
    /** The letter page was selected from another page. */
    void sendKeyboardCharacter();
    /** \a text is one character to insert before the cursor of the edit \a objName, or "BS" to remove one. */
    void changedOutSideTextSignal(const QString& text, const QString& objName);

public Q_SLOTS:
    /** Acts on a key by its text: one character is handed over, a special key's name does what it says. */
    void recKeyClicked(const QString& strValue);
    /** Shows the keyboard for the line edit named \a recObjName, whose text is \a curText. */
    void show(const QString& curText, const QString& recObjName);
    void show(); ///< Shows the keyboard for the line edit that it was shown for last.
    /** Ends the time after a drag in which no key acts. */
    void updatePressStatus();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    Q_DISABLE_COPY(RaVirtualKeyboard)

    void actOnSpecialKey(const QString& upper);
    void selectPage(int page);
    void dressKey(RaVirtualKeyboard_Btn* key, const KeyEntry& entry);
    QString keyText(const KeyEntry& entry) const;

    void watchEdit(QObject* edit, QEvent* event);
    void watchKey(QWidget* key, QEvent* event);
    void hideUnlessInUse(const QFocusEvent* focusOut);
    void countDrag(int y);
    void endDrag();

    QScopedPointer<Ui_RaVirtualKeyboard> m_ui;
    QTimer* m_moveTimer;
    QMap<int, QStringList> m_pageTables;
    QMap<int, QList<RaVirtualKeyboard_Btn*>> m_keyRows;
    QMap<int, bool> mode_flag_map_;
    int symbal_page_ = 0;

    QString m_curText;
    QString m_recObjName;
    QString m_buffer;
    bool m_autoHide = false;

    int m_isMoveStatus = 0;
    const QWidget* m_dragged = nullptr; // compared, never used
    int m_dragY = 0;
};

#endif
