// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAPSWDLINEEDIT_H
#define RAWIFI_RAPSWDLINEEDIT_H

#include "rawifi_export.h"

#include <QLineEdit>
#include <QString>

/**
 * A password field whose placeholder is real text, in a grey look and never masked; whoever types into the field
 * takes it away first. GUI thread only.
 */
class RAWIFI_EXPORT raPsWdLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit raPsWdLineEdit(QWidget* parent = nullptr); ///< Without a placeholder, owned by \a parent.

    /** Sets the placeholder, and shows it if the field is empty or shows the one before. */
    void setplaceholdertext(const QString& text);
    /** The grey look of the placeholder, or the white one of typed text. */
    void setLineEditSheetStyle(bool placeholder);
    /** Whether the text is the placeholder. */
    bool getIsPlaceholderText() const;
    /** Shows the placeholder if the field is empty. */
    void setPlaceholdertextStatus();

public Q_SLOTS:
    /** Keeps the look in step with the text. */
    void slotLineEditChanged(QString text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(raPsWdLineEdit)

    void addSearchMark();
    void drawPlaceholder();

    QString m_placeholder;
};

#endif
