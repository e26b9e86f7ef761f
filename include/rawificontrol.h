// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICONTROL_H
#define RAWIFICONTROL_H

// The umbrella: every public class, record, function and global of the library.

#include "rabasewidget.h"
#include "rabasewindow.h"
#include "racirclewait.h"
#include "raclickablelabel.h"
#include "raglobalfun.h"
#include "raitempushbtn.h"
#include "ralistitemwidget.h"
#include "ralistwidget.h"
#include "rapswdlineedit.h"
#include "rasliderwidget.h"
#include "raswitchbutton.h"
#include "raswitchlistwidget.h"
#include "raswitchwidget.h"
#include "ratitlewidget.h"
#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"
#include "rawifiManager.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "rawifiinputwnd.h"
#include "rawifilistwidget.h"
#include "rawifimonitor.h"
#include "rawifimsg.h"
#include "rawifiprocessingwnd.h"
#include "rawifirecords.h"
#include "rawifiservice.h"

#include <QCopChannel>

#endif
