// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAVIRTUALKEYBOARD_BTN_H
#define RAWIFI_RAVIRTUALKEYBOARD_BTN_H

#include "rawifi_export.h"

#include <QLabel>
#include <QPoint>
#include <QProxyStyle>
#include <QPushButton>
#include <QString>

class QTimer;
class QTouchEvent;
enum class RaKeyGlyph;

/** Kind of a key or of a list button. Only a text key shows its text, only SWITCHBTN toggles with a click. */
enum KEYBOARDTYPE : int { IMAGEBTN = 0, TEXTBTN = 1, SWITCHBTN = 2, SWITCHIMAGEBTN = 3 };

/** The application's style without the focus frame and without a text cursor. */
class RAWIFI_EXPORT RaVirtualKeyboard_ProxyStyle : public QProxyStyle
{
    Q_OBJECT
public:
    /** The one that all keys wear: made on first use, owned by the application object. */
    static RaVirtualKeyboard_ProxyStyle* shared();

    /** Draws everything but the focus frame. */
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    /** 0 for the text cursor's width, else the application's style's. */
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
};

/** A label that applies its style sheet anew whenever its text changes. */
class RAWIFI_EXPORT RairtualKeyboard_Lb : public QLabel
{
    Q_OBJECT
public:
    explicit RairtualKeyboard_Lb(QWidget* parent); ///< Empty, owned by \a parent.

    void setText(const QString& text); ///< Hides QLabel's.

public Q_SLOTS:
    void clear(); ///< Sets the empty text.

private:
    Q_DISABLE_COPY(RairtualKeyboard_Lb)
};

/**
 * A key. It reports a completed click with its key text, which may differ from what it shows, and takes no
 * second click within 100 ms of one. With autoRepeat on, a key that is held down reports at the base class's
 * pace, and its release then adds nothing. Keys that are touched at the same time each follow their own
 * finger. A key that is hidden while it is held is let go. GUI thread only.
 */
class RAWIFI_EXPORT RaVirtualKeyboard_Btn : public QPushButton
{
    Q_OBJECT
public:
    explicit RaVirtualKeyboard_Btn(QWidget* parent); ///< A text key without a text, owned by \a parent.

    /** Sets the key text; it is shown as it stands, "&&" as "&", on a text key and on no other. */
    void setText(const QString& text);
    /** The key text, not the shown one. */
    QString getText() const;

    /** IMAGEBTN and SWITCHIMAGEBTN blank the shown text at once; SWITCHBTN leaves that to the next setText().
     */
    void setType(KEYBOARDTYPE type);
    /** Sets the checked state and its look: accent colour when checked, dark when not. */
    void updateStyle(bool checked);
    /** Sets the checked state and leaves the look alone. */
    void setCheckState(bool checked);

    /** What to draw where there is neither a shown text nor a picture. None at first. */
    void setGlyph(RaKeyGlyph glyph);
    /** Marks the key of the page that is shown with a bar along its lower edge. Off at first. */
    void setCurrent(bool current);

    /** The same small size for every key, so that a layout gives all keys of a row the same width. */
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void clicked(const QString& text); ///< \a text is the key text.

public Q_SLOTS:
    /** Ends the guard against a double click. */
    void updatePressStatus();
    void pressOnSlot(); ///< Notes a long press; nothing acts on it.

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void nextCheckState() override;

private:
    Q_DISABLE_COPY(RaVirtualKeyboard_Btn)

    void followFinger(const QTouchEvent* event);
    void letGo();
    void completeClick();
    void report();
    void paintText(QPainter* painter, const QColor& color) const;

    QPoint m_releasePos;
    KEYBOARDTYPE m_keyType = TEXTBTN;
    QTimer* m_clickTimer;
    QTimer* m_holdTimer;
    QString m_Text;
    bool m_isPressFinish = true;
    bool m_isPressOn = false;
    bool m_checked = false;

    bool m_isPressSpent = false; // the press that is on has reported already, or never will
    int m_finger;                // on a touch screen: the one that holds the key
    RaKeyGlyph m_glyph;
    bool m_current = false;
};

#endif
