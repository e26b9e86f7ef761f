// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASWITCHBUTTON_H
#define RAWIFI_RASWITCHBUTTON_H

#include "rawifi_export.h"

#include <QColor>
#include <QScopedPointer>
#include <QString>
#include <QWidget>

class QPainter;
class QTimer;
struct RaSwitchFace;

/**
 * A sliding switch whose knob glides to its new end when it is tapped, or when space or enter is pressed
 * while it has the focus. GUI thread only.
 *
 * A text, or else a picture where the path exists, is shown beside the knob; both are per state.
 */
class RAWIFI_EXPORT RaSwitchButton : public QWidget
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
    /** The shape, and with it where the knob rests when on. */
    enum ButtonStyle {
        ButtonStyle_Rect = 0,  ///< a rounded rectangle; the knob takes half the width
        ButtonStyle_Round = 1, ///< a round knob inside a pill
        ButtonStyle_Slim = 2   ///< a round knob on a slim track
    };

    explicit RaSwitchButton(QWidget* parent = nullptr); ///< Off, in light colours and without texts.
    ~RaSwitchButton() override;

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
    Q_DISABLE_COPY(RaSwitchButton)

    int restingX() const;
    void toggle();
    void draw(QPainter* painter) const;

    QScopedPointer<RaSwitchFace> m_face;
    QTimer* m_timer;
};

#endif
