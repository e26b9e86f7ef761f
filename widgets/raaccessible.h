// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAACCESSIBLE_H
#define RAWIFI_RAACCESSIBLE_H

class QWidget;

// What assistive tools see of the drawn controls: a role, a state or value, and an action that works the
// control. Nothing where the toolkit has no such means (Qt 4).

/** To be called by the constructor of each drawn control; any number of times. */
void raInstallAccessibility();

/** Tells assistive tools that the state of a switch has changed. */
void raAnnounceChecked(QWidget* widget);

/** Tells assistive tools that a slider now stands at \a value. */
void raAnnounceValue(QWidget* widget, int value);

#endif
