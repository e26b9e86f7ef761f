// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASWITCHLISTWIDGET_H
#define RAWIFI_RASWITCHLISTWIDGET_H

#include "rabasewidget.h"

#include <QColor>
#include <QRect>
#include <QScopedPointer>
#include <QString>

class QTimer;
struct RaSwitchFace;

/**
 * A full-width row with a sliding switch, 60 by 30 pixels, in one of two items; taps on the other item ask
 * for the configuration. Space or enter works the switch and the menu key asks for the configuration while
 * the row has the focus. GUI thread only.
 *
 * Item 1 is the upper 59 pixels and shows the name. Item 2 is the rest, if it is 20 pixels or more, and shows
 * the message; with the message hidden it exists only to carry the switch.
 */
class RAWIFI_EXPORT RaSwitchListWidget : public RaBaseWidget
{
    Q_OBJECT
    Q_ENUMS(ButtonStyle)
    Q_PROPERTY(bool checked READ getChecked WRITE setChecked)
    Q_PROPERTY(ButtonStyle buttonStyle READ getButtonStyle WRITE setButtonStyle)
    Q_PROPERTY(QColor bgColorOff READ getBgColorOff)
    Q_PROPERTY(QColor bgColorOn READ getBgColorOn)
    Q_PROPERTY(QColor sliderColorOff READ getSliderColorOff)
    Q_PROPERTY(QColor sliderColorOn READ getSliderColorOn)
    Q_PROPERTY(QColor textColorOff READ getTextColorOff)
    Q_PROPERTY(QColor textColorOn READ getTextColorOn)
    Q_PROPERTY(QString textOff READ getTextOff)
    Q_PROPERTY(QString textOn READ getTextOn)
    Q_PROPERTY(QString imageOff READ getImageOff)
    Q_PROPERTY(QString imageOn READ getImageOn)
    Q_PROPERTY(int space READ getSpace WRITE setSpace)
    Q_PROPERTY(int rectRadius READ getRectRadius WRITE setRectRadius)
public:
    /** The values of RaSwitchButton::ButtonStyle; the knob moves by 30 pixels in each. */
    enum ButtonStyle {
        ButtonStyle_Rect = 0,  ///< a rounded rectangle; the knob takes half the width
        ButtonStyle_Round = 1, ///< a round knob inside a pill
        ButtonStyle_Slim = 2   ///< a round knob on a slim track
    };

    explicit RaSwitchListWidget(QWidget* parent = nullptr); ///< Off, in light colours and without texts.
    ~RaSwitchListWidget() override;

    /** Puts the switch into item 1 (\a pos 1, as it is at first) or item 2 (any other value). */
    void setSwitchPos(int pos);
    /** The text of item 2 and the text of item 1, which is also the row's accessible name. */
    void setItemText(const QString& message, const QString& name);
    /** Hides the message, and with it its item where that does not carry the switch. */
    void setIsHideMsg(bool hidden);

    bool getChecked() const;            ///< Whether it is on; at first it is off.
    ButtonStyle getButtonStyle() const; ///< ButtonStyle_Rect at first.
    QColor getBgColorOff() const;       ///< Of the track; rgb(225,225,225) at first.
    QColor getBgColorOn() const;        ///< Of the track; rgb(250,250,250) at first.
    QColor getSliderColorOff() const;   ///< Of the knob; rgb(100,100,100) at first.
    QColor getSliderColorOn() const;    ///< Of the knob; rgb(100,184,255) at first.
    QColor getTextColorOff() const;     ///< White at first.
    QColor getTextColorOn() const;      ///< rgb(10,10,10) at first.
    QString getTextOff() const;         ///< Empty at first.
    QString getTextOn() const;          ///< Empty at first.
    QString getImageOff() const;        ///< A path; ":/image/btncheckoff1.png" at first.
    QString getImageOn() const;         ///< A path; ":/image/btncheckon1.png" at first.
    int getSpace() const;               ///< Pixels; 2 at first.
    int getRectRadius() const;          ///< Pixels; 5 at first.

    QSize sizeHint() const override;

Q_SIGNALS:
    /** The item without the switch was tapped, or the menu key pressed. */
    void configPressed();
    /** The state has changed, by a tap, a key or setChecked(). */
    void checkedChanged(bool checked);

public Q_SLOTS:
    /** Changes state and colours; the knob stays where it is until the next tap or resize. */
    void setChecked(bool checked);
    void setButtonStyle(ButtonStyle buttonStyle);                     ///< The knob stays until the next tap.
    void setBgColor(QColor bgColorOff, QColor bgColorOn);             ///< The track's.
    void setSliderColor(QColor sliderColorOff, QColor sliderColorOn); ///< The knob's.
    void setTextColor(QColor textColorOff, QColor textColorOn);       ///< The switch's own texts'.
    void setText(QString textOff, QString textOn);                    ///< On the switch itself, beside the knob.
    void setImage(QString imageOff, QString imageOn);                 ///< Paths; shown where there is no text.
    /** Distance in pixels between the knob and the edge of its track. */
    void setSpace(int space);
    /** Radius in pixels of the corners of ButtonStyle_Rect. */
    void setRectRadius(int rectRadius);

private Q_SLOTS:
    void updateValue();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaSwitchListWidget)

    QRect item1Rect() const;
    QRect item2Rect() const;
    QRect otherRect() const; ///< the item without the switch
    QRect switchRect() const;
    QRect hitRect() const;
    int restingX() const;
    void toggle();
    void drawItem(QPainter* painter, const QRect& item, const QString& text);

    QScopedPointer<RaSwitchFace> m_face;
    QTimer* m_timer;
    int m_switchPos = 1;
    QString m_message;
    QString m_name;
    bool m_isHideMsg = false;
};

#endif
