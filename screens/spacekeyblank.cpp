// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "spacekeyblank.h"

#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"

SpaceKeyBlank::SpaceKeyBlank(RaVirtualKeyboard* keyboard, const QString& editName)
    : QObject(keyboard),
      m_keyboard(keyboard),
      m_editName(editName)
{
    connect(keyboard->spaceKey(), SIGNAL(clicked(QString)), this, SLOT(keyClicked(QString)));
}

// On other pages the key is another one, with a text of its own.
void SpaceKeyBlank::keyClicked(const QString& keyText)
{
    if (keyText.isEmpty() && !m_keyboard->isMoving()) {
        Q_EMIT typed(QLatin1String(" "), m_editName);
    }
}
