// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rabasewidget.h"

RaBaseWidget::RaBaseWidget(QWidget* parent) : QWidget(parent) {}

RaBaseWidget::~RaBaseWidget() {}

void RaBaseWidget::keyUp() {}

void RaBaseWidget::keyDown() {}
