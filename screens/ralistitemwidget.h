// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RALISTITEMWIDGET_H
#define RAWIFI_RALISTITEMWIDGET_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QString>
#include <QWidget>

/** An older, plainer row: signal picture and name. The network list uses RaItemPushBtn. GUI thread only. */
class RAWIFI_EXPORT RaListItemWidget : public QWidget
{
    Q_OBJECT
public:
    explicit RaListItemWidget(QWidget* parent = nullptr); ///< 320 by 60 pixels, without a name.

    /** Takes name and signal of \a data (null is ignored); \a index is what a tap reports. */
    void addItemData(APData* data, int index);
    /** Path of the signal picture; see signalPicture(). */
    QString getImageData(bool locked, int level) const;

Q_SIGNALS:
    void itemClick(int index); ///< A press was released inside the row.

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Q_DISABLE_COPY(RaListItemWidget)

    QString m_name;
    QString m_signalPicture;
    int m_index = -1;
};

#endif
