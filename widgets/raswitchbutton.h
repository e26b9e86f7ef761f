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

    explicit RaSwitchButton(QWidget* parent = nullptr);
    ~RaSwitchButton() override;

    bool getChecked() const;
    ButtonStyle getButtonStyle() const;
    QColor getBgColorOff() const;
    QColor getBgColorOn() const;
    QColor getSliderColorOff() const;
    QColor getSliderColorOn() const;
    QColor getTextColorOff() const;
    QColor getTextColorOn() const;
    QString getTextOff() const;
    QString getTextOn() const;
    QString getImageOff() const;
    QString getImageOn() const;
    int getSpace() const;
    int getRectRadius() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /** The state has changed, by a tap, a key or setChecked(). */
    void checkedChanged(bool checked);

public Q_SLOTS:
    /** Changes state and colours; the knob stays where it is until the next tap or resize. */
    void setChecked(bool checked);
    void setButtonStyle(ButtonStyle buttonStyle);
    void setBgColor(QColor bgColorOff, QColor bgColorOn);
    void setSliderColor(QColor sliderColorOff, QColor sliderColorOn);
    void setTextColor(QColor textColorOff, QColor textColorOn);
    void setText(QString textOff, QString textOn);
    void setImage(QString imageOff, QString imageOn);
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
