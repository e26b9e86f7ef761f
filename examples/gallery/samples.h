// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef SAMPLES_H
#define SAMPLES_H

class Gallery;

/** Fills \a gallery with every widget of the library and every page of its keyboard. */
void addSamples(Gallery* gallery);

#endif
