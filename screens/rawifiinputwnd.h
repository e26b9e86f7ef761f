// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIINPUTWND_H
#define RAWIFI_RAWIFIINPUTWND_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QString>
#include <QWidget>

class QLabel;
class QPushButton;
class QTimer;
class RaVirtualKeyboard;
class raPsWdLineEdit;

/**
 * The page on which the password of a network is typed, 320 pixels wide: the network's name, the field, and the
 * keyboard at the bottom, which a drag moves up and down. Enter is OK and Escape is Cancel. GUI thread only.
 *
 * The field takes what can be a password of the network and refuses anything else with a tip.
 */
class RAWIFI_EXPORT RaWifiInputWnd : public QWidget
{
    Q_OBJECT
public:
    explicit RaWifiInputWnd(QWidget* parent = nullptr); ///< Asks for no network yet.

    /** The network to ask for; its own password is not shown. */
    void setAPData(APData data);
    /** Empties the field and puts everything back as it was at first. */
    void clear();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /** The record of setAPData() with the typed password. */
    void sendWifiInputOkMsg(APData data);
    void sendWifiInputCancelMsg(); ///< Left without a password.

public Q_SLOTS:
    void onOkClicked();     ///< Sends the record, or shows a tip when the text cannot be its password.
    void onCancelClicked(); ///< Emits sendWifiInputCancelMsg().
    /** Changes between a readable and a masked password. */
    void pwdSelectChanged();
    /** Moves the keyboard with the finger, within the page. */
    void recKeyboardMoveStep(bool isUP, int moveValue);
    /** Inserts \a text at the cursor, or for "BS" removes the character before it. */
    void setTextSlot(QString text, QString objName);
    void recKeyboardNumber();        ///< The keyboard shows digits.
    void recKeyboardSymbol();        ///< The keyboard shows symbols.
    void recKeyboardCharacter();     ///< The keyboard shows letters.
    void PwTxtEdited(QString text);  ///< Shows the placeholder where \a text is empty.
    void PwTxtChanged(QString text); ///< Hides the tip, which was about the text before.
    void hideTips();                 ///< Hides the tip.

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    Q_DISABLE_COPY(RaWifiInputWnd)

    void makeStrip();
    void makeField();
    void makeButtons();
    void makeKeyboard();
    void insertText(const QString& text);
    void removeCharacter();
    void setTyped(const QString& before, const QString& after);
    void applyEcho();
    void showTip(const QString& tip);
    void moveKeyboard(int top);
    bool fieldKey(QKeyEvent* event);

    APData m_data;
    QPushButton* m_back = nullptr;
    QLabel* m_name = nullptr;
    raPsWdLineEdit* m_edit = nullptr;
    QPushButton* m_toggle = nullptr;
    QLabel* m_tip = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_ok = nullptr;
    RaVirtualKeyboard* m_keyboard = nullptr;
    QTimer* m_tipsTimer = nullptr;
    bool m_isMasked = false;
    bool m_lettersShown = true; ///< on the keyboard
};

#endif
