// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASLIDERWIDGET_H
#define RAWIFI_RASLIDERWIDGET_H

#include "rabasewidget.h"

#include <QColor>
#include <QPixmap>
#include <QString>

/**
 * A level bar for brightness or volume: a picture to lower the level, one block for each level, a picture to
 * raise it. At its best 320 by 120 pixels; GUI thread only. Storing the level is the host's: it overrides
 * saveConfig().
 */
class RAWIFI_EXPORT RaSliderWidget : public RaBaseWidget
{
    Q_OBJECT
public:
    /** Any value other than VOLUME is a brightness slider. */
    enum RA_SLIDERTYPE : int { VOLUME = 0, BRIGHTNESS = 1 };

    /** Level 0 of 5 (volume) or of 4 (brightness). */
    explicit RaSliderWidget(RA_SLIDERTYPE type, QWidget* parent = nullptr);
    ~RaSliderWidget() override;

    /** One level up, or nothing at the top. */
    void keyUp() override;
    /** One level down, or nothing at 0. */
    void keyDown() override;

    /** The user has chosen \a level. Only logs it here. */
    virtual void saveConfig(int level);

    int getLevel() const { return m_level; } ///< 0..getLevelCount()
    /** The highest level. */
    int getLevelCount() const { return m_levels; }
    /** Shows \a level, brought into 0..getLevelCount(), without saveConfig(): for a level that the host has
     * stored. */
    void setLevel(int level);

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaSliderWidget)

    QPixmap paintToPixmap();
    void drawPicture(QPainter* painter, const QRect& area, const QString& path, bool increase);
    void choose(int level);
    int unit() const;

    QColor m_inactiveColor;
    QColor m_activeColor;
    RA_SLIDERTYPE m_type;
    int m_levels;
    int m_level = 0;
    QString m_increasePicture;
    QString m_decreasePicture;
};

#endif
