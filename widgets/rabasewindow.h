// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RABASEWINDOW_H
#define RAWIFI_RABASEWINDOW_H

#include "rawifi_export.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class QLabel;
class RaBaseWidget;
class RaClickableLabel;

/**
 * A frameless full-screen page: a title bar above one content widget. GUI thread only.
 *
 * Always a top-level window: whoever creates it deletes it or gives it a parent. The page is empty until
 * createUI().
 */
class RAWIFI_EXPORT RaBaseWindow : public QWidget
{
    Q_OBJECT
public:
    /** \a parent is ignored. \a title and \a subtitle are kept for the page; an empty text shows nothing. */
    RaBaseWindow(QWidget* parent, QString title, QString subtitle);
    ~RaBaseWindow() override;

    /**
     * The page's content, without a parent; the page takes it over. Null leaves the page's body empty.
     * Here: a level slider, \a type being its RaSliderWidget::RA_SLIDERTYPE.
     */
    virtual RaBaseWidget* createContengWidget(int type);

    /**
     * Builds the page: a title bar with \a title and the page's own subtitle, then the content of \a type.
     * The last text is not used. A second call replaces what the first one built.
     */
    virtual void createUI(QString title, int type, QString ignored);

    void showBackButton(bool shown); ///< Of a page that has been built.

public Q_SLOTS:
    /** Closes the page. */
    void slotQuit();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    Q_DISABLE_COPY(RaBaseWindow)

    QWidget* m_titleBar = nullptr;
    QPointer<RaBaseWidget> m_content; // a host may delete what it has given
    QLabel* m_titleLabel = nullptr;
    RaClickableLabel* m_backLabel = nullptr;
    QLabel* m_subtitleLabel = nullptr;
    QString m_title;
    QString m_subtitle;

protected:
    bool m_flag = true; ///< for derived pages of a host; nothing here reads it

private:
    void createTitleBar(const QString& title, const QString& subtitle);
    void clearUI();
};

#endif
