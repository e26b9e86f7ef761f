# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
include $(sort $(wildcard $(BR2_EXTERNAL_RAWIFICONTROL_PATH)/package/*/*.mk))
