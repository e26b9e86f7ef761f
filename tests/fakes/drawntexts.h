// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_DRAWNTEXTS_H
#define RAWIFI_DRAWNTEXTS_H

#include <QPaintDevice>
#include <QPaintEngine>
#include <QStringList>
#include <QWidget>

/** A canvas that shows nothing and keeps every text that is drawn on it. */
class TextCanvas : public QPaintDevice
{
public:
    explicit TextCanvas(const QSize& size) : m_size(size) {}

    QPaintEngine* paintEngine() const override { return &m_engine; }
    QStringList texts() const { return m_engine.texts; }

protected:
    int metric(PaintDeviceMetric what) const override
    {
        switch (what) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(what);
        }
    }

private:
    class Engine : public QPaintEngine
    {
    public:
        Engine() : QPaintEngine(AllFeatures) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawImage(const QRectF&, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {}
        void drawTiledPixmap(const QRectF&, const QPixmap&, const QPointF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF&, const QTextItem& item) override { texts << item.text(); }
        Type type() const override { return User; }

        QStringList texts;
    };

    const QSize m_size;
    mutable Engine m_engine;
};

/** Every text that \a page draws, and all that it and what is shown on it tell an assistive tool. */
inline QStringList textsOf(QWidget* page)
{
    TextCanvas canvas(page->size());
    page->render(&canvas);
    QStringList texts = canvas.texts();
    const QList<QWidget*> widgets = page->findChildren<QWidget*>() << page;
    for (const QWidget* widget : widgets) {
        if (widget == page || widget->isVisibleTo(page)) {
            texts << widget->accessibleName() << widget->accessibleDescription() << widget->toolTip();
        }
    }
    texts.removeAll(QString());
    return texts;
}

#endif
