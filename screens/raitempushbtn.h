// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAITEMPUSHBTN_H
#define RAWIFI_RAITEMPUSHBTN_H

#include "ravirtualkeyboard_btn.h"
#include "rawifirecords.h"

#include <QPushButton>
#include <QString>
#include <QTimer>

/**
 * One access point as a row of the network list, 320 by 60 pixels, drawn by itself. It keeps a copy of the record
 * and reports a tap, or the space or enter key, with that copy. GUI thread only.
 */
class RAWIFI_EXPORT RaItemPushBtn : public QPushButton
{
    Q_OBJECT
public:
    explicit RaItemPushBtn(QWidget* parent = nullptr); ///< A row of no network yet.

    /** Copies \a data (null is ignored) and takes its name; \a index is the row's place in the list. */
    void addItemData(APData* data, int index);
    /** Path of the signal picture; see signalPicture(). */
    QString getImageData(bool locked, int level) const;

    /** Shows the network as being joined, or as neither joined nor being joined. */
    void setConnectingStatus(bool connecting);
    /** Shows the network as joined. */
    void setConnectSuccess();
    /** Which of the two marks stands on the right: the tick when \a checked. */
    void setCheckState(bool checked);
    /** Leaves the status line out. */
    void setIsHideMsg(bool hidden);

    /** -1 before addItemData(). */
    int getPushBtnIndex() const;
    APData getItemData() const; ///< A copy of the record, its password included.
    /** The name: every character fit to be painted. */
    QString getText() const;
    /** Gives the row another name; a text type shows it as the button's own text, too. */
    void setText(const QString& text);
    /** IMAGEBTN and SWITCHIMAGEBTN empty the button's own text. */
    void setType(KEYBOARDTYPE type);
    /** Applies the style sheet anew. */
    void updateStyle();

    /** Ends a press that turned out not to be a tap: the row goes up and reports nothing. */
    void cancelPress();

Q_SIGNALS:
    void clicked(APData data, int index); ///< The row was tapped.

public Q_SLOTS:
    /** Ends the look that a tap leaves for a moment. */
    void updatePressStatus();
    /** The finger has stayed long enough for the row to show it. */
    void pressOnSlot();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void nextCheckState() override;

private:
    Q_DISABLE_COPY(RaItemPushBtn)

    enum ConnectState { Idle = 0, Joining = 1, Joined = 2 };

    void setConnectState(ConnectState state, const QString& status);
    void reportClick();
    bool looksPressed() const;
    void drawBg(QPainter* painter) const;
    void drawText(QPainter* painter) const;

    APData m_data;
    int m_index = -1;
    KEYBOARDTYPE m_keyType = TEXTBTN;
    QString m_Text;
    QString m_statusText;
    ConnectState m_connectState = Idle;
    bool m_checked = false;
    bool m_isHideMsg = false;
    QString m_signalPicture;
    QTimer m_pressTimer; ///< from a press to its look; runs on after a tap
    QTimer m_tapTimer;   ///< the look that a tap leaves
    bool m_isPressOn = false;
    bool m_isPressFinish = true;
    bool m_isReleasing = false; ///< a finger's release is being handled
};

/** "20 69 62" made readable: the hexadecimal bytes between blanks, as text in the system's codec. */
RAWIFI_EXPORT QString HexQString_to_QString(const QString& hex);

#endif
