// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SPACEKEYBLANK_H
#define RAWIFI_SPACEKEYBLANK_H

#include <QObject>
#include <QString>

class RaVirtualKeyboard;

/** Turns taps on the space key, of which the keyboard itself passes nothing on, into a typed blank. */
class SpaceKeyBlank : public QObject
{
    Q_OBJECT
public:
    /** Becomes a child of \a keyboard. \a editName: the object name to send along. */
    SpaceKeyBlank(RaVirtualKeyboard* keyboard, const QString& editName);

Q_SIGNALS:
    void typed(const QString& text, const QString& editName);

private Q_SLOTS:
    void keyClicked(const QString& keyText);

private:
    Q_DISABLE_COPY(SpaceKeyBlank)

    const RaVirtualKeyboard* m_keyboard;
    QString m_editName;
};

#endif
